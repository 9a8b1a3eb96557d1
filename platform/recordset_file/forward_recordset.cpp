#include "platform/recordset_file/forward_recordset.h"

#include "platform/database/field_names.h"
#include "platform/database/recordset_errors.h"

namespace platform::recordset_file {

ForwardRecordset::ForwardRecordset(std::string_view fileName)
    : fileName_(fileName), reader_(fileName) {
    isEof_ = !reader_.Next(row_);
}

bool ForwardRecordset::IsEof() const {
    RequireOpen();
    return isEof_;
}

void ForwardRecordset::MoveNext() {
    RequireRow();
    isEof_ = !reader_.Next(row_);
}

Value ForwardRecordset::Get(std::string_view field) const {
    RequireRow();
    return row_[database::PlaceOfField(reader_.Fields(), field, fileName_)];
}

void ForwardRecordset::Close() {
    RequireOpen();
    isOpen_ = false;
}

std::string ForwardRecordset::Place() const {
    return fileName_ + ", record " + std::to_string(reader_.RecordNumber());
}

void ForwardRecordset::RequireOpen() const {
    if (!isOpen_) database::ThrowClosed(fileName_);
}

void ForwardRecordset::RequireRow() const {
    RequireOpen();
    if (isEof_) database::ThrowNoCurrentRecord(fileName_);
}

}  // namespace platform::recordset_file
