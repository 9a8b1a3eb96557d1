#include "platform/recordset_file/document.h"

#include <utility>

#include "platform/error.h"
#include "platform/text.h"

namespace platform::recordset_file {

namespace {

[[noreturn]] void Refuse(std::string description) {
    throw RuntimeError(error_number::kInvalidFileFormat, std::move(description));
}

constexpr const char* kNoSchema = "the file has no schema: it is no persisted recordset.";

}  // namespace

void RecordsetDocument::Start(const char* name, const char* const* attributes) {
    if (places_.size() >= kMaxDepth) Refuse("the elements are nested too deep.");
    places_.push_back(PlaceOf(name, attributes));
    if (places_.back() != Place::Row) {
        NoteNames(name, attributes);
    } else if (fullRowName_ != name) {
        foreignNames_.Note(name);  // in another spelling of case
    }
}

void RecordsetDocument::StartNamespace(const char* prefix, const char* uri) {
    if (prefix != nullptr) foreignNames_.NotePrefix(prefix);
    if (uri != nullptr) foreignNames_.Note(uri);
}

void RecordsetDocument::NoteNames(const char* name, const char* const* attributes) {
    foreignNames_.Note(name);
    for (; *attributes != nullptr; attributes += 2)
        foreignNames_.Note(*attributes);
}

RecordsetDocument::Place RecordsetDocument::PlaceOf(const char* name,
                                                    const char* const* attributes) {
    if (places_.empty()) {
        if (std::string_view(name) == "xml") return Place::Root;
        const XmlName root = SplitName(name);
        const std::string space = root.space.empty() ? "" : " of " + Quoted(root.space);
        Refuse("the root element is " + Quoted(root.local) + space + ", not a plain \"xml\".");
    }
    const Place parent = places_.back();
    if (parent == Place::Ignored) return Place::Ignored;
    if (parent == Place::Root) return PlaceInRoot(SplitName(name));
    if (parent == Place::Schema) {
        schema_.Start(SplitName(name), attributes);
        return Place::Schema;
    }
    if (parent == Place::Row) {
        Refuse("there are elements inside a row: a hierarchical recordset can not be read.");
    }
    if (fullRowName_ == name || IsRow(SplitName(name))) {
        ReadRow(parent, attributes);
        return Place::Row;
    }
    return PlaceInData(SplitName(name), parent);
}

RecordsetDocument::Place RecordsetDocument::PlaceInRoot(const XmlName& name) const {
    if (name.space == xml_space::kSchema && EqualsIgnoreCase(name.local, "Schema")) {
        if (HasSchema()) Refuse("the file has more than one schema.");
        return Place::Schema;
    }
    if (name.space == xml_space::kRowset && EqualsIgnoreCase(name.local, "data")) {
        if (!HasSchema()) Refuse(kNoSchema);
        return Place::Data;
    }
    return Place::Ignored;
}

// What is no row must be one of the known wrappers: skipping it could lose rows unnoticed.
RecordsetDocument::Place RecordsetDocument::PlaceInData(const XmlName& name, Place parent) const {
    const bool known = name.space == xml_space::kRowset;
    if (known && parent == Place::Data) {
        if (EqualsIgnoreCase(name.local, "update")) return Place::Update;
        if (EqualsIgnoreCase(name.local, "insert")) return Place::Insert;
        if (EqualsIgnoreCase(name.local, "delete")) return Place::Ignored;
    }
    if (known && parent == Place::Update && EqualsIgnoreCase(name.local, "original")) {
        return Place::Original;
    }
    Refuse("there is an unexpected element " + Quoted(name.local) + " among the rows.");
}

bool RecordsetDocument::IsRow(const XmlName& name) const {
    return name.space == xml_space::kRow && EqualsIgnoreCase(name.local, rowName_);
}

void RecordsetDocument::ReadRow(Place parent, const char* const* attributes) {
    inRow_ = true;
    if (parent == Place::Original) {
        rows_->ReadOriginal(attributes);
    } else if (parent == Place::Update) {
        rows_->ReadChanges(attributes);
    } else {
        rows_->ReadWhole(attributes);
        hasRow_ = true;
    }
    inRow_ = false;
}

void RecordsetDocument::End() {
    const Place place = places_.back();
    places_.pop_back();
    if (place == Place::Schema) {
        if (places_.back() == Place::Schema) {
            schema_.End();
        } else {
            EndSchema();
        }
    } else if (place == Place::Update) {
        inRow_ = true;
        rows_->Merge();
        hasRow_ = true;
        inRow_ = false;
    }
}

void RecordsetDocument::EndSchema() {
    const RecordsetSchema schema = schema_.Finish();
    rowName_ = schema.rowName;
    fullRowName_ = std::string(xml_space::kRow) + kNameSeparator + rowName_;
    rows_.emplace(schema, foreignNames_);
}

void RecordsetDocument::Finish() {
    if (!HasSchema()) Refuse(kNoSchema);
}

void RecordsetDocument::TakeRow(std::vector<Value>& row) {
    rows_->Take(row);
    hasRow_ = false;
    ++rowsTaken_;
}

std::string RecordsetDocument::Where() const {
    if (!inRow_) return {};
    std::string where = ", record " + std::to_string(rowsTaken_ + 1);
    const std::string column = rows_->CurrentColumn();
    if (!column.empty()) where += ", column " + column;
    return where;
}

}  // namespace platform::recordset_file
