#include "sap/sale_lines.h"

#include "platform/database/field_names.h"
#include "platform/database/literal.h"
#include "platform/norwegian.h"

namespace sap {

SaleLines::SaleLines(const platform::PersistConnection& persistConnection,
                     const std::string& fileName)
    : rowSet_(persistConnection.LoadRows(fileName)) {
    const std::size_t salesId = platform::PlaceOfField(rowSet_->fields, "SalesID", rowSet_->source);
    for (std::size_t place = 0; place < rowSet_->rows.size(); ++place) {
        const platform::Value& id = rowSet_->rows[place][salesId];
        if (platform::IsNumeric(id)) placesBySale_[platform::ToDouble(id)].push_back(place);
    }
}

std::unique_ptr<platform::Recordset> SaleLines::Open(const std::string& filter,
                                                     const platform::Value& saleId) const {
    const std::string id = platform::NumberLiteral(saleId, "Sales.ID");
    const auto places = placesBySale_.find(platform::ToDouble(saleId));
    auto lines = std::make_unique<platform::ClientRecordset>(
        rowSet_, places == placesBySale_.end() ? std::vector<std::size_t>{} : places->second);
    lines->SetFilter(filter + " and SalesID = " + id);
    return lines;
}

}  // namespace sap
