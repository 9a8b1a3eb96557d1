// Recordsets: rows with a current one among them, as the system's routines walk and change them.
// Knows no engine; a query, a table and a persisted file all look like this.
#pragma once

#include <string_view>
#include <vector>

#include "platform/value.h"

namespace platform::database {

using Row = std::vector<Value>;

// One record, seen by the names of its fields.
class Record {
  public:
    virtual ~Record() = default;

    // The field's value in the current row. Names are matched without regard to case; of two equal
    // names the first is meant. An unknown name is error 3265, no current row 3021.
    [[nodiscard]] virtual Value Get(std::string_view field) const = 0;
};

// Rows that are walked from the first to the last. Every call after Close is error 3704.
class Recordset : public Record {
  public:
    // True past the last row, and when there are no rows.
    [[nodiscard]] virtual bool IsEof() const = 0;

    virtual void MoveNext() = 0;  // past the end: error 3021

    virtual void Close() = 0;
};

// A table itself, opened on its first row; other rows are found by an index. The current row is
// read once, when a field of it is first asked for.
class TableRecordset : public Record {
  public:
    // Forgets what was read, so that changes by others since then are seen.
    virtual void Refresh() = 0;

    // A change of the current row: Edit, Set each field, Update, which saves at once. Edit reads
    // the row anew. Set or Update without Edit is error 3020.
    virtual void Edit() = 0;
    virtual void Set(std::string_view field, Value value) = 0;
    virtual void Update() = 0;

    // Makes an index current. "PrimaryKey" is the table's primary key; any other name, or a table
    // without one, is error 3015.
    virtual void SetIndex(std::string_view name) = 0;

    // Moves to the row whose key of the current index equals `key`; where there is none, NoMatch is
    // true and there is no current row. Without a current index: error 3015.
    virtual void Seek(const Value& key) = 0;
    [[nodiscard]] virtual bool NoMatch() const = 0;
};

}  // namespace platform::database
