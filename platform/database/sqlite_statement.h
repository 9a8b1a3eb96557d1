// A prepared statement: binding of values, stepping, values of its columns.
// Internal to this folder. A statement must not outlive its connection.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/database/sqlite_types.h"
#include "platform/value.h"

struct sqlite3_stmt;

namespace platform {

class SqliteConnection;

class Statement {
  public:
    Statement(const SqliteConnection& connection, std::string_view sql);

    // Parameters and columns count from 1 and from 0, as the library has it.
    void Bind(int parameter, const Value& value);

    // The first parameters, in this order.
    void BindAll(const std::vector<Value>& values);

    // Binds the text itself, which must stay as it is until the statement is reset.
    void BindInPlace(int parameter, std::string_view text);

    // Moves to the next row; false when there is none.
    bool Step();

    // Ready for the next use, with no lock held and every parameter null.
    void Reset() noexcept;

    [[nodiscard]] int ColumnCount() const;
    [[nodiscard]] std::string ColumnName(int column) const;
    [[nodiscard]] FieldType ColumnType(int column) const;  // by its declaration
    [[nodiscard]] Value Column(int column, FieldType type) const;

  private:
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const noexcept;
    };

    const SqliteConnection* connection_;
    std::unique_ptr<sqlite3_stmt, Finalize> statement_;
};

// Resets a statement at the end of a scope, so that no row keeps a lock on the file.
class StatementUse {
  public:
    explicit StatementUse(Statement& statement) : statement_(statement) {}
    ~StatementUse() { statement_.Reset(); }
    StatementUse(const StatementUse&) = delete;
    StatementUse& operator=(const StatementUse&) = delete;

    Statement* operator->() { return &statement_; }
    Statement& operator*() { return statement_; }

  private:
    Statement& statement_;
};

}  // namespace platform
