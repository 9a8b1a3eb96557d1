#include "platform/database/filter.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>

#include "platform/comparison.h"
#include "platform/database/field_names.h"
#include "platform/error.h"
#include "platform/norwegian.h"
#include "platform/text.h"

namespace platform::database {
namespace {

struct OperatorSpelling {
    std::string_view text;
    Comparison comparison;
};

// The longer spellings first.
constexpr std::array kOperators = {
    OperatorSpelling{"<>", Comparison::NotEqual},
    OperatorSpelling{"<=", Comparison::LessOrEqual},
    OperatorSpelling{">=", Comparison::GreaterOrEqual},
    OperatorSpelling{"=", Comparison::Equal},
    OperatorSpelling{"<", Comparison::Less},
    OperatorSpelling{">", Comparison::Greater},
};

class FilterParser {
  public:
    explicit FilterParser(std::string_view filter) : filter_(filter), rest_(TrimLeft(filter)) {}

    std::vector<FilterTerm> Terms() {
        std::vector<FilterTerm> terms;
        if (rest_.empty()) return terms;
        terms.push_back(Term());
        while (!rest_.empty()) {
            if (!EqualsIgnoreCase(TakeWord(), "and")) Fail("'and' expected");
            terms.push_back(Term());
        }
        return terms;
    }

  private:
    FilterTerm Term() {
        FilterTerm term;
        term.field = TakeWord();
        if (term.field.empty()) Fail("field name expected");
        term.comparison = TakeOperator();
        term.literal = rest_.starts_with('\'') ? TakeText() : TakeNumber();
        return term;
    }

    // Everything up to a blank, an operator or a quotation mark.
    std::string_view TakeWord() {
        return Take(std::min(rest_.find_first_of(" \t\r\n<>='"), rest_.size()));
    }

    Comparison TakeOperator() {
        for (const OperatorSpelling& spelling : kOperators) {
            if (!rest_.starts_with(spelling.text)) continue;
            Take(spelling.text.size());
            return spelling.comparison;
        }
        Fail("operator expected");
    }

    Value TakeText() {
        std::string text;
        std::size_t at = 1;
        while (true) {
            const std::size_t quote = rest_.find('\'', at);
            if (quote == std::string_view::npos) Fail("text without an end");
            text.append(rest_, at, quote - at);
            at = quote + 1;
            if (at == rest_.size() || rest_[at] != '\'') break;
            text += '\'';
            ++at;
        }
        Take(at);
        return text;
    }

    Value TakeNumber() {
        const std::string_view word = TakeWord();
        if (const std::optional<std::int64_t> whole = ParseWholeNumber(word)) return *whole;
        const std::optional<double> number = ParseNumber(word);
        if (!number) Fail("number or text expected");
        if (const auto whole = Value(*number).Whole()) return *whole;
        return *number;
    }

    std::string_view Take(std::size_t size) {
        const std::string_view taken = rest_.substr(0, size);
        rest_ = TrimLeft(rest_.substr(size));
        return taken;
    }

    [[noreturn]] void Fail(std::string_view reason) const {
        throw RuntimeError(error_number::kSyntaxError,
                           "Filter '" + std::string(filter_) + "': " + std::string(reason) + ".");
    }

    std::string_view filter_;
    std::string_view rest_;
};

}  // namespace

std::vector<FilterTerm> ParseFilter(std::string_view filter) {
    return FilterParser(filter).Terms();
}

bool Passes(const FilterTerm& term, const Value& value) {
    const Ordering ordering = Compare(value, term.literal);
    if (ordering == Ordering::Unordered) return false;
    switch (term.comparison) {
        case Comparison::Equal:
            return ordering == Ordering::Equal;
        case Comparison::NotEqual:
            return ordering != Ordering::Equal;
        case Comparison::Less:
            return ordering == Ordering::Less;
        case Comparison::LessOrEqual:
            return ordering != Ordering::Greater;
        case Comparison::Greater:
            return ordering == Ordering::Greater;
        case Comparison::GreaterOrEqual:
            return ordering != Ordering::Less;
    }
    return false;
}

std::vector<std::size_t> PlacesThatPass(std::span<const FilterTerm> terms, const RowSet& rowSet,
                                        std::span<const std::size_t> places) {
    std::vector<std::size_t> fields;
    for (const FilterTerm& term : terms)
        fields.push_back(PlaceOfField(rowSet.fields, term.field, rowSet.source));

    std::vector<std::size_t> passing;
    for (const std::size_t place : places) {
        const Row& row = rowSet.rows[place];
        bool passes = true;
        for (std::size_t i = 0; passes && i < terms.size(); ++i)
            passes = Passes(terms[i], row[fields[i]]);
        if (passes) passing.push_back(place);
    }
    return passing;
}

}  // namespace platform::database
