// A table-type recordset: the place of its current row, and that row once it was read.
// Internal to this folder.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/database/recordset.h"
#include "platform/database/sqlite_connection.h"
#include "platform/database/sqlite_row_update.h"

namespace platform::database {

class SqliteTable : public TableRecordset {
  public:
    SqliteTable(std::shared_ptr<SqliteConnection> connection, std::string_view table);

    [[nodiscard]] Value Get(std::string_view field) const override;
    void Refresh() override;
    void Edit() override;
    void Set(std::string_view field, Value value) override;
    void Update() override;
    void SetIndex(std::string_view name) override;
    void Seek(const Value& key) override;
    [[nodiscard]] bool NoMatch() const override { return noMatch_; }

  private:
    // The query of the row keys of the rows behind `clauses`.
    [[nodiscard]] std::string RowKeysWhere(std::string_view clauses) const;
    void MoveToFirstOf(Statement& rowKeys);
    [[nodiscard]] const RowKey& Current() const;  // error 3021 where there is no current row
    [[nodiscard]] const Row& CurrentRow() const;

    std::shared_ptr<SqliteConnection> connection_;
    std::shared_ptr<const TableInfo> table_;
    std::vector<std::string> fields_;
    std::vector<FieldType> types_;
    std::unique_ptr<Statement> readRow_;

    std::optional<RowKey> current_;
    mutable std::optional<Row> row_;  // the current row, once it was read
    bool indexed_ = false;
    bool noMatch_ = false;
    std::optional<FieldChanges> changes_;  // while editing
};

}  // namespace platform::database
