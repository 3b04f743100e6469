// The fuzzers' bytes read as the numbers and texts a target needs. Reads past
// the end give zeros, so every input, however short, is a whole case.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstdio>
#include <string>

class FuzzInput {
public:
    FuzzInput(const uint8_t* data, size_t size) : data_(data), size_(size) {}

    bool Empty() const { return at_ >= size_; }

    uint8_t Byte() { return at_ < size_ ? data_[at_++] : 0; }
    bool Bool() { return (Byte() & 1) != 0; }

    uint32_t U32() {
        uint32_t value = 0;
        for (int i = 0; i < 4; ++i) value = value << 8 | Byte();
        return value;
    }

    // lo..hi inclusive (lo <= hi).
    int32_t IntIn(int32_t lo, int32_t hi) {
        const uint64_t span = static_cast<uint64_t>(static_cast<int64_t>(hi) - lo) + 1;
        return static_cast<int32_t>(lo + static_cast<int64_t>(U32() % span));
    }

    // A wide text: a byte below 0x80 is that character; a higher byte and
    // the next one make any other character of the basic plane.
    std::wstring WideText(size_t maxLength) {
        std::wstring text;
        while (!Empty() && text.size() < maxLength) {
            const uint8_t b = Byte();
            text.push_back(b < 0x80 ? static_cast<wchar_t>(b)
                                    : static_cast<wchar_t>((b & 0x7F) << 8 | Byte()));
        }
        return text;
    }

private:
    const uint8_t* data_;
    size_t size_;
    size_t at_ = 0;
};

// A broken promise: say which and stop, so that libFuzzer keeps the input.
#define FUZZ_CHECK(condition)                                                        \
    do {                                                                             \
        if (!(condition)) {                                                          \
            std::fprintf(stderr, "%s:%d: broken: %s\n", __FILE__, __LINE__, #condition); \
            std::abort();                                                            \
        }                                                                            \
    } while (false)
