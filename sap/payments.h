// Payments as SAP journal entries: the customer's account against that of the means of payment.
#pragma once

#include <cstdint>
#include <string>

#include "sap/transfer_context.h"

namespace sap {

// Books the payment lines of one receipt, read from the store database, in one entry.
void CreateReceiptPayments(const TransferContext& context, const std::int32_t& saleId);

// Books one payment of SalesDocument in one entry. The customer's account is that of
// CustomerPartner.
void CreateDocumentPayment(const TransferContext& context, std::int16_t paymentType, double amount,
                           const std::string& customerCode, const std::int32_t& saleNumber);

}  // namespace sap
