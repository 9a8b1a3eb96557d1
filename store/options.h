// The store's single row of options, seen through the names of its columns. A member reads its
// field when it is asked: a table that did not open is an error only where an option is needed.
#pragma once

#include <string_view>

#include "platform/database/recordset.h"
#include "platform/object_variable.h"
#include "platform/value.h"

namespace store {

class Options {
  public:
    using Value = platform::Value;
    using Table = platform::ObjectVariable<platform::database::TableRecordset>;

    explicit Options(const Table& table) : table_(table) {}

    [[nodiscard]] Value NextVoucherNo() const { return Field("NextVoucherNo"); }
    [[nodiscard]] Value DeptNo() const { return Field("DeptNo"); }
    [[nodiscard]] Value CreditToOrder() const { return Field("CreditToOrder"); }  // true/false
    [[nodiscard]] Value GrossPrices() const { return Field("GrossPrices"); }      // 0: without VAT
    [[nodiscard]] Value StockNo() const { return Field("StockNo"); }
    [[nodiscard]] Value SalesAccount() const { return Field("SalesAccount"); }
    [[nodiscard]] Value DefaultVATCode() const { return Field("DefaultVATCode"); }
    [[nodiscard]] Value DefaultCustomerID() const { return Field("DefaultCustomerID"); }
    [[nodiscard]] Value SAPSalesPriceList() const { return Field("SAPSalesPriceList"); }  // from 1
    [[nodiscard]] Value SAPCostPriceList() const { return Field("SAPCostPriceList"); }    // from 1

    // A field that a ledger names: an account, or the name of a means of payment.
    [[nodiscard]] Value Field(std::string_view name) const { return table_->Get(name); }

    // The store may change its options while the server runs: each phase of a transfer looks anew.
    void Refresh() const {
        if (table_) table_->Refresh();
    }

    // The voucher number that follows, saved at once; null stays null.
    void AdvanceNextVoucherNo() const;

  private:
    const Table& table_;
};

}  // namespace store
