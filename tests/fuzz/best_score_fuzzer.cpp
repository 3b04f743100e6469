// Any high_score.txt content: the parse never crashes and never gives a
// negative best score; a positive one is a number written in the text, and
// what follows a line end after it cannot change it. What the save writes
// always reads back.
#include <sstream>
#include <string>

#include "settings/high_score.h"
#include "tests/fuzz/fuzz_input.h"

namespace {

int32_t Parse(const std::string& text) {
    std::istringstream stream(text);
    return ParseBestScore(stream);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const int32_t best = Parse(text);
    FUZZ_CHECK(best >= 0);
    if (best > 0) {
        FUZZ_CHECK(text.find(std::to_string(best)) != std::string::npos);
        FUZZ_CHECK(Parse(text + "\n" + text) == best);
    }

    // The file the save writes: the number and a line end (CR LF on disk).
    FuzzInput input(data, size);
    const int32_t saved = input.IntIn(1, INT32_MAX);
    FUZZ_CHECK(Parse(std::to_string(saved) + "\r\n") == saved);
    return 0;
}
