#include "platform/database/sqlite_database.h"

#include <utility>

#include "platform/database/sql_text.h"
#include "platform/database/sqlite_appender.h"
#include "platform/database/sqlite_prepared.h"
#include "platform/database/sqlite_query.h"
#include "platform/database/sqlite_table.h"
#include "platform/error.h"

namespace platform::database {
namespace {

class SqliteTransaction : public Transaction {
  public:
    explicit SqliteTransaction(std::shared_ptr<SqliteConnection> connection)
        : connection_(std::move(connection)) {
        connection_->Run("BEGIN IMMEDIATE");
    }

    ~SqliteTransaction() override {
        if (!connection_) return;
        try {
            RollBack();
        } catch (...) {
            // Closing the connection rolls back as well; the error that led here is the one to
            // report.
        }
    }

    SqliteTransaction(const SqliteTransaction&) = delete;
    SqliteTransaction& operator=(const SqliteTransaction&) = delete;

    void Commit() override {
        RequireOpen();
        connection_->Run("COMMIT");  // may be tried again after a lock
        connection_.reset();
    }

    void RollBack() override {
        RequireOpen();
        const std::shared_ptr<SqliteConnection> connection = std::move(connection_);
        // After a failure such as a full disk the engine has rolled back already.
        if (connection->Handle().InTransaction()) connection->Run("ROLLBACK");
    }

  private:
    void RequireOpen() const {
        if (connection_) return;
        throw RuntimeError(error_number::kObjectClosed, "The transaction has ended.");
    }

    std::shared_ptr<SqliteConnection> connection_;  // null once ended
};

// Made inside a transaction that never reaches the file.
class IndexInTransaction : public ScopedIndex {
  public:
    IndexInTransaction(const std::shared_ptr<SqliteConnection>& connection, std::string_view table,
                       std::string_view columns)
        : transaction_(connection) {
        connection->Run("CREATE INDEX kv_scoped_index ON " +
                        QuotedName(connection->RequireTable(table)->name) + " (" +
                        std::string(columns) + ")");
    }

  private:
    SqliteTransaction transaction_;  // rolled back at the end
};

}  // namespace

SqliteDatabase::SqliteDatabase(std::shared_ptr<SqliteConnection> connection)
    : connection_(std::move(connection)) {}

std::unique_ptr<ClientRecordset> SqliteDatabase::OpenQuery(std::string_view sql,
                                                           std::span<const Value> values) {
    return RunQuery(connection_, sql, values);
}

std::unique_ptr<TableRecordset> SqliteDatabase::OpenTable(std::string_view table) {
    return std::make_unique<SqliteTable>(connection_, table);
}

std::unique_ptr<TableAppender> SqliteDatabase::OpenAppender(std::string_view table) {
    return std::make_unique<SqliteAppender>(connection_, table);
}

void SqliteDatabase::Execute(std::string_view sql) {
    connection_->Run(ToEngineDialect(sql));
}

std::unique_ptr<PreparedStatement> SqliteDatabase::Prepare(std::string_view sql) {
    return std::make_unique<SqlitePrepared>(connection_, ToEngineDialect(sql));
}

std::unique_ptr<Transaction> SqliteDatabase::BeginTransaction() {
    return std::make_unique<SqliteTransaction>(connection_);
}

std::unique_ptr<ScopedIndex> SqliteDatabase::IndexWhileInScope(std::string_view table,
                                                               std::string_view columns) {
    return std::make_unique<IndexInTransaction>(connection_, table, columns);
}

}  // namespace platform::database
