// The run over the selected data sets: what happens when Start is pressed.
#pragma once

#include <string>

#include "app/app_settings.h"
#include "platform/clock.h"
#include "platform/operator.h"
#include "platform/process.h"
#include "ui/frm_main.h"
#include "ui/run_state.h"

namespace ui {

class RunDriver {
  public:
    RunDriver(const app::AppSettings& appSettings, frmMain& window, RunState& runState,
              Transfers transfers, platform::Operator& theOperator, const platform::Clock& clock,
              platform::ProcessStarter& processStarter);

    // Transfers each selected data set in list order, then starts the day-end command and rebuilds
    // the list. Without a selection it does nothing at all; where another server holds what the run
    // writes to, neither, but for error 70. An error that escapes a transfer
    // escapes here too: the remaining data sets are not processed.
    void StartDayEnd();

    // Whether a data set of any run so far ended with the error flag.
    [[nodiscard]] bool AnyDataSetHadErrors() const { return anyDataSetHadErrors_; }

  private:
    [[nodiscard]] bool AnythingSelected() const;
    void ProcessSelected();
    void ProcessDataSet(const store::DataSet& dataSet);
    [[nodiscard]] bool TransfersToSAP() const;
    void Transfer(const store::DataSet& dataSet);
    void StartDayEndCommand();
    void RefreshWindow();

    const app::AppSettings& appSettings_;
    frmMain& window_;
    RunState& runState_;
    Transfers transfers_;
    platform::Operator& operator_;
    const platform::Clock& clock_;
    platform::ProcessStarter& processStarter_;
    bool anyDataSetHadErrors_ = false;
};

}  // namespace ui
