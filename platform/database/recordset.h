// Recordsets: rows with a current one among them, as the system's routines walk, filter and change
// them. Knows no engine; a query, a table and a persisted file all look like this.
#pragma once

#include <string_view>
#include <vector>

#include "platform/value.h"

namespace platform {

using Row = std::vector<Value>;

// What every recordset can do with its current row. Every call on a closed recordset is error 3704;
// every access to a row where there is none is error 3021; an unknown field name or position is
// error 3265. Names are matched without regard to case; of two equal names the first is meant.
class Recordset {
  public:
    virtual ~Recordset() = default;

    // True past the last row, and when there are no rows.
    [[nodiscard]] virtual bool IsEof() const = 0;

    // The number of the current row, from 1; negative when there is none.
    [[nodiscard]] virtual long AbsolutePosition() const = 0;

    // The rows that there are, or that the filter takes.
    [[nodiscard]] virtual long RecordCount() const = 0;

    virtual void MoveFirst() = 0;  // without rows: error 3021
    virtual void MoveNext() = 0;   // past the end: error 3021

    [[nodiscard]] virtual int FieldCount() const = 0;
    [[nodiscard]] virtual Value Get(std::string_view field) const = 0;
    [[nodiscard]] virtual Value Get(int position) const = 0;  // from 0

    // A change of the current row: Edit, Set each field, Update. Update saves at once to the row
    // that it came from. Set or Update without Edit is error 3020.
    virtual void Edit() = 0;
    virtual void Set(std::string_view field, Value value) = 0;
    virtual void Update() = 0;

    // Leaves only the rows that `filter` takes and moves to the first of them; the empty text takes
    // every row. The form is given in filter.h; a malformed filter is error 3075.
    virtual void SetFilter(std::string_view filter) = 0;

    virtual void Close() = 0;
};

// A recordset on a table itself, opened on its first row: it reads the row as it is in the database
// at that moment, and finds rows by an index.
class TableRecordset : public Recordset {
  public:
    // Makes an index current. "PrimaryKey" is the table's primary key; any other name, or a table
    // without one, is error 3015.
    virtual void SetIndex(std::string_view name) = 0;

    // Moves to the row whose key of the current index equals `key`; where there is none, NoMatch is
    // true and there is no current row. Without a current index: error 3015.
    virtual void Seek(const Value& key) = 0;
    [[nodiscard]] virtual bool NoMatch() const = 0;
};

}  // namespace platform
