// A prepared statement: binding of values, stepping, values of its columns.
// Internal to this folder. A statement must not outlive its handle.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "platform/database/sqlite_handle.h"
#include "platform/database/sqlite_types.h"
#include "platform/value.h"

struct sqlite3_stmt;

namespace platform::database {

class Statement {
  public:
    Statement(const SqliteHandle& handle, std::string_view sql);

    // Parameters and columns count from 1 and from 0, as the library has it.
    void Bind(int parameter, const Value& value);

    // The first parameters, in this order.
    void BindAll(std::span<const Value> values);

    // Binds the text itself, which must stay as it is until the statement is reset.
    void BindInPlace(int parameter, std::string_view text);

    bool Step();  // false behind the last row

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

    const SqliteHandle* handle_;
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

}  // namespace platform::database
