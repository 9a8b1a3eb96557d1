// Start-up: puts the program together, and owns everything process-wide for as long as it runs.
#pragma once

#include <string>

#include "app/app_settings.h"
#include "fileexport/export_run.h"
#include "platform/clock.h"
#include "platform/database/database.h"
#include "platform/operator.h"
#include "platform/process.h"
#include "platform/sapdi/company.h"
#include "platform/text_file.h"
#include "sap/transfer_driver.h"
#include "store/databases.h"
#include "ui/frm_main.h"
#include "ui/run_driver.h"
#include "ui/run_state.h"

namespace app {

// The world outside, handed in by the program or by a test.
struct Surroundings {
    platform::Operator& theOperator;
    platform::Clock& clock;
    platform::ProcessStarter& processStarter;
    platform::ProfileFunctions& profileFunctions;
    platform::database::DatabaseEngine& databaseEngine;
    platform::sapdi::Connector& sapConnector;
};

enum class AfterStartUp { Run, EndProgram };

// A start for the list alone changes no file: it may stand beside a server that works.
enum class StartFor { Work, Listing };

class StartUp {
  public:
    // `programFolder` is absolute.
    StartUp(std::string programFolder, const Surroundings& surroundings);
    StartUp(const StartUp&) = delete;  // its parts refer to each other
    StartUp& operator=(const StartUp&) = delete;

    // The start-up sequence, up to the loaded main window. EndProgram when the operator chose to
    // end it over a table that did not open. Errors leave it.
    [[nodiscard]] AfterStartUp Main(StartFor purpose = StartFor::Work);

    [[nodiscard]] const AppSettings& Settings() const { return appSettings_; }
    [[nodiscard]] ui::frmMain& Window() { return window_; }
    [[nodiscard]] ui::RunDriver& Driver() { return runDriver_; }

  private:
    void ReadSettings();
    void FinishWhatWasPosted();
    [[nodiscard]] ui::Transfers MakeTransfers();

    std::string programFolder_;
    Surroundings surroundings_;

    AppSettings appSettings_;
    store::Databases databases_;
    platform::TextFiles textFiles_;
    ui::frmMain window_;
    ui::RunState runState_;
    fileexport::ExportRun exportRun_;
    sap::SapObjects sapObjects_;
    sap::TransferDriver sapTransfer_;
    ui::RunDriver runDriver_;
};

}  // namespace app
