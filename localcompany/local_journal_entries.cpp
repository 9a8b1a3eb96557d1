#include "localcompany/local_journal_entries.h"

#include <span>
#include <utility>

#include "localcompany/codes.h"
#include "localcompany/head_and_lines_tables.h"
#include "platform/sapdi/journal_entry_content.h"

namespace localcompany {

using platform::sapdi::JournalEntries;
using platform::sapdi::JournalEntryContent;
using platform::sapdi::Row;
using platform::sapdi::TextOf;

namespace {

constexpr KeyColumns kKeys{"TransId", "Line_ID"};

class LocalJournalEntries : public JournalEntryContent {
  public:
    explicit LocalJournalEntries(std::shared_ptr<CompanySession> session)
        : session_(std::move(session)) {}

    [[nodiscard]] std::int32_t Add() override;

  private:
    void RequireKnownAccounts() const;

    std::shared_ptr<CompanySession> session_;
};

std::int32_t LocalJournalEntries::Add() {
    std::int32_t key = 0;
    const std::int32_t code = session_->Add([&] {
        RequireKnownAccounts();
        RequireBalance();
        key = InsertHeadAndLines(*session_, kKeys, Content(), FilledLines());
        return std::to_string(key);
    });
    if (code == 0) Content().SetNumber(key);
    return code;
}

void LocalJournalEntries::RequireKnownAccounts() const {
    const std::span<const Row> lines = FilledLines();
    for (std::size_t i = 0; i < lines.size(); ++i)
        RequireAccountOrNone(*session_, TextOf(lines[i][kAccount]), i);
}

}  // namespace

std::unique_ptr<JournalEntries> NewLocalJournalEntries(std::shared_ptr<CompanySession> session) {
    return std::make_unique<LocalJournalEntries>(std::move(session));
}

}  // namespace localcompany
