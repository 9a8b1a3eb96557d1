#include "platform/recordset_file/forward_recordset.h"

#include "platform/database/field_names.h"
#include "platform/database/recordset_errors.h"
#include "platform/error.h"

namespace platform {

namespace {

[[noreturn]] void ThrowForwardOnly() {
    throw RuntimeError(error_number::kReadOnly, "The recordset is read once, from start to end");
}

}  // namespace

ForwardRecordset::ForwardRecordset(std::string_view fileName)
    : fileName_(fileName), reader_(fileName) {
    isEof_ = !reader_.Next(row_);
}

bool ForwardRecordset::IsEof() const {
    RequireOpen();
    return isEof_;
}

long ForwardRecordset::AbsolutePosition() const {
    RequireOpen();
    return isEof_ ? -1 : reader_.RecordNumber();
}

long ForwardRecordset::RecordCount() const {
    RequireOpen();
    return -1;
}

void ForwardRecordset::MoveFirst() {
    RequireRow();
    if (reader_.RecordNumber() != 1) ThrowForwardOnly();
}

void ForwardRecordset::MoveNext() {
    RequireRow();
    isEof_ = !reader_.Next(row_);
}

int ForwardRecordset::FieldCount() const {
    RequireOpen();
    return static_cast<int>(reader_.Fields().size());
}

Value ForwardRecordset::Get(std::string_view field) const {
    RequireRow();
    return row_[PlaceOfField(reader_.Fields(), field, fileName_)];
}

Value ForwardRecordset::Get(int position) const {
    RequireRow();
    return row_[PlaceOfField(reader_.Fields(), position, fileName_)];
}

void ForwardRecordset::Edit() {
    ThrowForwardOnly();
}
void ForwardRecordset::Set(std::string_view /*field*/, Value /*value*/) {
    ThrowForwardOnly();
}
void ForwardRecordset::Update() {
    ThrowForwardOnly();
}
void ForwardRecordset::SetFilter(std::string_view /*filter*/) {
    ThrowForwardOnly();
}

void ForwardRecordset::Close() {
    RequireOpen();
    isOpen_ = false;
}

void ForwardRecordset::RequireOpen() const {
    if (!isOpen_) ThrowClosed(fileName_);
}

void ForwardRecordset::RequireRow() const {
    RequireOpen();
    if (isEof_) ThrowNoCurrentRecord(fileName_);
}

}  // namespace platform
