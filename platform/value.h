// The dynamically typed value of a database field or a data-set field. Knows nothing of how a value
// is written as text (norwegian.h), compared (comparison.h) or stored.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

namespace platform {

// A local date and time to the second; the time is midnight where only a date is meant.
struct DateTime {
    std::int16_t year = 1899;
    std::int8_t month = 12;
    std::int8_t day = 30;
    std::int8_t hour = 0;
    std::int8_t minute = 0;
    std::int8_t second = 0;

    // NOLINTNEXTLINE(modernize-use-nullptr): takes the generated comparisons for ones with 0.
    friend auto operator<=>(const DateTime&, const DateTime&) = default;
};

// Whether the date exists in the calendar (years 100 to 9999) and the time of day is one.
[[nodiscard]] bool IsValid(const DateTime& moment);

class Value {
  public:
    Value() = default;  // null
    Value(bool truth) : data_(truth) {}
    Value(int number) : data_(std::int64_t{number}) {}
    Value(std::int64_t number) : data_(number) {}
    Value(double number) : data_(Floating{number, std::nullopt}) {}
    Value(std::string text) : data_(std::move(text)) {}
    Value(std::string_view text) : data_(std::string(text)) {}
    Value(const char* text) : data_(std::string(text)) {}
    Value(DateTime moment) : data_(moment) {}

    // The floating-point number next to `whole`, of which no digit is lost: it can tell two
    // receipts apart.
    [[nodiscard]] static Value FloatingOf(std::int64_t whole);

    [[nodiscard]] bool IsNull() const { return std::holds_alternative<std::monostate>(data_); }

    // The value if it is of that type, else a null pointer.
    [[nodiscard]] const bool* AsBoolean() const { return std::get_if<bool>(&data_); }
    [[nodiscard]] const std::int64_t* AsWhole() const { return std::get_if<std::int64_t>(&data_); }
    [[nodiscard]] const double* AsFloating() const {
        const auto* floating = std::get_if<Floating>(&data_);
        return floating != nullptr ? &floating->number : nullptr;
    }
    [[nodiscard]] const std::string* AsText() const { return std::get_if<std::string>(&data_); }
    [[nodiscard]] const DateTime* AsDate() const { return std::get_if<DateTime>(&data_); }

    // The whole number that a boolean, a whole or a floating-point number is, to its last digit;
    // nothing for a fraction, for what 64 bits do not hold, and for other types.
    [[nodiscard]] std::optional<std::int64_t> Whole() const;

    // The room of an earlier text is used again: a row may be filled a million times.
    void AssignText(std::string_view text);

    // Same type and content, for tests and containers. The system compares by comparison.h.
    friend bool operator==(const Value&, const Value&) = default;

  private:
    struct Floating {
        double number = 0;
        std::optional<std::int64_t> whole;  // where `number` is another than was meant

        friend bool operator==(const Floating&, const Floating&) = default;
    };

    std::variant<std::monostate, bool, std::int64_t, Floating, std::string, DateTime> data_;
};

}  // namespace platform
