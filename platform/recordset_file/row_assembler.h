// Makes rows of values from the attributes of row elements, and the current row of an update from
// its two sides. Knows the columns; knows nothing of the document's structure.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/recordset_file/foreign_names.h"
#include "platform/recordset_file/schema.h"
#include "platform/value.h"

namespace platform::recordset_file {

class RowAssembler {
  public:
    using Row = std::vector<Value>;

    // `foreignNames` outlives it.
    RowAssembler(const RecordsetSchema& schema, ForeignNames& foreignNames);

    [[nodiscard]] const std::vector<std::string>& Fields() const { return fields_; }

    // A plain or an inserted row, or the only side of an update. `attributes`: name and value in
    // turn, closed by a null pointer.
    void ReadWhole(const char* const* attributes);

    // The two sides of an update, in any order; Merge makes the current row of what was read.
    void ReadOriginal(const char* const* attributes);
    void ReadChanges(const char* const* attributes);
    void Merge();

    // The finished row is exchanged for `row`, whose room serves the next one.
    void Take(Row& row);

    // The column whose value was being read or checked; empty outside.
    [[nodiscard]] std::string CurrentColumn() const;

  private:
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    struct Column {
        std::string alias;
        FieldType type;
        bool nullable;
        std::size_t field;  // its place in the row; kNone for a hidden column
    };

    // The values of one row element, and which columns it mentions.
    struct Side {
        Row values;
        std::vector<char> mentioned;
        bool present = false;
    };

    void Read(const char* const* attributes, Side& side);
    void SetNulls(std::string_view aliases, Side& side);
    void RequireValues(const Row& row);
    [[nodiscard]] std::size_t Find(const char* name);
    [[nodiscard]] std::size_t FindAnyCase(std::string_view name) const;

    ForeignNames& foreignNames_;
    std::vector<Column> columns_;  // in the order of the document
    std::vector<std::string> fields_;
    std::unordered_map<std::string, std::size_t> byName_;  // by the upper-cased alias
    Side row_;
    Side original_;
    Side changes_;
    std::size_t expected_ = 0;  // the column that the next attribute probably belongs to
    std::size_t current_ = kNone;
};

}  // namespace platform::recordset_file
