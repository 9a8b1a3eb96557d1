#include "platform/database/client_recordset.h"

#include <algorithm>
#include <utility>

#include "platform/database/field_names.h"
#include "platform/database/recordset_errors.h"

namespace platform::database {

Value RowSaver::Fit(int, Value value) const {
    return value;
}

ClientRecordset::ClientRecordset(std::shared_ptr<RowSet> rowSet, std::unique_ptr<RowSaver> saver)
    : source_(rowSet->source), rowSet_(std::move(rowSet)), saver_(std::move(saver)) {}

ClientRecordset::ClientRecordset(std::shared_ptr<RowSet> rowSet, std::vector<std::size_t> places)
    : source_(rowSet->source), rowSet_(std::move(rowSet)), view_(std::move(places)) {}

const RowSet& ClientRecordset::Rows() const {
    if (!rowSet_) ThrowClosed(source_);
    return *rowSet_;
}

std::size_t ClientRecordset::Count() const {
    const RowSet& rowSet = Rows();
    return view_ ? view_->size() : rowSet.rows.size();
}

std::size_t ClientRecordset::CurrentPlace() const {
    if (current_ >= Count()) ThrowNoCurrentRecord(source_);
    return view_ ? (*view_)[current_] : current_;
}

void ClientRecordset::MoveTo(std::size_t number) {
    current_ = number;
    change_.reset();
}

bool ClientRecordset::IsEof() const {
    return current_ >= Count();
}

long ClientRecordset::RecordCount() const {
    return static_cast<long>(Count());
}

void ClientRecordset::MoveFirst() {
    if (Count() == 0) ThrowNoCurrentRecord(source_);
    MoveTo(0);
}

void ClientRecordset::MoveNext() {
    if (IsEof()) ThrowNoCurrentRecord(source_);
    MoveTo(current_ + 1);
}

Value ClientRecordset::Get(std::string_view field) const {
    const std::size_t position = PlaceOfField(Rows().fields, field, source_);
    const std::size_t place = CurrentPlace();
    return change_ ? change_->row[position] : rowSet_->rows[place][position];
}

void ClientRecordset::Edit() {
    const std::size_t place = CurrentPlace();
    change_ = Change{rowSet_->rows[place], {}};
}

void ClientRecordset::Set(std::string_view field, Value value) {
    const std::size_t place = PlaceOfField(Rows().fields, field, source_);
    if (!change_) ThrowNotEditing();
    const int number = static_cast<int>(place);
    change_->row[place] = saver_ ? saver_->Fit(number, std::move(value)) : std::move(value);
    if (std::ranges::find(change_->fields, number) == change_->fields.end()) {
        change_->fields.push_back(number);
    }
}

void ClientRecordset::Update() {
    const std::size_t place = CurrentPlace();
    if (!change_) ThrowNotEditing();
    if (saver_) saver_->Save(place, change_->row, change_->fields);
    rowSet_->rows[place] = std::move(change_->row);
    change_.reset();
}

SinceRead ClientRecordset::Refresh() {
    const std::size_t place = CurrentPlace();
    change_.reset();
    if (!saver_) return SinceRead::Unchanged;
    std::optional<Row> stored = saver_->Stored(place);
    if (!stored) return SinceRead::Gone;
    if (*stored == rowSet_->rows[place]) return SinceRead::Unchanged;
    rowSet_->rows[place] = std::move(*stored);
    return SinceRead::Changed;
}

void ClientRecordset::Close() {
    if (!rowSet_) ThrowClosed(source_);
    change_.reset();
    saver_.reset();
    rowSet_.reset();
}

}  // namespace platform::database
