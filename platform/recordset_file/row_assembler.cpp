#include "platform/recordset_file/row_assembler.h"

#include <algorithm>
#include <cstring>
#include <numeric>
#include <utility>

#include "platform/error.h"
#include "platform/text.h"

namespace platform::recordset_file {

namespace {

// How far ahead of the expected column an attribute is looked for one by one: nulls leave gaps.
constexpr std::size_t kLookAhead = 8;

constexpr std::string_view kForceNull = "forcenull";

[[noreturn]] void Refuse(const char* description) {
    throw RuntimeError(error_number::kInvalidFileFormat, description);
}

// The columns in the order of the fields: by number, equal numbers as in the document
// or, where the columns are references, as these.
std::vector<std::size_t> FieldOrder(const RecordsetSchema& schema) {
    std::vector<std::size_t> order(schema.columns.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(), [&](std::size_t left, std::size_t right) {
        return schema.columns[left].number < schema.columns[right].number;
    });
    return order;
}

}  // namespace

RowAssembler::RowAssembler(const RecordsetSchema& schema, ForeignNames& foreignNames)
    : foreignNames_(foreignNames) {
    for (const SchemaColumn& column : schema.columns) {
        byName_.emplace(Upper(column.alias), columns_.size());
        columns_.push_back({column.alias, column.type, column.nullable, kNone});
    }
    for (const std::size_t place : FieldOrder(schema)) {
        if (schema.columns[place].hidden) continue;
        columns_[place].field = fields_.size();
        fields_.push_back(schema.columns[place].name);
    }
}

void RowAssembler::ReadWhole(const char* const* attributes) {
    Read(attributes, row_);
    RequireValues(row_.values);
}

void RowAssembler::ReadOriginal(const char* const* attributes) {
    if (original_.present) Refuse("an update has more than one original row.");
    Read(attributes, original_);
    original_.present = true;
}

void RowAssembler::ReadChanges(const char* const* attributes) {
    if (changes_.present) Refuse("an update has more than one new row.");
    Read(attributes, changes_);
    changes_.present = true;
}

void RowAssembler::Merge() {
    if (!original_.present && !changes_.present) Refuse("an update has no row.");
    if (original_.present) {
        row_.values.swap(original_.values);
        for (const Column& column : columns_) {
            if (!changes_.present || column.field == kNone) continue;
            if (!changes_.mentioned[column.field]) continue;
            std::swap(row_.values[column.field], changes_.values[column.field]);
        }
    } else {
        row_.values.swap(changes_.values);
    }
    original_.present = changes_.present = false;
    RequireValues(row_.values);
}

void RowAssembler::Take(Row& row) {
    row.swap(row_.values);
}

std::string RowAssembler::CurrentColumn() const {
    if (current_ == kNone) return {};
    const Column& column = columns_[current_];
    return column.field == kNone ? column.alias : fields_[column.field];
}

void RowAssembler::Read(const char* const* attributes, Side& side) {
    side.values.resize(fields_.size());
    side.mentioned.assign(fields_.size(), 0);
    expected_ = 0;
    std::string_view forcedNulls;
    for (; *attributes != nullptr; attributes += 2) {
        const std::size_t place = Find(attributes[0]);
        if (place == kNone) {
            const XmlName name = SplitName(attributes[0]);
            const bool isForceNull = name.space == xml_space::kRowset && name.local == kForceNull;
            if (isForceNull) forcedNulls = attributes[1];
            continue;
        }
        const Column& column = columns_[place];
        if (column.field == kNone) continue;
        current_ = place;
        // In two spellings of case: what is spelled alike the parser has refused.
        if (side.mentioned[column.field]) Refuse("the column has two values.");
        ReadValue(column.type, attributes[1], side.values[column.field]);
        side.mentioned[column.field] = 1;
    }
    current_ = kNone;
    for (std::size_t field = 0; field < fields_.size(); ++field) {
        if (!side.mentioned[field]) side.values[field] = Value();
    }
    if (!forcedNulls.empty()) SetNulls(forcedNulls, side);
}

// An attribute that is present all the same wins.
void RowAssembler::SetNulls(std::string_view aliases, Side& side) {
    constexpr std::string_view kBlanks = " \t\r\n";
    while (true) {
        const auto start = aliases.find_first_not_of(kBlanks);
        if (start == std::string_view::npos) return;
        aliases.remove_prefix(start);
        const auto length = std::min(aliases.find_first_of(kBlanks), aliases.size());
        const std::size_t place = FindAnyCase(aliases.substr(0, length));
        if (place != kNone && columns_[place].field != kNone) {
            side.mentioned[columns_[place].field] = 1;
        }
        aliases.remove_prefix(length);
    }
}

void RowAssembler::RequireValues(const Row& row) {
    for (std::size_t place = 0; place < columns_.size(); ++place) {
        const Column& column = columns_[place];
        if (column.nullable || column.field == kNone || !row[column.field].IsNull()) continue;
        current_ = place;
        Refuse("there is no value, but the column can not be null.");
    }
}

// Rows mostly have their attributes in the order of the columns, so the search is over at once.
std::size_t RowAssembler::Find(const char* name) {
    const std::size_t end = std::min(expected_ + kLookAhead, columns_.size());
    for (std::size_t place = expected_; place < end; ++place) {
        if (std::strcmp(columns_[place].alias.c_str(), name) != 0) continue;
        expected_ = place + 1;
        return place;
    }
    const std::size_t place = FindAnyCase(name);
    // Another spelling of case is a name of its own to the parser.
    if (place == kNone || columns_[place].alias != name) foreignNames_.Note(name);
    if (place != kNone) expected_ = place + 1;
    return place;
}

std::size_t RowAssembler::FindAnyCase(std::string_view name) const {
    const auto found = byName_.find(Upper(name));
    return found == byName_.end() ? kNone : found->second;
}

}  // namespace platform::recordset_file
