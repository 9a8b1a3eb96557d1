// The SAP transfer: carries one data set into SAP Business One.
#pragma once

#include <string>

#include "platform/clock.h"
#include "platform/sapdi/company.h"
#include "sap/sale_lines.h"
#include "sap/transfer_context.h"
#include "ui/frm_main.h"

namespace sap {

class TransferDriver {
  public:
    TransferDriver(const TransferContext& context, ui::frmMain& window,
                   const platform::Clock& clock, platform::sapdi::Connector& connector);

    // Transfers one data set: master data first, which stays in SAP whatever follows, then all
    // sales in one transaction. The answer is always false.
    bool TransferDataSetToSAP(const std::string& dataSetName);

  private:
    [[nodiscard]] bool ValidateSales() const;
    [[nodiscard]] bool OpenSales(const std::string& dataSetName);
    void TransferMasterData();
    void TransferSales(const std::string& dataSetName);
    void TransferSale(const SaleLines& saleLines);
    void Complete(const std::string& dataSetName);
    [[nodiscard]] bool DocumentsAreWanted() const;

    TransferContext context_;
    ui::frmMain& window_;
    const platform::Clock& clock_;
    platform::sapdi::Connector& connector_;
};

}  // namespace sap
