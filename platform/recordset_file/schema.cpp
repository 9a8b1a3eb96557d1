#include "platform/recordset_file/schema.h"

#include <charconv>
#include <set>
#include <system_error>
#include <utility>

#include "platform/error.h"
#include "platform/text.h"

namespace platform::recordset_file {

namespace {

[[noreturn]] void Refuse(std::string description) {
    throw RuntimeError(error_number::kInvalidFileFormat, std::move(description));
}

bool BooleanOf(const std::optional<std::string>& text, bool missing) {
    if (!text) return missing;
    Value value;
    ReadValue(FieldType::Boolean, *text, value);
    return *value.AsBoolean();
}

long NumberOf(const std::string& text) {
    long number = 0;
    const char* end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    if (result.ec != std::errc{} || result.ptr != end) {
        Refuse("the ordinal " + Quoted(text) + " of a column is no whole number.");
    }
    return number;
}

}  // namespace

struct SchemaBuilder::AttributeRule {
    std::string_view space;
    std::string_view local;
    std::optional<std::string> Declaration::*member;
    bool unqualified;  // may stand without its namespace, or in that of the schema
};

const SchemaBuilder::AttributeRule SchemaBuilder::kAttributeRules[] = {
    {xml_space::kSchema, "name", &Declaration::alias, true},
    {xml_space::kRowset, "name", &Declaration::name, false},
    {xml_space::kDataType, "type", &Declaration::type, true},
    {xml_space::kRowset, "dbtype", &Declaration::dbType, true},
    {xml_space::kRowset, "number", &Declaration::number, true},
    {xml_space::kRowset, "hidden", &Declaration::hidden, true},
    {xml_space::kRowset, "nullable", &Declaration::nullable, true},
    {xml_space::kRowset, "maybenull", &Declaration::maybeNull, true},
};

void SchemaBuilder::Start(const XmlName& name, const char* const* attributes) {
    const Place parent = places_.empty() ? Place::Ignored : places_.back();
    const std::size_t depth = places_.size();
    places_.push_back(Place::Ignored);
    if (name.space != xml_space::kSchema) return;
    if (depth == 0) {
        StartInSchema(name.local, attributes);
    } else if (parent == Place::RowType) {
        StartInRowType(name.local, attributes);
    } else if (EqualsIgnoreCase(name.local, "datatype")) {
        if (parent == Place::Column) TakeAttributes(open_->declarations.back(), attributes);
        if (parent == Place::SharedColumn) TakeAttributes(shared_.back(), attributes);
    }
}

void SchemaBuilder::StartInSchema(std::string_view local, const char* const* attributes) {
    if (EqualsIgnoreCase(local, "ElementType")) {
        places_.back() = Place::RowType;
        open_.emplace().name = AttributeOf(attributes, "name");
    } else if (EqualsIgnoreCase(local, "AttributeType")) {
        places_.back() = Place::SharedColumn;
        Declare(shared_, attributes);
    }
}

void SchemaBuilder::StartInRowType(std::string_view local, const char* const* attributes) {
    if (EqualsIgnoreCase(local, "ElementType")) {
        Refuse("a hierarchical recordset (a row type inside a row type) can not be read.");
    }
    if (EqualsIgnoreCase(local, "element")) {
        Refuse("columns that are elements (s:element) can not be read.");
    }
    if (EqualsIgnoreCase(local, "AttributeType")) {
        places_.back() = Place::Column;
        Declare(open_->declarations, attributes);
    } else if (EqualsIgnoreCase(local, "attribute")) {
        if (open_->references.size() >= kMaxColumns) Refuse("the schema has too many columns.");
        open_->references.push_back(AttributeOf(attributes, "type"));
    }
}

void SchemaBuilder::Declare(std::vector<Declaration>& declarations, const char* const* attributes) {
    if (++columnCount_ > kMaxColumns) {
        Refuse("the schema has more than " + std::to_string(kMaxColumns) + " columns.");
    }
    TakeAttributes(declarations.emplace_back(), attributes);
}

void SchemaBuilder::TakeAttributes(Declaration& declaration, const char* const* attributes) {
    for (; *attributes != nullptr; attributes += 2) {
        const XmlName name = SplitName(attributes[0]);
        for (const AttributeRule& rule : kAttributeRules) {
            const bool bare = name.space.empty() || name.space == xml_space::kSchema;
            if (name.space != rule.space && !(rule.unqualified && bare)) continue;
            if (!EqualsIgnoreCase(name.local, rule.local)) continue;
            auto& member = declaration.*rule.member;
            if (!member) member = attributes[1];
        }
    }
}

std::string SchemaBuilder::AttributeOf(const char* const* attributes, std::string_view local) {
    for (; *attributes != nullptr; attributes += 2) {
        const XmlName name = SplitName(attributes[0]);
        if (!name.space.empty() && name.space != xml_space::kSchema) continue;
        if (EqualsIgnoreCase(name.local, local)) return attributes[1];
    }
    Refuse("an element of the schema lacks its attribute " + std::string(local) + ".");
}

void SchemaBuilder::End() {
    if (places_.back() == Place::RowType) EndRowType();
    places_.pop_back();
}

void SchemaBuilder::EndRowType() {
    const bool hasColumns = !open_->declarations.empty() || !open_->references.empty();
    if (hasColumns && rowType_) Refuse("the schema has more than one type of rows.");
    if (hasColumns) rowType_ = std::move(open_);
    open_.reset();
}

const SchemaBuilder::Declaration& SchemaBuilder::Referenced(std::string_view alias) const {
    for (const auto* declarations : {&rowType_->declarations, &shared_}) {
        for (const Declaration& declaration : *declarations) {
            if (declaration.alias && EqualsIgnoreCase(*declaration.alias, alias)) {
                return declaration;
            }
        }
    }
    Refuse("the schema refers to a column " + Quoted(alias) + " that it does not declare.");
}

std::vector<SchemaBuilder::Declaration> SchemaBuilder::Members() const {
    if (rowType_->references.empty()) return rowType_->declarations;
    std::vector<Declaration> members;
    members.reserve(rowType_->references.size());
    for (const std::string& alias : rowType_->references)
        members.push_back(Referenced(alias));
    return members;
}

SchemaColumn SchemaBuilder::ColumnOf(const Declaration& declaration, long numberBefore) {
    if (!declaration.alias || declaration.alias->empty()) Refuse("a column has no name.");
    SchemaColumn column;
    column.alias = *declaration.alias;
    column.name = declaration.name.value_or(column.alias);
    column.type = FieldTypeOf(declaration.type.value_or(""), declaration.dbType.value_or(""));
    // Recordsets made in memory say both "nullable" and "not maybe null", and do contain nulls.
    column.nullable =
        BooleanOf(declaration.nullable, false) || BooleanOf(declaration.maybeNull, true);
    column.hidden = BooleanOf(declaration.hidden, false);
    column.number = declaration.number ? NumberOf(*declaration.number) : numberBefore;
    return column;
}

RecordsetSchema SchemaBuilder::Finish() {
    if (!rowType_) Refuse("the schema declares no columns.");
    RecordsetSchema schema;
    schema.rowName = rowType_->name;
    std::set<std::string> aliases;
    long number = 0;
    for (const Declaration& member : Members()) {
        schema.columns.push_back(ColumnOf(member, number));
        const SchemaColumn& column = schema.columns.back();
        number = column.number;
        if (!aliases.insert(Upper(column.alias)).second) {
            Refuse("the schema declares the column " + Quoted(column.alias) + " twice.");
        }
    }
    return schema;
}

}  // namespace platform::recordset_file
