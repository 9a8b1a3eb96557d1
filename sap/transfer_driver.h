// The SAP transfer: carries one data set into SAP Business One.
#pragma once

#include "platform/clock.h"
#include "platform/sapdi/company.h"
#include "sap/sale_lines.h"
#include "sap/transfer_context.h"
#include "store/data_set.h"
#include "store/databases.h"
#include "store/sale.h"
#include "store/waiting_files.h"
#include "ui/run_state.h"
#include "ui/status_log.h"

namespace sap {

[[nodiscard]] bool DocumentsAreWanted(const app::AppSettings& appSettings);

class TransferDriver {
  public:
    TransferDriver(const app::AppSettings& appSettings, const store::Databases& databases,
                   ui::RunState& runState, SapObjects& objects, ui::StatusLog& statusLog,
                   platform::Operator& theOperator, const platform::Clock& clock,
                   platform::sapdi::Connector& connector);

    // Transfers one data set: master data first, which stays in SAP whatever follows, then all
    // sales in one transaction. The answer is always false.
    bool TransferDataSetToSAP(const store::DataSet& dataSet);

    // Gives the files of waiting days that SAP holds already their finished names: a server was
    // ended before it did. Where that can not be known without asking for a password, each such day
    // is finished when it is started.
    void FinishPostedDays();

  private:
    [[nodiscard]] bool ValidateSales() const;
    [[nodiscard]] bool OpenSales(const store::WaitingFiles& files);
    [[nodiscard]] bool FinishedAsPosted(const store::DataSet& dataSet,
                                        const store::WaitingFiles& files);
    void TransferMasterData();
    void TransferSales(const store::WaitingFiles& files);
    void TransferSale(const store::Sale& sale, const SaleLines& saleLines);
    void Complete(const store::WaitingFiles& files);
    void Commit(const store::WaitingFiles& files);
    [[nodiscard]] bool DocumentsAreWanted() const {
        return sap::DocumentsAreWanted(context_.AppSettings);
    }

    const store::Databases& databases_;
    ui::RunState& runState_;
    TransferContext context_;
    ui::StatusLog& statusLog_;
    const platform::Clock& clock_;
    platform::sapdi::Connector& connector_;
};

}  // namespace sap
