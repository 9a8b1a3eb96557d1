#include "platform/recordset_file/forward_recordset.h"

#include "platform/error.h"
#include "platform/text.h"

namespace platform {

namespace {

[[noreturn]] void ThrowForwardOnly() {
    throw RuntimeError(error_number::kReadOnly, "The recordset is read once, from start to end");
}

}  // namespace

ForwardRecordset::ForwardRecordset(std::string_view fileName) : reader_(fileName) {
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
    for (std::size_t i = 0; i < row_.size(); ++i) {
        if (EqualsIgnoreCase(reader_.Fields()[i], field)) return row_[i];
    }
    throw RuntimeError(error_number::kFieldNotFound,
                       "Item not found: no field " + std::string(field) + " in the recordset");
}

Value ForwardRecordset::Get(int position) const {
    RequireRow();
    if (position >= 0 && position < FieldCount()) return row_[static_cast<std::size_t>(position)];
    throw RuntimeError(error_number::kFieldNotFound,
                       "Item not found: no field at position " + std::to_string(position));
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
    if (isOpen_) return;
    throw RuntimeError(error_number::kObjectClosed,
                       "Operation is not allowed when the object is closed");
}

void ForwardRecordset::RequireRow() const {
    RequireOpen();
    if (isEof_) throw RuntimeError(error_number::kNoCurrentRecord, "No current record");
}

}  // namespace platform
