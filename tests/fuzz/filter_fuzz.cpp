// Filters of recordsets. The last line of the input is the text of a field, what stands in front of
// it is the filter.

#include "platform/database/filter.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <numeric>
#include <string>
#include <vector>

#include "platform/comparison.h"
#include "platform/database/client_recordset.h"
#include "platform/norwegian.h"
#include "platform/text.h"
#include "tests/fuzz/fuzz_target.h"

using namespace platform;
using namespace platform::database;
using fuzz::Require;

namespace {

constexpr std::array kSpellings = {"=", "<>", "<", "<=", ">", ">="};  // in the order of Comparison

bool IsSame(const FilterTerm& left, const FilterTerm& right) {
    return left.field == right.field && left.comparison == right.comparison &&
           left.literal == right.literal;
}

bool AreSame(const std::vector<FilterTerm>& left, const std::vector<FilterTerm>& right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(), IsSame);
}

std::string SpellingOf(const Value& literal) {
    if (const std::string* text = literal.AsText()) {
        std::string quoted = "'";
        for (const char c : *text)
            quoted.append(c == '\'' ? 2 : 1, c);
        return quoted + "'";
    }
    if (const std::int64_t* whole = literal.AsWhole()) return std::to_string(*whole);
    std::array<char, 32> digits{};
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), *literal.AsFloating());
    return {digits.data(), end.ptr};
}

std::string SpellingOf(const std::vector<FilterTerm>& terms) {
    std::string text;
    for (const FilterTerm& term : terms) {
        if (!text.empty()) text += " and ";
        text += term.field + " " + kSpellings[static_cast<std::size_t>(term.comparison)] + " " +
                SpellingOf(term.literal);
    }
    return text;
}

bool PassesAs(FilterTerm term, Comparison comparison, const Value& value) {
    term.comparison = comparison;
    return Passes(term, value);
}

void CheckComparisons(const FilterTerm& term, const Value& value) {
    const bool less = PassesAs(term, Comparison::Less, value);
    const bool equal = PassesAs(term, Comparison::Equal, value);
    const bool greater = PassesAs(term, Comparison::Greater, value);
    Require(less + equal + greater <= 1, "a value is less, equal or greater, or nothing of it");
    Require(PassesAs(term, Comparison::NotEqual, value) == (less || greater), "<> is < or >");
    Require(PassesAs(term, Comparison::LessOrEqual, value) == (less || equal), "<= is < or =");
    Require(PassesAs(term, Comparison::GreaterOrEqual, value) == (greater || equal),
            ">= is > or =");
    if (value.IsNull()) Require(!less && !equal && !greater, "null passes nothing");
    if (value.AsText() && term.literal.AsText()) {
        Require(less + equal + greater == 1, "two texts compare");
        Require(Passes(term, Upper(*value.AsText())) == Passes(term, value),
                "texts compare without regard to case");
    }
}

std::vector<Row> RowsWith(std::string_view text) {
    std::vector<Row> rows;
    for (const Value& value : {Value(text), Value(), Value(true), Value(-2), Value(1.25),
                               Value("Avrunding"), Value(DateTime{2005, 3, 5, 0, 0, 0})}) {
        rows.push_back({static_cast<int>(rows.size()), value, Value(text)});
    }
    return rows;
}

// The places of the rows that pass, term by term and row by row.
std::vector<std::size_t> ExpectedPlaces(const RowSet& rowSet,
                                        const std::vector<FilterTerm>& terms) {
    std::vector<std::size_t> expected;
    for (std::size_t number = 0; number < rowSet.rows.size(); ++number) {
        const Row& row = rowSet.rows[number];
        bool passes = true;
        for (const FilterTerm& term : terms) {
            std::size_t place = 0;
            while (!EqualsIgnoreCase(rowSet.fields.at(place), term.field))
                ++place;
            passes = passes && Passes(term, row.at(place));
        }
        if (passes) expected.push_back(number);
    }
    return expected;
}

void CheckRows(const std::vector<FilterTerm>& terms, std::string_view text) {
    const RowSet rowSet{{"ID", "A", "ProductID"}, RowsWith(text), "rows"};
    std::vector<std::size_t> all(rowSet.rows.size());
    std::iota(all.begin(), all.end(), std::size_t{0});
    std::vector<std::size_t> passing;
    const int error = fuzz::ErrorNumberOf([&] { passing = PlacesThatPass(terms, rowSet, all); });
    Require(error == 0 || error == error_number::kFieldNotFound, "an unknown field is error 3265");
    if (error != 0) return;
    Require(passing == ExpectedPlaces(rowSet, terms),
            "the rows that pass every term are taken in their order");
}

// Every text can stand in a filter as a literal, and every number as it is spelled.
void CheckLiterals(std::string_view text) {
    const auto literalOf = [](const std::string& spelling) {
        const std::vector<FilterTerm> terms = ParseFilter("A = " + spelling);
        Require(terms.size() == 1, "one comparison is one term");
        return terms.front().literal;
    };
    Require(literalOf(SpellingOf(Value(text))) == Value(text), "a text is the literal it is");
    if (const std::optional<double> number = ParseNumber(text)) {
        const Value literal = literalOf(std::string(text));
        Require(NumberOf(literal) == number, "a number is the literal it is");
        Require(Equals(literal, Value(text)), "to its last digit");
    }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto [filterText, field] = fuzz::SplitLastLine(fuzz::TextOf(data, size));
    const std::string filter(filterText);
    CheckLiterals(field);
    std::vector<FilterTerm> terms;
    if (const auto error = fuzz::ErrorOf([&] { terms = ParseFilter(filter); })) {
        Require(error->Number() == error_number::kSyntaxError, "a malformed filter is error 3075");
        Require(error->Description().find(filter) != std::string::npos, "whose text gives it");
        return 0;
    }
    Require(AreSame(ParseFilter(filter), terms), "a filter means the same every time");
    Require(AreSame(ParseFilter(SpellingOf(terms)), terms), "also where it is spelled otherwise");
    for (const FilterTerm& term : terms) {
        for (const Row& row : RowsWith(field))
            CheckComparisons(term, row.at(1));
    }
    CheckRows(terms, field);
    return 0;
}
