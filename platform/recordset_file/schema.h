// The schema of a persisted recordset: which columns its rows have, in all three spellings.
// Gets the elements one by one; knows nothing of the parser and nothing of the rows.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/recordset_file/typed_value.h"
#include "platform/recordset_file/xml_names.h"

namespace platform::recordset_file {

// A guard against hostile files; the databases that save recordsets allow a few hundred.
inline constexpr std::size_t kMaxColumns = 2000;

struct SchemaColumn {
    std::string alias;  // the name of the attribute in the rows
    std::string name;   // the name of the field; two columns may bear the same
    FieldType type = FieldType::Text;
    bool nullable = true;
    bool hidden = false;  // has values in the rows, but is no field
    long number = 0;      // the ordinal, equal for columns that come in the order of the document
};

struct RecordsetSchema {
    std::string rowName;                // of the row elements
    std::vector<SchemaColumn> columns;  // in the order of the document, or of the references
};

// Takes what stands inside the schema element. Errors are 321 without a place.
class SchemaBuilder {
  public:
    // `attributes`: name and value in turn, closed by a null pointer.
    void Start(const XmlName& name, const char* const* attributes);
    void End();

    [[nodiscard]] RecordsetSchema Finish();

  private:
    enum class Place { RowType, Column, SharedColumn, Ignored };

    // An AttributeType as written; what its datatype child says counts where it is silent itself.
    struct Declaration {
        std::optional<std::string> alias, name, type, dbType, number, hidden, nullable, maybeNull;
    };

    struct RowType {
        std::string name;
        std::vector<Declaration> declarations;
        std::vector<std::string> references;
    };

    struct AttributeRule;
    static const AttributeRule kAttributeRules[];

    void StartInSchema(std::string_view local, const char* const* attributes);
    void StartInRowType(std::string_view local, const char* const* attributes);
    void Declare(std::vector<Declaration>& declarations, const char* const* attributes);
    void EndRowType();
    [[nodiscard]] std::vector<Declaration> Members() const;
    [[nodiscard]] const Declaration& Referenced(std::string_view alias) const;

    static void TakeAttributes(Declaration& declaration, const char* const* attributes);
    static std::string AttributeOf(const char* const* attributes, std::string_view local);
    static SchemaColumn ColumnOf(const Declaration& declaration, long numberBefore);

    std::vector<Place> places_;
    std::vector<Declaration> shared_;
    std::optional<RowType> open_;     // the row type being read
    std::optional<RowType> rowType_;  // the one with columns
    std::size_t columnCount_ = 0;
};

}  // namespace platform::recordset_file
