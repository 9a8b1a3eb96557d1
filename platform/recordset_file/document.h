// The structure of a persisted recordset: root, schema, data with its pending changes. Gets the
// elements one by one and has the schema and the current rows made of them. Knows no parser.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/recordset_file/foreign_names.h"
#include "platform/recordset_file/row_assembler.h"
#include "platform/recordset_file/schema.h"
#include "platform/value.h"

namespace platform::recordset_file {

// A guard against hostile files: the deepest element of a persisted recordset is the fifth.
inline constexpr std::size_t kMaxDepth = 64;

// Errors are 321; Where() tells the record and the column that they concern.
class RecordsetDocument {
  public:
    RecordsetDocument() = default;
    RecordsetDocument(const RecordsetDocument&) = delete;  // its parts refer to each other
    RecordsetDocument& operator=(const RecordsetDocument&) = delete;

    // `attributes`: name and value in turn, closed by a null pointer.
    void Start(const char* name, const char* const* attributes);
    void StartNamespace(const char* prefix, const char* uri);  // null where there is none
    void End();
    void Finish();  // the document is at its end

    [[nodiscard]] bool HasSchema() const { return rows_.has_value(); }
    [[nodiscard]] const std::vector<std::string>& Fields() const { return rows_->Fields(); }

    // A current row that waits to be taken; no element may come before it is.
    [[nodiscard]] bool HasRow() const { return hasRow_; }
    void TakeRow(std::vector<Value>& row);
    [[nodiscard]] long RowsTaken() const { return rowsTaken_; }

    // ", record 3, column Amount" as far as the last element concerns them.
    [[nodiscard]] std::string Where() const;

  private:
    enum class Place { Root, Schema, Data, Update, Original, Insert, Row, Ignored };

    [[nodiscard]] Place PlaceOf(const char* name, const char* const* attributes);
    [[nodiscard]] Place PlaceInRoot(const XmlName& name) const;
    [[nodiscard]] Place PlaceInData(const XmlName& name, Place parent) const;
    [[nodiscard]] bool IsRow(const XmlName& name) const;
    void NoteNames(const char* name, const char* const* attributes);
    void ReadRow(Place parent, const char* const* attributes);
    void EndSchema();

    ForeignNames foreignNames_;
    std::vector<Place> places_;
    SchemaBuilder schema_;
    std::optional<RowAssembler> rows_;  // once the schema is known
    std::string rowName_;
    std::string fullRowName_;  // as the parser gives it
    bool hasRow_ = false;
    bool inRow_ = false;
    long rowsTaken_ = 0;
};

}  // namespace platform::recordset_file
