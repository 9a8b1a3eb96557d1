// The store's new and changed customers and products as SAP business partners and items.
#pragma once

#include <string>

#include "sap/transfer_context.h"
#include "store/master_data.h"

namespace sap {

// A row of the store as the routines take it: texts through NzText, a blank column is one blank.
struct Customer {
    std::string ID;
    std::string Name;
    std::string Address1;
    std::string Address2;
    std::string Address3;
    std::string Address4;
    std::string PostalCode;
    std::string PostalAddress;
    std::string Phone;
    std::string Fax;
    std::string CustPrGr;
    std::string CustPrG2;
    std::string EMail;
    std::string Discount;
};

struct Product {
    std::string ID;
    std::string Description;
    std::string BarCode;  // kept: fields-sap-never-gets
    double Price = 0;
    double CostPrice = 0;
};

[[nodiscard]] Customer CustomerOf(const store::Customer& row);
[[nodiscard]] Product ProductOf(const store::Product& row);

// Each answers true when SAP has taken the row. A failure is told to the operator and ends only
// this row; a changed row that SAP does not know gives false without a message.
[[nodiscard]] bool CreateCustomerInSAP(const TransferContext& context, const Customer& customer);
[[nodiscard]] bool UpdateCustomerInSAP(const TransferContext& context, const Customer& customer);
[[nodiscard]] bool CreateProductInSAP(const TransferContext& context, const Product& product);
[[nodiscard]] bool UpdateProductInSAP(const TransferContext& context, const Product& product);

}  // namespace sap
