#include "localcompany/company_session.h"

#include <algorithm>
#include <utility>

#include "platform/error.h"
#include "platform/sapdi/error_codes.h"

namespace localcompany {

using platform::RuntimeError;
using platform::Value;
using platform::database::Database;
using platform::database::Row;
using platform::database::Transaction;
using platform::sapdi::TransactionEnd;
namespace error_number = platform::error_number;
namespace error_code = platform::sapdi::error_code;

void CompanySession::Open(std::unique_ptr<Database> database) {
    Close();
    database_ = std::move(database);
}

void CompanySession::Close() noexcept {
    transaction_.reset();
    statements_.clear();
    database_.reset();
}

Database& CompanySession::Connected() const {
    if (database_) return *database_;
    throw RuntimeError(error_number::kObjectClosed, "You are not connected to a company");
}

std::vector<Row> CompanySession::Run(std::string_view sql, std::span<const Value> values) {
    auto found = statements_.find(sql);
    if (found == statements_.end()) {
        found = statements_.emplace(sql, Connected().Prepare(sql)).first;
    }
    return found->second->Run(values);
}

void CompanySession::StartTransaction() {
    Recorded([this] {
        Database& database = Connected();
        if (transaction_) {
            throw RuntimeError(error_code::kTransactionState,
                               "A transaction is already open in the company");
        }
        transaction_ = database.BeginTransaction();
        indexes_.clear();
    });
}

void CompanySession::EndTransaction(TransactionEnd end) {
    Recorded([this, end] {
        Database& database = Connected();
        if (!transaction_) {
            throw RuntimeError(error_code::kTransactionState,
                               "No transaction is open in the company");
        }
        // One that could not be committed stays open: it may be tried again or rolled back.
        if (end == TransactionEnd::Commit) {
            for (; !indexes_.empty(); indexes_.pop_back()) {
                database.Execute("DROP INDEX " + indexes_.back());
            }
            transaction_->Commit();
        }
        const std::unique_ptr<Transaction> ended = std::move(transaction_);
        if (end == TransactionEnd::RollBack) ended->RollBack();
    });
}

void CompanySession::IndexUntilEnd(std::string_view table, std::string_view column) {
    if (!transaction_) return;
    const std::string name = "ForNow_" + std::string(table) + "_" + std::string(column);
    if (std::ranges::find(indexes_, name) != indexes_.end()) return;
    Connected().Execute("CREATE INDEX " + name + " ON " + std::string(table) + " (" +
                        std::string(column) + ")");
    indexes_.push_back(name);
}

std::int32_t CompanySession::Change(const std::function<void()>& work) {
    Database& database = Connected();
    try {
        const std::unique_ptr<Transaction> own =
            transaction_ ? nullptr : database.BeginTransaction();
        work();
        if (own) own->Commit();
    } catch (const RuntimeError& error) {
        const std::int32_t code = SetLastError(error.Number(), error.Description());
        if (const auto ended = std::move(transaction_)) ended->RollBack();
        return code;
    }
    ClearLastError();
    return 0;
}

std::int32_t CompanySession::Add(const std::function<std::string()>& work) {
    std::string key;
    const std::int32_t code = Change([&] { key = work(); });
    if (code == 0) newObjectKey_ = std::move(key);
    return code;
}

std::int32_t CompanySession::SetLastError(int code, std::string text) {
    lastError_ = {code, std::move(text)};
    return code;
}

void CompanySession::Recorded(const std::function<void()>& call) {
    try {
        call();
    } catch (const RuntimeError& error) {
        (void)SetLastError(error.Number(), error.Description());
        throw;
    }
    ClearLastError();
}

}  // namespace localcompany
