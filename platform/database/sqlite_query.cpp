#include "platform/database/sqlite_query.h"

#include <optional>
#include <utility>

#include "platform/database/sql_text.h"
#include "platform/database/sqlite_row_update.h"
#include "platform/error.h"

namespace platform::database {
namespace {

// The rows of one table, with what finds each of them again.
class TableRowSaver : public RowSaver {
  public:
    TableRowSaver(std::shared_ptr<SqliteConnection> connection,
                  std::shared_ptr<const TableInfo> table, std::vector<TableColumn> fields,
                  std::vector<RowKey> rowKeys)
        : connection_(std::move(connection)),
          table_(std::move(table)),
          fields_(std::move(fields)),
          rowKeys_(std::move(rowKeys)) {}

    [[nodiscard]] Value Fit(int field, Value value) const override {
        const TableColumn& column = fields_[static_cast<std::size_t>(field)];
        return FittedOrError(value, column.type,
                             "Table " + table_->name + ", column " + column.name);
    }

    void Save(std::size_t position, const Row& row, const std::vector<int>& fields) override {
        FieldChanges changes;
        for (const int field : fields) {
            const auto place = static_cast<std::size_t>(field);
            changes.emplace_back(fields_[place].name, row[place]);
        }
        UpdateRow(*connection_, *table_, rowKeys_[position], changes);
    }

    [[nodiscard]] std::optional<Row> Stored(std::size_t position) const override {
        return ReadRow(*connection_, *table_, rowKeys_[position], fields_);
    }

  private:
    std::shared_ptr<SqliteConnection> connection_;
    std::shared_ptr<const TableInfo> table_;
    std::vector<TableColumn> fields_;
    std::vector<RowKey> rowKeys_;
};

class ReadOnlySaver : public RowSaver {
  public:
    void Save(std::size_t, const Row&, const std::vector<int>&) override { Refuse(); }
    [[nodiscard]] std::optional<Row> Stored(std::size_t) const override { Refuse(); }

  private:
    [[noreturn]] static void Refuse() {
        throw RuntimeError(error_number::kReadOnly,
                           "The records of this query can not be changed: it is no plain selection "
                           "from one table.");
    }
};

std::vector<TableColumn> FieldsOf(const Statement& query, int count) {
    std::vector<TableColumn> fields;
    fields.reserve(static_cast<std::size_t>(count));
    for (int column = 0; column < count; ++column) {
        fields.push_back({query.ColumnName(column), query.ColumnType(column)});
    }
    return fields;
}

Row RowOf(const Statement& query, const std::vector<TableColumn>& fields) {
    Row row;
    row.reserve(fields.size());
    for (const TableColumn& field : fields) {
        row.push_back(query.Column(static_cast<int>(row.size()), field.type));
    }
    return row;
}

RowKey RowKeyOf(const Statement& query, std::size_t fieldCount) {
    RowKey key;
    for (int column = static_cast<int>(fieldCount); column < query.ColumnCount(); ++column) {
        key.push_back(query.Column(column, FieldType::AsStored));
    }
    return key;
}

// The table whose rows the query gives as they are; null where it gives something else.
std::shared_ptr<const TableInfo> ChangeableTable(SqliteConnection& connection,
                                                 std::string_view sql) {
    const std::string name = WholeTableOf(sql);
    if (name.empty()) return nullptr;
    std::shared_ptr<const TableInfo> table = connection.FindTable(name);
    return table && !table->rowKey.empty() ? table : nullptr;
}

}  // namespace

std::unique_ptr<ClientRecordset> RunQuery(const std::shared_ptr<SqliteConnection>& connection,
                                          std::string_view sql, std::span<const Value> values) {
    std::string text = ToEngineDialect(sql);
    const std::shared_ptr<const TableInfo> table = ChangeableTable(*connection, text);
    if (table) text = WithRowKey(text, table->rowKey);

    StatementUse query(connection->Kept(text));
    query->BindAll(values);
    const int hidden = table ? static_cast<int>(table->rowKey.size()) : 0;
    // A statement that was kept learns of a changed table with its first step.
    bool hasRow = query->Step();
    std::vector<TableColumn> fields = FieldsOf(*query, query->ColumnCount() - hidden);
    auto rowSet = std::make_shared<RowSet>();
    rowSet->source = table ? table->name : std::string(sql);
    for (const TableColumn& field : fields)
        rowSet->fields.push_back(field.name);
    std::vector<RowKey> rowKeys;
    for (; hasRow; hasRow = query->Step()) {
        rowSet->rows.push_back(RowOf(*query, fields));
        if (table) rowKeys.push_back(RowKeyOf(*query, fields.size()));
    }
    if (!table) {
        return std::make_unique<ClientRecordset>(std::move(rowSet),
                                                 std::make_unique<ReadOnlySaver>());
    }
    return std::make_unique<ClientRecordset>(
        std::move(rowSet),
        std::make_unique<TableRowSaver>(connection, table, std::move(fields), std::move(rowKeys)));
}

}  // namespace platform::database
