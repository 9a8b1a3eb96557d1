// Random choices that come out alike everywhere: the standard library's distributions differ from
// one library to the next, so these are our own. Knows nothing of shops.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <random>
#include <string_view>

namespace demo {

class Random {
  public:
    // Every purpose has a sequence of its own, so that more sales do not change the customers.
    Random(std::uint64_t seed, std::string_view purpose);

    // Each number from `low` to `high` with the same chance; `low` may not be above `high`.
    [[nodiscard]] std::int64_t Between(std::int64_t low, std::int64_t high);

    [[nodiscard]] bool Chance(int percent) { return Between(1, 100) <= percent; }

    template <class Table>
    [[nodiscard]] decltype(auto) Pick(const Table& table) {
        const auto last = static_cast<std::int64_t>(std::size(table)) - 1;
        return table[static_cast<std::size_t>(Between(0, last))];
    }

  private:
    std::mt19937_64 engine_;
};

}  // namespace demo
