// A table-type recordset: one row number is all it holds, every read goes to the file.
// Internal to this folder.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/database/filter.h"
#include "platform/database/recordset.h"
#include "platform/database/sqlite_connection.h"
#include "platform/database/sqlite_row_update.h"

namespace platform {

class SqliteTable : public TableRecordset {
  public:
    SqliteTable(std::shared_ptr<SqliteConnection> connection, std::string_view table);

    [[nodiscard]] bool IsEof() const override;
    [[nodiscard]] long AbsolutePosition() const override;
    [[nodiscard]] long RecordCount() const override;
    void MoveFirst() override;
    void MoveNext() override;
    [[nodiscard]] int FieldCount() const override;
    [[nodiscard]] Value Get(std::string_view field) const override;
    [[nodiscard]] Value Get(int position) const override;
    void Edit() override;
    void Set(std::string_view field, Value value) override;
    void Update() override;
    void SetFilter(std::string_view filter) override;
    void Close() override;
    void SetIndex(std::string_view name) override;
    void Seek(const Value& key) override;
    [[nodiscard]] bool NoMatch() const override;

  private:
    struct PlacedTerm {
        FilterTerm term;
        std::size_t field;
    };

    void RequireOpen() const;
    [[nodiscard]] const RowKey& Current() const;
    [[nodiscard]] Value Field(std::size_t field) const;
    void MoveBehind(const std::optional<RowKey>& position);
    [[nodiscard]] long CountUpTo(const std::optional<RowKey>& last) const;
    [[nodiscard]] RowKey RowKeyOf(const Statement& row) const;
    [[nodiscard]] bool Takes(const Statement& row) const;
    // The query of the fields, and behind them the row key, of the rows that `condition` takes.
    [[nodiscard]] std::string RowsWhere(std::string_view condition) const;
    // The row key beside its parameters: ("a") > (?).
    [[nodiscard]] std::string RowKeyIs(std::string_view comparison) const;

    std::shared_ptr<SqliteConnection> connection_;  // null once closed
    std::shared_ptr<const TableInfo> table_;
    std::vector<std::string> fields_;
    std::vector<FieldType> types_;
    std::string rowKey_;            // the columns that find a row: "a", "b"
    std::string rowKeyParameters_;  // as many parameters: ?, ?
    std::unique_ptr<Statement> readRow_;

    std::optional<RowKey> current_;
    std::vector<PlacedTerm> filter_;
    bool indexed_ = false;
    bool noMatch_ = false;
    std::optional<FieldChanges> changes_;  // while editing
};

}  // namespace platform
