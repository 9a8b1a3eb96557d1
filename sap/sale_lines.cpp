#include "sap/sale_lines.h"

#include "platform/database/field_names.h"
#include "platform/database/query_number.h"
#include "platform/norwegian.h"

namespace sap {

using platform::Value;
using platform::database::ClientRecordset;
using platform::database::FilterTerm;

namespace {

// kept: no-product-no-line. Of the second: null is neither equal nor unequal to a text.
constexpr const char* kFilters[] = {
    "TransType >= 1 and TransType <= 2",
    "TransType >= 1 and TransType <= 2 and ProductID <> 'Avrunding'",
    "TransType >= 10",
    "TransType = 15",
};

}  // namespace

const char* FilterOf(LineKind kind) {
    return kFilters[static_cast<std::size_t>(kind)];
}

SaleLines::SaleLines(const platform::recordset_file::PersistConnection& persistConnection,
                     const std::string& fileName)
    : rowSet_(persistConnection.LoadRows(fileName)) {
    for (const char* filter : kFilters)
        filters_.push_back(platform::database::ParseFilter(filter));
    const std::size_t salesId =
        platform::database::PlaceOfField(rowSet_->fields, "SalesID", rowSet_->source);
    for (std::size_t place = 0; place < rowSet_->rows.size(); ++place) {
        const Value& id = rowSet_->rows[place][salesId];
        if (platform::IsNumeric(id)) placesBySale_[KeyOf(id)].push_back(place);
    }
}

SaleLines::Key SaleLines::KeyOf(const Value& id) {
    const std::optional<std::int64_t> whole = platform::WholeNumberOf(id);
    return {whole, whole ? 0 : platform::ToDouble(id)};
}

std::unique_ptr<ClientRecordset> SaleLines::Open(LineKind kind, const Value& saleId) const {
    const Value id = platform::database::QueryNumber(saleId, "Sales.ID");
    const auto found = placesBySale_.find(KeyOf(id));
    std::vector<std::size_t> places;
    if (found != placesBySale_.end()) places = found->second;
    const std::vector<FilterTerm>& filter = filters_[static_cast<std::size_t>(kind)];
    return std::make_unique<ClientRecordset>(
        rowSet_, platform::database::PlacesThatPass(filter, *rowSet_, places));
}

}  // namespace sap
