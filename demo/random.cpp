#include "demo/random.h"

#include <limits>

namespace demo {

namespace {

// FNV-1a over the purpose, started from the seed.
std::uint64_t Mix(std::uint64_t seed, std::string_view purpose) {
    std::uint64_t hash = 14695981039346656037ULL ^ seed;
    for (const char letter : purpose) {
        hash ^= static_cast<unsigned char>(letter);
        hash *= 1099511628211ULL;
    }
    return hash;
}

}  // namespace

Random::Random(std::uint64_t seed, std::string_view purpose) : engine_(Mix(seed, purpose)) {}

std::int64_t Random::Between(std::int64_t low, std::int64_t high) {
    const std::uint64_t count = static_cast<std::uint64_t>(high) - static_cast<std::uint64_t>(low);
    const std::uint64_t choices = count + 1;
    if (choices == 0) return static_cast<std::int64_t>(engine_());
    // What lies above the last whole multiple would favour the low numbers.
    const std::uint64_t top = std::numeric_limits<std::uint64_t>::max();
    const std::uint64_t limit = top - top % choices;
    std::uint64_t drawn = engine_();
    while (drawn >= limit)
        drawn = engine_();
    return low + static_cast<std::int64_t>(drawn % choices);
}

}  // namespace demo
