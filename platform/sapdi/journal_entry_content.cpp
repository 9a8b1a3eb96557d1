#include "platform/sapdi/journal_entry_content.h"

#include <array>
#include <cmath>

#include "platform/date_text.h"
#include "platform/error.h"
#include "platform/files.h"
#include "platform/norwegian.h"
#include "platform/sapdi/code_rules.h"
#include "platform/sapdi/error_codes.h"
#include "platform/text.h"

namespace platform::sapdi {
namespace {

constexpr std::array<std::string_view, JournalEntryContent::kNumber + 1> kHeadColumns = {
    "RefDate", "DueDate", "TaxDate", "Memo", "Number"};

constexpr std::array<std::string_view, JournalEntryContent::kCredit + 1> kLineColumns = {
    "Account", "ShortName", "Debit", "Credit"};

constexpr HeadAndLinesNames kNames{ObjectType::JournalEntries, "OJDT", "JDT1", kHeadColumns,
                                   kLineColumns};

double AmountOf(const Value& value) {
    const double* amount = value.AsFloating();
    return amount == nullptr ? 0 : *amount;
}

// Amounts count to four decimals, in whole 1/10000: their sum is exact.
std::int64_t UnitsOf(double amount) {
    constexpr double kUnitsOfOne = 10000;
    constexpr double kMost = 1e10;  // so that the sum of 90 000 lines does not overflow
    if (!(std::abs(amount) <= kMost)) {
        throw RuntimeError(error_code::kInvalidValue,
                           "Amount " + NumberText(amount) + " is out of range");
    }
    return std::llround(amount * kUnitsOfOne);
}

bool IsEmptyLine(const Row& line) {
    return IsBlank(TextOf(line[JournalEntryContent::kAccount])) &&
           IsBlank(TextOf(line[JournalEntryContent::kShortName])) &&
           AmountOf(line[JournalEntryContent::kDebit]) == 0 &&
           AmountOf(line[JournalEntryContent::kCredit]) == 0;
}

}  // namespace

JournalEntryContent::JournalEntryContent() : content_(kNames) {}

std::string JournalEntryContent::LineContent::AccountCode() const {
    return std::string(TextOf(content_.CurrentLine()[kAccount]));
}

void JournalEntryContent::SetDate(HeadColumn column, const DateTime& date) {
    content_.Head()[column].AssignText(IsoDate(date));
}

void JournalEntryContent::SaveXML(std::string_view fileName) {
    WriteWholeFile(fileName, content_.ToXml());
}

std::span<const Row> JournalEntryContent::FilledLines() const {
    std::span<const Row> lines = content_.Lines();
    while (!lines.empty() && IsEmptyLine(lines.back()))
        lines = lines.first(lines.size() - 1);
    return lines;
}

void JournalEntryContent::RequireBalance() const {
    double debit = 0;
    double credit = 0;
    std::int64_t difference = 0;
    for (const Row& line : content_.Lines()) {
        debit += AmountOf(line[kDebit]);
        credit += AmountOf(line[kCredit]);
        difference += UnitsOf(AmountOf(line[kDebit])) - UnitsOf(AmountOf(line[kCredit]));
    }
    if (difference == 0) return;
    throw RuntimeError(
        error_code::kInvalidValue,
        "Unbalanced transaction: debit " + NumberText(debit) + ", credit " + NumberText(credit));
}

}  // namespace platform::sapdi
