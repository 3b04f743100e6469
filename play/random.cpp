// The shared MT19937 engine and the three ways the program draws from it.
#include "play/random.h"

#include <random>

namespace {

std::mt19937 SeededFromDevice() {
    std::random_device device;
    return std::mt19937(device());
}

// Process-wide: play differs in every run.
std::mt19937 g_randomEngine = SeededFromDevice();

}  // namespace

int32_t RandomInt(int32_t lo, int32_t hi) {
    const uint32_t n = static_cast<uint32_t>(hi) - static_cast<uint32_t>(lo) + 1u;
    if (n == 0) {  // the full 32-bit range
        return static_cast<int32_t>(static_cast<uint32_t>(lo) + g_randomEngine());
    }
    // Multiply-shift with rejection: the high half of x * n is uniform in
    // 0..n-1 once the few biased low halves are redrawn.
    uint64_t product = static_cast<uint64_t>(g_randomEngine()) * n;
    if (static_cast<uint32_t>(product) < n) {
        const uint32_t threshold = (0u - n) % n;
        while (static_cast<uint32_t>(product) < threshold) {
            product = static_cast<uint64_t>(g_randomEngine()) * n;
        }
    }
    return static_cast<int32_t>(static_cast<uint32_t>(lo) + static_cast<uint32_t>(product >> 32));
}

float RandomUnit() {
    return static_cast<float>(g_randomEngine() >> 8) * 5.9604645e-8f;
}

float RandomRange(float a, float b) {
    const float span = b - a;
    return RandomUnit() * span + a;
}

void SeedRandom(uint32_t seed) {
    g_randomEngine.seed(seed);
}
