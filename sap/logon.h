// The one connection to the SAP company: made with the settings and the operator's answers, and
// closed with or without what was sent.
#pragma once

#include "app/app_settings.h"
#include "platform/operator.h"
#include "platform/sapdi/company.h"
#include "sap/transfer_context.h"

namespace sap {

// Creates SAPCompany, asks for each credential that the settings leave blank, and connects. A
// failed connect is told to the operator and gives false.
[[nodiscard]] bool LogonToSAP(const TransferContext& context,
                              platform::sapdi::Connector& connector);

// Connects likewise where the settings leave nothing to ask for, and tells nobody. False where they
// do, and where the connect fails.
[[nodiscard]] bool LogonUnasked(const TransferContext& context,
                                platform::sapdi::Connector& connector);

// Ends an open transaction, disconnects and releases SAPCompany.
void CloseSAPCompany(const TransferContext& context, platform::sapdi::TransactionEnd end);

}  // namespace sap
