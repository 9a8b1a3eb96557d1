// A line of a sale, seen through the names of its columns, like Sale.
#pragma once

#include "platform/database/recordset.h"
#include "platform/value.h"

namespace store {

class SaleLine {
  public:
    using Value = platform::Value;

    explicit SaleLine(const platform::database::Record& record) : record_(record) {}

    [[nodiscard]] Value SalesID() const { return record_.Get("SalesID"); }
    [[nodiscard]] Value TransType() const { return record_.Get("TransType"); }  // store::trans_type
    [[nodiscard]] Value ProductID() const { return record_.Get("ProductID"); }
    [[nodiscard]] Value Description() const { return record_.Get("Description"); }
    [[nodiscard]] Value Qty() const { return record_.Get("Qty"); }
    [[nodiscard]] Value Price() const { return record_.Get("Price"); }        // of one, with VAT
    [[nodiscard]] Value Discount() const { return record_.Get("Discount"); }  // per cent
    [[nodiscard]] Value CostPrice() const { return record_.Get("CostPrice"); }
    [[nodiscard]] Value Amount() const { return record_.Get("Amount"); }  // signed
    [[nodiscard]] Value VatCode() const { return record_.Get("VatCode"); }
    [[nodiscard]] Value SalesAccount() const { return record_.Get("SalesAccount"); }
    // The customer's reference, on the payment of an invoice.
    [[nodiscard]] Value String1() const { return record_.Get("String1"); }

  private:
    const platform::database::Record& record_;
};

}  // namespace store
