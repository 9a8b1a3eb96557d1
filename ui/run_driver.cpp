#include "ui/run_driver.h"

#include <algorithm>
#include <utility>

#include "platform/error.h"
#include "platform/norwegian.h"
#include "platform/text.h"
#include "ui/run_locks.h"

namespace ui {

RunDriver::RunDriver(const app::AppSettings& appSettings, frmMain& window, RunState& runState,
                     Transfers transfers, platform::Operator& theOperator,
                     const platform::Clock& clock, platform::ProcessStarter& processStarter)
    : appSettings_(appSettings),
      window_(window),
      runState_(runState),
      transfers_(std::move(transfers)),
      operator_(theOperator),
      clock_(clock),
      processStarter_(processStarter) {}

void RunDriver::StartDayEnd() {
    if (!AnythingSelected()) return;
    ProcessSelected();
    if (platform::Trim(appSettings_.DayEndCommand).empty()) {
        RefreshWindow();
        return;
    }
    StartDayEndCommand();
    try {
        RefreshWindow();
    } catch (const platform::RuntimeError&) {
        // kept: quiet-refresh. Where a command is configured, nothing after it stops the server.
    }
}

// The locks go before the command starts: it may be a server that needs them.
void RunDriver::ProcessSelected() {
    const RunLocks locks(appSettings_, !TransfersToSAP());
    for (ListEntry& entry : window_.ListDayEnd) {
        if (!entry.isSelected) continue;
        ProcessDataSet(entry.dataSet);
        entry.isSelected = false;
    }
}

bool RunDriver::AnythingSelected() const {
    return std::any_of(window_.ListDayEnd.begin(), window_.ListDayEnd.end(),
                       [](const ListEntry& entry) { return entry.isSelected; });
}

void RunDriver::ProcessDataSet(const store::DataSet& dataSet) {
    const std::string displayName = dataSet.DisplayName();
    runState_.CurrentDataSetName = dataSet.Name();
    window_.AppendStatusLine("Starter behandling av datasett " + displayName + ", " +
                             platform::ToText(clock_.Now()) + ".");
    runState_.DataSetHasErrors = false;
    Transfer(dataSet);
    if (runState_.DataSetHasErrors) {
        anyDataSetHadErrors_ = true;
        // kept: errors-in-capitals. The whole line, the data set's name too.
        window_.AppendStatusLine(platform::Upper("Datasett " + displayName +
                                                 " er ferdig behandlet MED FEIL!, " +
                                                 platform::ToText(clock_.Now()) + "."));
    } else {
        window_.AppendStatusLine("Datasett " + displayName + " er ferdig behandlet, " +
                                 platform::ToText(clock_.Now()) + ".");
    }
}

// kept: exact-sap. The setting as it stands decides: "sap" and " SAP" mean the file export.
bool RunDriver::TransfersToSAP() const {
    return appSettings_.AccountingSystem == "SAP";
}

void RunDriver::Transfer(const store::DataSet& dataSet) {
    if (TransfersToSAP()) {
        transfers_.TransferDataSetToSAP(dataSet);
    } else {
        transfers_.ExportDataSet(dataSet);
    }
}

void RunDriver::StartDayEndCommand() {
    bool started = false;
    try {
        started = processStarter_.Start(appSettings_.DayEndCommand);
    } catch (const platform::RuntimeError&) {
        // No command may stop the server; the operator is told below.
    }
    if (started) {
        operator_.DayEndCommandStarted(appSettings_.DayEndCommand);
    } else {
        operator_.Show(
            {appSettings_.AppTitle, "Kommandoen lot seg ikke kjøre", platform::Icon::Exclamation});
    }
}

void RunDriver::RefreshWindow() {
    window_.File.Refresh();
    window_.RefreshDataSetList();
}

}  // namespace ui
