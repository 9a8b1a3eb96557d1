// A database engine, its connections and what can be opened on them: the operations that the system
// needs, so that a second engine could stand behind the same interface.
// SQL texts are the system's own, in the dialect of the original engine; what an engine spells
// otherwise is the engine's to translate.
#pragma once

#include <initializer_list>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/database/client_recordset.h"
#include "platform/database/recordset.h"
#include "platform/value.h"

namespace platform::database {

// Adds rows to a table one after another, without keeping them.
class TableAppender {
  public:
    virtual ~TableAppender() = default;
    [[nodiscard]] virtual int FieldCount() const = 0;
    [[nodiscard]] virtual const std::string& FieldName(int position) const = 0;

    // Sets a field of the new row, converted to the column's type: a number column takes numbers,
    // true/false (-1, 0) and texts that spell a number, a text column takes the text of any value,
    // a date column dates. What it can not take is error 3421 with table and column.
    virtual void Set(int position, const Value& value) = 0;

    // Whether the column keeps a number so that a query for it finds this row and those of no other
    // number. What is no number counts as kept.
    [[nodiscard]] virtual bool KeepsNumber(int position, const Value& value) const = 0;

    // Saves the new row; fields that were not set are null. A row that the table refuses is error
    // 3022 (key), 3314 (null) or 3421.
    virtual void Save() = 0;
};

// A statement that is run many times, each time with other values for its parameters (?1, ?2 ...).
// Values are never part of the text: a text is bound as it is, a date as 'YYYY-MM-DD HH:MM:SS',
// true/false as 1 and 0.
class PreparedStatement {
  public:
    virtual ~PreparedStatement() = default;

    // Runs it to its end and gives its rows. A parameter without a value is null, a value without a
    // parameter is error 3075.
    virtual std::vector<Row> Run(std::span<const Value> values) = 0;
};

// Changes that reach the disk together: nothing of them when the program is killed before the end.
// Roll-back unless committed.
class Transaction {
  public:
    virtual ~Transaction() = default;
    virtual void Commit() = 0;
    virtual void RollBack() = 0;
};

// An index that goes with this object.
class ScopedIndex {
  public:
    virtual ~ScopedIndex() = default;
};

class Database {
  public:
    virtual ~Database() = default;

    // The rows of a query with values for its parameters (as for PreparedStatement), read whole. A
    // query of the form SELECT * FROM one table can be changed row by row.
    [[nodiscard]] virtual std::unique_ptr<ClientRecordset> OpenQuery(
        std::string_view sql, std::span<const Value> values) = 0;
    [[nodiscard]] std::unique_ptr<ClientRecordset> OpenQuery(
        std::string_view sql, std::initializer_list<Value> values = {}) {
        return OpenQuery(sql, std::span(values.begin(), values.size()));
    }

    // The table itself; a missing one is error 3078.
    [[nodiscard]] virtual std::unique_ptr<TableRecordset> OpenTable(std::string_view table) = 0;
    [[nodiscard]] virtual std::unique_ptr<TableAppender> OpenAppender(std::string_view table) = 0;

    // One statement that gives no rows.
    virtual void Execute(std::string_view sql) = 0;

    // One statement, to be run with values; it may give rows.
    [[nodiscard]] virtual std::unique_ptr<PreparedStatement> Prepare(std::string_view sql) = 0;

    // One transaction at a time. Without one every change is saved by itself.
    [[nodiscard]] virtual std::unique_ptr<Transaction> BeginTransaction() = 0;

    // An index on `columns` ("SalesID, LineNo") of a table for as long as the returned object
    // lives; it makes many small look-ups fast and leaves no trace in the database. Nothing may be
    // changed on this connection meanwhile.
    [[nodiscard]] virtual std::unique_ptr<ScopedIndex> IndexWhileInScope(
        std::string_view table, std::string_view columns) = 0;
};

class DatabaseEngine {
  public:
    virtual ~DatabaseEngine() = default;

    // Opens an existing database file, shared, for reading and writing. A missing file is error
    // 3024, one that can not be opened 3051, one that is no database 3343; the file is named.
    // A lock of another process is waited for some seconds; then error 3045.
    [[nodiscard]] virtual std::unique_ptr<Database> OpenDatabase(std::string_view fileName) = 0;

    // The same through a connection string, "Provider=...;Data Source=" + file name.
    [[nodiscard]] virtual std::unique_ptr<Database> OpenConnection(
        std::string_view connectionString) = 0;
};

}  // namespace platform::database
