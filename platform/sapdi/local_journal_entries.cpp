#include "platform/sapdi/local_journal_entries.h"

#include <array>
#include <cmath>
#include <utility>

#include "platform/error.h"
#include "platform/files.h"
#include "platform/norwegian.h"
#include "platform/sapdi/codes.h"
#include "platform/sapdi/error_codes.h"
#include "platform/sapdi/head_and_lines.h"
#include "platform/sapdi/xml_rendering.h"

namespace platform::sapdi {
namespace {

enum HeadColumn : std::size_t { kReferenceDate, kDueDate, kTaxDate, kMemo, kNumber };

constexpr std::array<std::string_view, kNumber + 1> kHeadColumns = {"RefDate", "DueDate", "TaxDate",
                                                                    "Memo", "Number"};

enum LineColumn : std::size_t { kAccount, kShortName, kDebit, kCredit };

constexpr std::array<std::string_view, kCredit + 1> kLineColumns = {"Account", "ShortName", "Debit",
                                                                    "Credit"};

constexpr HeadAndLinesTables kTables{ObjectType::JournalEntries,
                                     "OJDT",
                                     "JDT1",
                                     "TransId",
                                     "Number",
                                     "Line_ID",
                                     kHeadColumns,
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
    return IsBlank(TextOf(line[kAccount])) && IsBlank(TextOf(line[kShortName])) &&
           AmountOf(line[kDebit]) == 0 && AmountOf(line[kCredit]) == 0;
}

class LocalJournalLines : public JournalEntryLines {
  public:
    explicit LocalJournalLines(HeadAndLines& content) : content_(content) {}

    void Add() override { content_.AddLine(); }
    void SetAccountCode(std::string_view code) override {
        content_.CurrentLine()[kAccount].AssignText(code);
    }
    [[nodiscard]] std::string AccountCode() const override {
        return std::string(TextOf(content_.CurrentLine()[kAccount]));
    }
    void SetShortName(std::string_view partnerCode) override {
        content_.CurrentLine()[kShortName].AssignText(partnerCode);
    }
    void SetDebit(double amount) override { content_.CurrentLine()[kDebit] = amount; }
    void SetCredit(double amount) override { content_.CurrentLine()[kCredit] = amount; }

  private:
    HeadAndLines& content_;
};

class LocalJournalEntries : public JournalEntries {
  public:
    explicit LocalJournalEntries(std::shared_ptr<CompanySession> session)
        : session_(std::move(session)) {}

    void SetReferenceDate(const DateTime& date) override { SetDate(kReferenceDate, date); }
    void SetTaxDate(const DateTime& date) override { SetDate(kTaxDate, date); }
    void SetDueDate(const DateTime& date) override { SetDate(kDueDate, date); }
    void SetMemo(std::string_view memo) override { content_.Head(kMemo).AssignText(memo); }
    [[nodiscard]] std::int32_t Number() const override { return content_.Number(); }
    [[nodiscard]] JournalEntryLines& Lines() override { return lines_; }

    [[nodiscard]] std::int32_t Add() override;
    void SaveXML(std::string_view fileName) override { WriteWholeFile(fileName, content_.ToXml()); }

  private:
    void SetDate(HeadColumn column, const DateTime& date) {
        content_.Head(column).AssignText(IsoDate(date));
    }
    [[nodiscard]] std::size_t LineCount() const;
    void RequireKnownAccounts(std::size_t lineCount) const;
    void RequireBalance(std::size_t lineCount) const;

    std::shared_ptr<CompanySession> session_;
    HeadAndLines content_{kTables};
    LocalJournalLines lines_{content_};
};

std::int32_t LocalJournalEntries::Add() {
    std::int32_t key = 0;
    const std::int32_t code = session_->Add([&] {
        const std::size_t lineCount = LineCount();
        RequireKnownAccounts(lineCount);
        RequireBalance(lineCount);
        key = content_.Insert(*session_, lineCount);
        return std::to_string(key);
    });
    if (code == 0) content_.SetNumber(key);
    return code;
}

// Without the line that was begun and never filled.
std::size_t LocalJournalEntries::LineCount() const {
    std::size_t count = content_.Lines().size();
    while (count > 0 && IsEmptyLine(content_.Lines()[count - 1]))
        --count;
    return count;
}

void LocalJournalEntries::RequireKnownAccounts(std::size_t lineCount) const {
    for (std::size_t i = 0; i < lineCount; ++i) {
        RequireAccountOrNone(*session_, TextOf(content_.Lines()[i][kAccount]),
                             "Line " + std::to_string(i + 1) + ": ");
    }
}

void LocalJournalEntries::RequireBalance(std::size_t lineCount) const {
    double debit = 0;
    double credit = 0;
    std::int64_t difference = 0;
    for (std::size_t i = 0; i < lineCount; ++i) {
        const Row& line = content_.Lines()[i];
        debit += AmountOf(line[kDebit]);
        credit += AmountOf(line[kCredit]);
        difference += UnitsOf(AmountOf(line[kDebit])) - UnitsOf(AmountOf(line[kCredit]));
    }
    if (difference == 0) return;
    throw RuntimeError(
        error_code::kInvalidValue,
        "Unbalanced transaction: debit " + NumberText(debit) + ", credit " + NumberText(credit));
}

}  // namespace

std::unique_ptr<JournalEntries> NewLocalJournalEntries(std::shared_ptr<CompanySession> session) {
    return std::make_unique<LocalJournalEntries>(std::move(session));
}

}  // namespace platform::sapdi
