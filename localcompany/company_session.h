// What a local company shares with its objects: the open database, its statements, the transaction
// and the outcome of the last call. Knows no object kinds and no rules.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/database/database.h"
#include "platform/sapdi/company.h"

namespace localcompany {

namespace database = platform::database;
namespace sapdi = platform::sapdi;

class CompanySession {
  public:
    CompanySession() = default;
    ~CompanySession() { Close(); }
    CompanySession(const CompanySession&) = delete;
    CompanySession& operator=(const CompanySession&) = delete;

    void Open(std::unique_ptr<database::Database> database);
    void Close() noexcept;  // an open transaction is rolled back

    // The company's database; without a connection error 3704.
    [[nodiscard]] database::Database& Connected() const;

    // Runs a statement with values and keeps it for the next time.
    std::vector<database::Row> Run(std::string_view sql, std::span<const platform::Value> values);
    std::vector<database::Row> Run(std::string_view sql,
                                   std::initializer_list<platform::Value> values) {
        return Run(sql, std::span(values.begin(), values.size()));
    }

    void StartTransaction();
    void EndTransaction(sapdi::TransactionEnd end);
    [[nodiscard]] bool InTransaction() const { return transaction_ != nullptr; }

    // Makes look-ups by a column fast until the open transaction ends; nothing of it stays in the
    // company. Without a transaction it does nothing.
    void IndexUntilEnd(std::string_view table, std::string_view column);

    // Runs `work`, all of it or nothing, and gives 0. An error that it throws rolls back the
    // transaction that is open, becomes the last error, and its number is given. Only a missing
    // connection is raised.
    [[nodiscard]] std::int32_t Change(const std::function<void()>& work);

    // The same for work that adds an object and gives its key.
    [[nodiscard]] std::int32_t Add(const std::function<std::string()>& work);

    [[nodiscard]] std::int32_t SetLastError(int code, std::string text);
    void ClearLastError() { lastError_ = {}; }
    [[nodiscard]] const sapdi::LastError& GetLastError() const { return lastError_; }
    [[nodiscard]] const std::string& NewObjectKey() const { return newObjectKey_; }

  private:
    struct TextHash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const {
            return std::hash<std::string_view>()(text);
        }
    };

    // Raises what `call` throws, after it has become the last error.
    void Recorded(const std::function<void()>& call);

    std::unique_ptr<database::Database> database_;
    std::unordered_map<std::string, std::unique_ptr<database::PreparedStatement>, TextHash,
                       std::equal_to<>>
        statements_;
    std::unique_ptr<database::Transaction> transaction_;
    std::vector<std::string> indexes_;  // made in this transaction
    sapdi::LastError lastError_;
    std::string newObjectKey_;
};

}  // namespace localcompany
