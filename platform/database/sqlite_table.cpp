#include "platform/database/sqlite_table.h"

#include <algorithm>

#include "platform/database/field_names.h"
#include "platform/database/recordset_errors.h"
#include "platform/database/sql_text.h"
#include "platform/norwegian.h"
#include "platform/text.h"

namespace platform {
namespace {

constexpr std::string_view kPrimaryKey = "PrimaryKey";
const char* const kEveryRow = "true";

// The key as a column of that type would hold it; null where no row can have it.
Value SoughtKey(const Value& key, FieldType type) {
    // A key with a fraction must not find the whole number that it would be stored as.
    const bool mayRound = type == FieldType::Whole && key.AsWhole() == nullptr;
    const std::optional<Value> fitted = Fitted(key, mayRound ? FieldType::Floating : type);
    return fitted ? Value(*fitted) : Value();
}

}  // namespace

SqliteTable::SqliteTable(std::shared_ptr<SqliteConnection> connection, std::string_view table)
    : connection_(std::move(connection)), table_(connection_->RequireTable(table)) {
    if (table_->rowKey.empty()) {
        throw RuntimeError(error_number::kReadOnly, "The records of the table '" + table_->name +
                                                        "' can not be told apart.");
    }
    for (const std::string& column : table_->rowKey) {
        rowKey_.append(rowKey_.empty() ? "" : ", ").append(QuotedName(column));
        rowKeyParameters_.append(rowKeyParameters_.empty() ? "?" : ", ?");
    }
    readRow_ = std::make_unique<Statement>(*connection_, RowsWhere(RowKeyIs("=")));
    const int fieldCount = readRow_->ColumnCount() - static_cast<int>(table_->rowKey.size());
    for (int field = 0; field < fieldCount; ++field) {
        fields_.push_back(readRow_->ColumnName(field));
        types_.push_back(readRow_->ColumnType(field));
    }
    MoveBehind(std::nullopt);
}

std::string SqliteTable::RowsWhere(std::string_view condition) const {
    return "SELECT *, " + rowKey_ + " FROM " + QuotedName(table_->name) + " WHERE " +
           std::string(condition);
}

std::string SqliteTable::RowKeyIs(std::string_view comparison) const {
    return "(" + rowKey_ + ") " + std::string(comparison) + " (" + rowKeyParameters_ + ")";
}

void SqliteTable::RequireOpen() const {
    if (!connection_) ThrowClosed(table_->name);
}

const RowKey& SqliteTable::Current() const {
    RequireOpen();
    if (!current_) ThrowNoCurrentRecord(table_->name);
    return *current_;
}

RowKey SqliteTable::RowKeyOf(const Statement& row) const {
    RowKey key;
    for (int column = static_cast<int>(fields_.size()); column < row.ColumnCount(); ++column) {
        key.push_back(row.Column(column, FieldType::AsStored));
    }
    return key;
}

bool SqliteTable::Takes(const Statement& row) const {
    return std::ranges::all_of(filter_, [&](const PlacedTerm& placed) {
        return Passes(placed.term,
                      row.Column(static_cast<int>(placed.field), types_[placed.field]));
    });
}

void SqliteTable::MoveBehind(const std::optional<RowKey>& position) {
    StatementUse rows(connection_->Kept(RowsWhere(position ? RowKeyIs(">") : kEveryRow) +
                                        " ORDER BY " + rowKey_));
    if (position) rows->BindAll(*position);
    changes_.reset();
    std::optional<RowKey> found;
    while (!found && rows->Step()) {
        if (Takes(*rows)) found = RowKeyOf(*rows);
    }
    current_ = std::move(found);
}

// The rows that the filter takes, up to and with `last` or all of them.
long SqliteTable::CountUpTo(const std::optional<RowKey>& last) const {
    const std::string condition = last ? RowKeyIs("<=") : kEveryRow;
    const std::string sql =
        filter_.empty() ? "SELECT count(*) FROM " + QuotedName(table_->name) + " WHERE " + condition
                        : RowsWhere(condition);
    StatementUse rows(connection_->Kept(sql));
    if (last) rows->BindAll(*last);
    if (filter_.empty()) {
        rows->Step();
        return static_cast<long>(*rows->Column(0, FieldType::Whole).AsWhole());
    }
    long count = 0;
    while (rows->Step()) {
        if (Takes(*rows)) ++count;
    }
    return count;
}

bool SqliteTable::IsEof() const {
    RequireOpen();
    return !current_;
}

long SqliteTable::AbsolutePosition() const {
    return IsEof() ? -1 : CountUpTo(current_);
}

long SqliteTable::RecordCount() const {
    RequireOpen();
    return CountUpTo(std::nullopt);
}

void SqliteTable::MoveFirst() {
    RequireOpen();
    MoveBehind(std::nullopt);
    if (!current_) ThrowNoCurrentRecord(table_->name);
}

void SqliteTable::MoveNext() {
    MoveBehind(RowKey(Current()));
}

int SqliteTable::FieldCount() const {
    RequireOpen();
    return static_cast<int>(fields_.size());
}

Value SqliteTable::Get(std::string_view field) const {
    RequireOpen();
    return Field(PlaceOfField(fields_, field, table_->name));
}

Value SqliteTable::Get(int position) const {
    RequireOpen();
    return Field(PlaceOfField(fields_, position, table_->name));
}

Value SqliteTable::Field(std::size_t field) const {
    const RowKey& key = Current();
    if (changes_) {
        const auto changed = std::ranges::find(*changes_, fields_[field], &FieldChange::first);
        if (changed != changes_->end()) return changed->second;
    }
    StatementUse row(*readRow_);
    row->BindAll(key);
    if (!row->Step()) ThrowNoCurrentRecord(table_->name);
    return row->Column(static_cast<int>(field), types_[field]);
}

void SqliteTable::Edit() {
    if (IsEof()) ThrowNoCurrentRecord(table_->name);
    changes_.emplace();
}

void SqliteTable::Set(std::string_view field, Value value) {
    RequireOpen();
    const std::size_t place = PlaceOfField(fields_, field, table_->name);
    if (!changes_) ThrowNotEditing();
    const std::string& name = fields_[place];
    Value fitted =
        FittedOrError(value, types_[place], "Table " + table_->name + ", column " + name);
    std::erase_if(*changes_, [&](const FieldChange& change) { return change.first == name; });
    changes_->emplace_back(name, std::move(fitted));
}

void SqliteTable::Update() {
    if (IsEof()) ThrowNoCurrentRecord(table_->name);
    if (!changes_) ThrowNotEditing();
    UpdateRow(*connection_, *table_, *current_, *changes_);
    changes_.reset();
}

void SqliteTable::SetFilter(std::string_view filter) {
    RequireOpen();
    std::vector<PlacedTerm> placed;
    for (FilterTerm& term : ParseFilter(filter)) {
        const std::size_t field = PlaceOfField(fields_, term.field, table_->name);
        placed.push_back({std::move(term), field});
    }
    filter_ = std::move(placed);
    MoveBehind(std::nullopt);
}

void SqliteTable::Close() {
    RequireOpen();
    readRow_.reset();
    connection_.reset();
}

void SqliteTable::SetIndex(std::string_view name) {
    RequireOpen();
    indexed_ = !table_->primaryKey.empty() && EqualsIgnoreCase(name, kPrimaryKey);
    if (indexed_) return;
    throw RuntimeError(
        error_number::kNoSuchIndex,
        "'" + std::string(name) + "' is not an index in the table '" + table_->name + "'.");
}

void SqliteTable::Seek(const Value& key) {
    RequireOpen();
    if (!indexed_) {
        throw RuntimeError(error_number::kNoSuchIndex,
                           "The table '" + table_->name + "' has no current index to seek in.");
    }
    const std::string& column = table_->primaryKey.front();
    const Value sought = SoughtKey(key, types_[PlaceOfField(fields_, column, table_->name)]);
    const auto* text = sought.AsText();
    StatementUse row(connection_->Kept(
        RowsWhere(QuotedName(column) + " = ?" + (text != nullptr ? CollationFor(*text) : "")) +
        " LIMIT 1"));
    row->Bind(1, sought);
    changes_.reset();
    current_.reset();
    if (row->Step()) current_ = RowKeyOf(*row);
    noMatch_ = !current_;
}

bool SqliteTable::NoMatch() const {
    RequireOpen();
    return noMatch_;
}

}  // namespace platform
