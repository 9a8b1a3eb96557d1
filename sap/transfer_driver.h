// The SAP transfer: carries one data set into SAP Business One.
#pragma once

#include "platform/clock.h"
#include "platform/sapdi/company.h"
#include "sap/sale_lines.h"
#include "sap/transfer_context.h"
#include "store/data_set.h"
#include "store/databases.h"
#include "store/sale.h"
#include "ui/run_state.h"
#include "ui/status_log.h"

namespace sap {

class TransferDriver {
  public:
    TransferDriver(const app::AppSettings& appSettings, const store::Databases& databases,
                   ui::RunState& runState, SapObjects& objects, ui::StatusLog& statusLog,
                   platform::Operator& theOperator, const platform::Clock& clock,
                   platform::sapdi::Connector& connector);

    // Transfers one data set: master data first, which stays in SAP whatever follows, then all
    // sales in one transaction. The answer is always false.
    bool TransferDataSetToSAP(const store::DataSet& dataSet);

  private:
    [[nodiscard]] bool ValidateSales() const;
    [[nodiscard]] bool OpenSales(const store::DataSet& dataSet);
    void TransferMasterData();
    void TransferSales(const store::DataSet& dataSet);
    void TransferSale(const store::Sale& sale, const SaleLines& saleLines);
    void Complete(const store::DataSet& dataSet);
    [[nodiscard]] bool DocumentsAreWanted() const;

    const store::Databases& databases_;
    ui::RunState& runState_;
    TransferContext context_;
    ui::StatusLog& statusLog_;
    const platform::Clock& clock_;
    platform::sapdi::Connector& connector_;
};

}  // namespace sap
