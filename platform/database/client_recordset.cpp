#include "platform/database/client_recordset.h"

#include <algorithm>
#include <utility>

#include "platform/database/field_names.h"
#include "platform/database/filter.h"
#include "platform/database/recordset_errors.h"

namespace platform {
namespace {

struct PlacedTerm {
    std::size_t field;
    FilterTerm term;
};

std::vector<PlacedTerm> PlacedTerms(const RowSet& rowSet, std::string_view filter) {
    std::vector<PlacedTerm> placed;
    for (FilterTerm& term : ParseFilter(filter)) {
        const std::size_t field = PlaceOfField(rowSet.fields, term.field, rowSet.source);
        placed.push_back({field, std::move(term)});
    }
    return placed;
}

bool Takes(const std::vector<PlacedTerm>& terms, const Row& row) {
    return std::ranges::all_of(
        terms, [&row](const PlacedTerm& term) { return Passes(term.term, row[term.field]); });
}

}  // namespace

Value RowSaver::Fit(int, Value value) const {
    return value;
}

ClientRecordset::ClientRecordset(std::shared_ptr<RowSet> rowSet, std::unique_ptr<RowSaver> saver)
    : source_(rowSet->source), rowSet_(std::move(rowSet)), saver_(std::move(saver)) {}

ClientRecordset::ClientRecordset(std::shared_ptr<RowSet> rowSet, std::vector<std::size_t> places)
    : source_(rowSet->source), rowSet_(std::move(rowSet)), all_(std::move(places)), view_(all_) {}

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

long ClientRecordset::AbsolutePosition() const {
    return IsEof() ? -1 : static_cast<long>(current_) + 1;
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

int ClientRecordset::FieldCount() const {
    return static_cast<int>(Rows().fields.size());
}

Value ClientRecordset::Field(std::size_t field) const {
    const std::size_t place = CurrentPlace();
    return change_ ? change_->row[field] : rowSet_->rows[place][field];
}

Value ClientRecordset::Get(std::string_view field) const {
    return Field(PlaceOfField(Rows().fields, field, source_));
}

Value ClientRecordset::Get(int position) const {
    return Field(PlaceOfField(Rows().fields, position, source_));
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

void ClientRecordset::SetFilter(std::string_view filter) {
    const std::vector<PlacedTerm> terms = PlacedTerms(Rows(), filter);
    if (terms.empty()) {
        view_ = all_;
    } else {
        std::vector<std::size_t> taken;
        const std::size_t count = all_ ? all_->size() : rowSet_->rows.size();
        for (std::size_t i = 0; i < count; ++i) {
            const std::size_t place = all_ ? (*all_)[i] : i;
            if (Takes(terms, rowSet_->rows[place])) taken.push_back(place);
        }
        view_ = std::move(taken);
    }
    MoveTo(0);
}

void ClientRecordset::Close() {
    if (!rowSet_) ThrowClosed(source_);
    change_.reset();
    saver_.reset();
    rowSet_.reset();
}

}  // namespace platform
