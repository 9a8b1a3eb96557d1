#include "control/day_file.h"

#include <algorithm>
#include <utility>

#include "control/reason.h"
#include "control/values.h"
#include "platform/database/field_names.h"
#include "platform/error.h"
#include "platform/norwegian.h"
#include "platform/recordset_file/read_ahead.h"
#include "platform/text.h"

namespace control {

using platform::RuntimeError;
using platform::Value;

platform::Value RowView::Get(std::string_view field) const {
    return ValueAt(values_, platform::database::PlaceOfField(names_, field, "datasettet"));
}

DayFile::DayFile(const Shop& shop, Findings& findings, std::string fileName, const char* table,
                 const char* saleColumn)
    : findings_(findings),
      fileName_(std::move(fileName)),
      saleColumn_(saleColumn),
      workTable_(shop.WorkTable(table)) {}

bool DayFile::Walk(const std::function<void(const std::vector<std::string>& names)>& begin,
                   const std::function<void(const FileRow& row)>& take) {
    try {
        platform::recordset_file::ReadAhead file(fileName_);
        const bool hasColumns = TakeColumns(file.Fields());
        if (hasColumns) begin(names_);
        std::vector<Value> row;
        while (file.Next(row)) {
            if (hasColumns) take({names_, row, IsRefused(row)});
        }
        return hasColumns;
    } catch (const RuntimeError& error) {
        TellFault(error);
        return false;
    }
}

bool DayFile::TakeColumns(const std::vector<std::string>& fields) {
    names_ = fields;
    if (!workTable_) return true;
    const auto count = static_cast<std::size_t>(workTable_->FieldCount());
    for (std::size_t i = 0; i < std::min(count, fields.size()); ++i) {
        names_[i] = workTable_->FieldName(static_cast<int>(i));
        if (platform::EqualsIgnoreCase(names_[i], fields[i])) continue;
        findings_.Add("K104", {.field = names_[i], .value = fields[i]});
    }
    if (fields.size() >= count) return true;
    findings_.Add("K103", {.field = workTable_->FieldName(static_cast<int>(fields.size())),
                           .value = std::to_string(fields.size())});
    return false;
}

// By the very conversions of the import, whose row is not saved.
bool DayFile::IsRefused(const std::vector<Value>& row) {
    if (!workTable_) return false;
    bool isRefused = false;
    for (int i = 0; i < workTable_->FieldCount(); ++i) {
        const Value& value = row[static_cast<std::size_t>(i)];
        try {
            workTable_->Set(i, value);
        } catch (const RuntimeError&) {
            Place place = PlaceOf(row);
            place.field = workTable_->FieldName(i);
            place.value = platform::ToText(value);
            findings_.Add("K105", place);
            isRefused = hasRefusals_ = true;
        }
    }
    return isRefused;
}

void DayFile::TellFault(const RuntimeError& error) {
    const ReaderFault fault = FaultOf(error, fileName_);
    if (fault.column) {
        findings_.Add("K105", {.field = fault.column, .value = fault.value});
    } else {
        const std::string at =
            fault.fileLine ? ", linje " + std::to_string(*fault.fileLine) : std::string();
        findings_.Add("K102", {.line = fault.fileLine,
                               .field = fileName_,
                               .value = fault.reason,
                               .text = "Filen {field} kan ikke leses: {value}."});
    }
}

Place DayFile::PlaceOf(const std::vector<Value>& row) const {
    return {.sale = TextOf(ValueAt(row, ColumnPlace(names_, saleColumn_))),
            .line = WholeOf(ValueAt(row, ColumnPlace(names_, "LineNo")))};
}

std::size_t ColumnPlace(const std::vector<std::string>& names, std::string_view name) {
    const auto found = std::ranges::find_if(
        names, [&](const std::string& each) { return platform::EqualsIgnoreCase(each, name); });
    return found == names.end() ? kNoColumn : static_cast<std::size_t>(found - names.begin());
}

const Value& ValueAt(const std::vector<Value>& row, std::size_t place) {
    static const Value kNull;
    return place < row.size() ? row[place] : kNull;
}

}  // namespace control
