// A journal entry but for its way to the company, which is the connector's: the content behind the
// interface, its rendering, and what is asked of it before it is sent.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "platform/sapdi/business_objects.h"
#include "platform/sapdi/head_and_lines.h"

namespace platform::sapdi {

class JournalEntryContent : public JournalEntries {
  public:
    enum HeadColumn : std::size_t { kReferenceDate, kDueDate, kTaxDate, kMemo, kNumber };
    enum LineColumn : std::size_t { kAccount, kShortName, kDebit, kCredit };

    JournalEntryContent();
    JournalEntryContent(const JournalEntryContent&) = delete;
    JournalEntryContent& operator=(const JournalEntryContent&) = delete;

    void SetReferenceDate(const DateTime& date) override { SetDate(kReferenceDate, date); }
    void SetTaxDate(const DateTime& date) override { SetDate(kTaxDate, date); }
    void SetDueDate(const DateTime& date) override { SetDate(kDueDate, date); }
    void SetMemo(std::string_view memo) override { content_.Head()[kMemo].AssignText(memo); }
    [[nodiscard]] std::int32_t Number() const override { return content_.Number(); }
    [[nodiscard]] JournalEntryLines& Lines() override { return lines_; }
    void SaveXML(std::string_view fileName) override;

  protected:
    [[nodiscard]] HeadAndLines& Content() { return content_; }
    [[nodiscard]] const HeadAndLines& Content() const { return content_; }

    // The lines that are sent: not those at the end that were begun and never filled.
    [[nodiscard]] std::span<const Row> FilledLines() const;

    // Error -5002 unless debit and credit are equal to four decimals, each line's amount rounded.
    void RequireBalance() const;

  private:
    class LineContent : public JournalEntryLines {
      public:
        explicit LineContent(HeadAndLines& content) : content_(content) {}
        void Add() override { content_.AddLine(); }
        void SetAccountCode(std::string_view code) override { Field(kAccount).AssignText(code); }
        [[nodiscard]] std::string AccountCode() const override;
        void SetShortName(std::string_view code) override { Field(kShortName).AssignText(code); }
        void SetDebit(double amount) override { Field(kDebit) = amount; }
        void SetCredit(double amount) override { Field(kCredit) = amount; }

      private:
        Value& Field(LineColumn column) { return content_.CurrentLine()[column]; }

        HeadAndLines& content_;
    };

    void SetDate(HeadColumn column, const DateTime& date);

    HeadAndLines content_;
    LineContent lines_{content_};
};

}  // namespace platform::sapdi
