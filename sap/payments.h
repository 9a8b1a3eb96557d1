// Payments as SAP journal entries: the customer's account against that of the means of payment.
#pragma once

#include <cstdint>
#include <string>

#include "platform/database/database.h"
#include "sap/transfer_context.h"

namespace sap {

// Books the payment lines of one receipt, read from the store database, in one entry.
void CreateReceiptPayments(const TransferContext& context,
                           platform::database::Database& storeDatabase, const std::int32_t& saleId);

// Books one payment of SalesDocument in one entry, on the account of CustomerPartner.
void CreateDocumentPayment(const TransferContext& context, std::int16_t paymentType, double amount,
                           const std::string& customerCode, const std::int32_t& saleNumber);

}  // namespace sap
