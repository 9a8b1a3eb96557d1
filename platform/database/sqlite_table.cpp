#include "platform/database/sqlite_table.h"

#include <algorithm>

#include "platform/database/field_names.h"
#include "platform/database/recordset_errors.h"
#include "platform/database/sql_text.h"
#include "platform/norwegian.h"
#include "platform/text.h"

namespace platform::database {
namespace {

constexpr std::string_view kPrimaryKey = "PrimaryKey";

// The key as a column of that type would hold it; null where no row can have it.
Value SoughtKey(const Value& key, FieldType type) {
    // A key with a fraction must not find the whole number that it would be stored as.
    const bool mayRound = type == FieldType::Whole && key.AsWhole() == nullptr;
    const std::optional<Value> fitted = Fitted(key, mayRound ? FieldType::Floating : type);
    return fitted ? Value(*fitted) : Value();
}

std::string Joined(const std::vector<std::string>& names) {
    std::string list;
    for (const std::string& name : names)
        list.append(list.empty() ? "" : ", ").append(QuotedName(name));
    return list;
}

std::string Parameters(std::size_t count) {
    std::string list;
    for (std::size_t i = 0; i < count; ++i)
        list += i == 0 ? "?" : ", ?";
    return list;
}

}  // namespace

SqliteTable::SqliteTable(std::shared_ptr<SqliteConnection> connection, std::string_view table)
    : connection_(std::move(connection)), table_(connection_->RequireTable(table)) {
    const std::vector<std::string>& rowKey = table_->rowKey;
    if (rowKey.empty()) {
        throw RuntimeError(error_number::kReadOnly, "The records of the table '" + table_->name +
                                                        "' can not be told apart.");
    }
    readRow_ = std::make_unique<Statement>(
        connection_->Handle(), "SELECT * FROM " + QuotedName(table_->name) + " WHERE (" +
                                   Joined(rowKey) + ") = (" + Parameters(rowKey.size()) + ")");
    for (int field = 0; field < readRow_->ColumnCount(); ++field) {
        fields_.push_back(readRow_->ColumnName(field));
        types_.push_back(readRow_->ColumnType(field));
    }
    StatementUse first(connection_->Kept(RowKeysWhere(" ORDER BY " + Joined(rowKey) + " LIMIT 1")));
    MoveToFirstOf(*first);
}

std::string SqliteTable::RowKeysWhere(std::string_view clauses) const {
    return "SELECT " + Joined(table_->rowKey) + " FROM " + QuotedName(table_->name) +
           std::string(clauses);
}

void SqliteTable::MoveToFirstOf(Statement& rowKeys) {
    changes_.reset();
    row_.reset();
    current_.reset();
    if (!rowKeys.Step()) return;
    current_.emplace();
    for (int column = 0; column < rowKeys.ColumnCount(); ++column)
        current_->push_back(rowKeys.Column(column, FieldType::AsStored));
}

const RowKey& SqliteTable::Current() const {
    if (!current_) ThrowNoCurrentRecord(table_->name);
    return *current_;
}

const Row& SqliteTable::CurrentRow() const {
    if (row_) return *row_;
    StatementUse row(*readRow_);
    row->BindAll(Current());
    if (!row->Step()) ThrowNoCurrentRecord(table_->name);
    Row values;
    for (const FieldType type : types_)
        values.push_back(row->Column(static_cast<int>(values.size()), type));
    row_ = std::move(values);
    return *row_;
}

Value SqliteTable::Get(std::string_view field) const {
    const std::size_t place = PlaceOfField(fields_, field, table_->name);
    if (changes_) {
        const auto changed = std::ranges::find(*changes_, fields_[place], &FieldChange::first);
        if (changed != changes_->end()) return changed->second;
    }
    return CurrentRow()[place];
}

void SqliteTable::Refresh() {
    row_.reset();
}

void SqliteTable::Edit() {
    (void)Current();
    row_.reset();
    changes_.emplace();
}

void SqliteTable::Set(std::string_view field, Value value) {
    const std::size_t place = PlaceOfField(fields_, field, table_->name);
    if (!changes_) ThrowNotEditing();
    const std::string& name = fields_[place];
    Value fitted =
        FittedOrError(value, types_[place], "Table " + table_->name + ", column " + name);
    std::erase_if(*changes_, [&](const FieldChange& change) { return change.first == name; });
    changes_->emplace_back(name, std::move(fitted));
}

void SqliteTable::Update() {
    (void)Current();
    if (!changes_) ThrowNotEditing();
    UpdateRow(*connection_, *table_, *current_, *changes_);
    changes_.reset();
    row_.reset();
}

void SqliteTable::SetIndex(std::string_view name) {
    indexed_ = !table_->primaryKey.empty() && EqualsIgnoreCase(name, kPrimaryKey);
    if (indexed_) return;
    throw RuntimeError(
        error_number::kNoSuchIndex,
        "'" + std::string(name) + "' is not an index in the table '" + table_->name + "'.");
}

void SqliteTable::Seek(const Value& key) {
    if (!indexed_) {
        throw RuntimeError(error_number::kNoSuchIndex,
                           "The table '" + table_->name + "' has no current index to seek in.");
    }
    const std::string& column = table_->primaryKey.front();
    const Value sought = SoughtKey(key, types_[PlaceOfField(fields_, column, table_->name)]);
    const auto* text = sought.AsText();
    StatementUse row(connection_->Kept(
        RowKeysWhere(" WHERE " + QuotedName(column) + " = ?" +
                     (text != nullptr ? CollationFor(*text) : std::string()) + " LIMIT 1")));
    row->Bind(1, sought);
    MoveToFirstOf(*row);
    noMatch_ = !current_;
}

}  // namespace platform::database
