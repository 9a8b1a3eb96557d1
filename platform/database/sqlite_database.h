// A connection to a database file, as the system's routines use it. Internal to this folder.
#pragma once

#include <memory>

#include "platform/database/database.h"
#include "platform/database/sqlite_connection.h"

namespace platform::database {

class SqliteDatabase : public Database {
  public:
    explicit SqliteDatabase(std::shared_ptr<SqliteConnection> connection);

    using Database::OpenQuery;
    [[nodiscard]] std::unique_ptr<ClientRecordset> OpenQuery(
        std::string_view sql, std::span<const Value> values) override;
    [[nodiscard]] std::unique_ptr<TableRecordset> OpenTable(std::string_view table) override;
    [[nodiscard]] std::unique_ptr<TableAppender> OpenAppender(std::string_view table) override;
    void Execute(std::string_view sql) override;
    [[nodiscard]] std::unique_ptr<PreparedStatement> Prepare(std::string_view sql) override;
    [[nodiscard]] std::unique_ptr<Transaction> BeginTransaction() override;
    [[nodiscard]] std::unique_ptr<ScopedIndex> IndexWhileInScope(std::string_view table,
                                                                 std::string_view columns) override;

  private:
    std::shared_ptr<SqliteConnection> connection_;  // shared with what was opened on it
};

}  // namespace platform::database
