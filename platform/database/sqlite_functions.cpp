#include "platform/database/sqlite_functions.h"

#include <sqlite3.h>

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>

#include "platform/database/amount_units.h"
#include "platform/text.h"

namespace platform::database {
namespace {

// The state of one sum(); the library hands it out zeroed.
struct Sum {
    std::int64_t units;
    bool hasAddend;
    bool overflown;
};

bool UnitsOf(sqlite3_value* addend, std::int64_t& units) {
    if (sqlite3_value_numeric_type(addend) == SQLITE_INTEGER) {
        return !__builtin_mul_overflow(sqlite3_value_int64(addend), kUnitsOfOne, &units);
    }
    const std::optional<std::int64_t> rounded = AmountUnits(sqlite3_value_double(addend));
    units = rounded.value_or(0);
    return rounded.has_value();
}

void SumStep(sqlite3_context* context, int, sqlite3_value** arguments) noexcept {
    if (sqlite3_value_type(arguments[0]) == SQLITE_NULL) return;
    auto* sum = static_cast<Sum*>(sqlite3_aggregate_context(context, sizeof(Sum)));
    if (sum == nullptr) {
        sqlite3_result_error_nomem(context);
        return;
    }
    sum->hasAddend = true;
    std::int64_t units = 0;
    if (!UnitsOf(arguments[0], units) || __builtin_add_overflow(sum->units, units, &sum->units)) {
        sum->overflown = true;
    }
}

void SumFinal(sqlite3_context* context) noexcept {
    const auto* sum = static_cast<const Sum*>(sqlite3_aggregate_context(context, 0));
    if (sum == nullptr || !sum->hasAddend) {
        sqlite3_result_null(context);
    } else if (sum->overflown) {
        sqlite3_result_error(context, kSumOverflowMessage.data(),
                             static_cast<int>(kSumOverflowMessage.size()));
    } else {
        sqlite3_result_double(context, AmountOfUnits(sum->units));
    }
}

bool IsAscii(char character) {
    return static_cast<unsigned char>(character) < 0x80;
}

char UpperAscii(char letter) {
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

int CompareTexts(void*, int leftSize, const void* leftBytes, int rightSize,
                 const void* rightBytes) noexcept {
    const std::string_view left(static_cast<const char*>(leftBytes),
                                static_cast<std::size_t>(leftSize));
    const std::string_view right(static_cast<const char*>(rightBytes),
                                 static_cast<std::size_t>(rightSize));
    // Nearly all pairs differ in an ASCII letter near the front.
    const auto [a, b] = std::ranges::mismatch(
        left, right, [](char x, char y) { return UpperAscii(x) == UpperAscii(y); });
    const bool asciiDecides = (a == left.end() || IsAscii(*a)) && (b == right.end() || IsAscii(*b));
    if (!asciiDecides) return Upper(left).compare(Upper(right));
    if (a == left.end() || b == right.end()) return leftSize - rightSize;
    return UpperAscii(*a) - UpperAscii(*b);
}

}  // namespace

int RegisterFunctions(sqlite3* connection) {
    const int code =
        sqlite3_create_function_v2(connection, "sum", 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC,
                                   nullptr, nullptr, SumStep, SumFinal, nullptr);
    if (code != SQLITE_OK) return code;
    return sqlite3_create_collation_v2(connection, kTextCollation.data(), SQLITE_UTF8, nullptr,
                                       CompareTexts, nullptr);
}

}  // namespace platform::database
