// The rules of the SAP transfer for the sales and lines of a data set.
#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "control/day_file.h"
#include "control/sale_table.h"
#include "control/sap_company.h"
#include "platform/database/filter.h"
#include "store/sale.h"

namespace control {

// The lines that one of the transfer's filters takes.
class LineFilter {
  public:
    explicit LineFilter(const char* filter) : terms_(platform::database::ParseFilter(filter)) {}

    void Begin(const std::vector<std::string>& names);
    [[nodiscard]] bool Takes(const std::vector<platform::Value>& row) const;

  private:
    std::vector<platform::database::FilterTerm> terms_;
    std::vector<std::size_t> places_;
};

class SapCheck {
  public:
    SapCheck(const Shop& shop, Findings& findings);

    void TakeNumber(const platform::Value& id, const Place& place);

    // Whether the company has the customer of the sale's document, or gets it.
    [[nodiscard]] bool TakeCustomer(const store::Sale& sale, const SaleRecord& record);
    [[nodiscard]] const std::string& CustomerCode() const { return customerCode_; }  // of the last

    void BeginLines(const std::vector<std::string>& names);
    void TakeLine(const FileRow& row, SaleRecord& sale, const Place& place);

    // Once all lines of the sale are known.
    void CheckSale(const SaleRecord& sale, const std::string& customer);

  private:
    void TakeDocumentLine(const FileRow& row, const Place& place);
    [[nodiscard]] bool HasNumbers(const FileRow& row, const Place& place);

    const Shop& shop_;
    Findings& findings_;
    SapCompany company_;
    bool documentsAreWanted_;
    std::string customerCode_;
    LineFilter items_, itemsButRounding_, paidInvoices_;
    std::size_t quantity_ = kNoColumn, discount_ = kNoColumn;
};

}  // namespace control
