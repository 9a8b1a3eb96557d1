#include "app/start_up.h"

#include <utility>

#include "fileexport/placed_files.h"
#include "fileexport/placing.h"
#include "platform/error.h"
#include "platform/files.h"

namespace app {

StartUp::StartUp(std::string programFolder, const Surroundings& surroundings)
    : programFolder_(std::move(programFolder)),
      surroundings_(surroundings),
      window_(appSettings_, surroundings.theOperator),
      exportRun_(appSettings_, databases_, runState_, window_, surroundings.theOperator,
                 surroundings.clock, textFiles_),
      sapTransfer_(appSettings_, databases_, runState_, sapObjects_, window_,
                   surroundings.theOperator, surroundings.clock, surroundings.sapConnector),
      runDriver_(appSettings_, window_, runState_, MakeTransfers(), surroundings.theOperator,
                 surroundings.clock, surroundings.processStarter) {}

AfterStartUp StartUp::Main(StartFor purpose) {
    platform::ChangeDirectory(programFolder_);
    ReadSettings();
    store::OpenConnections(surroundings_.databaseEngine, appSettings_.Datapath, databases_);
    if (store::OpenTables(databases_, surroundings_.theOperator, appSettings_.AppTitle) ==
        store::AfterOpening::EndProgram) {
        return AfterStartUp::EndProgram;
    }
    DeriveAccountingFlags(appSettings_);
    if (purpose == StartFor::Work) FinishWhatWasPosted();
    window_.Load();
    return AfterStartUp::Run;
}

void StartUp::ReadSettings() {
    INIClass iniFile(surroundings_.profileFunctions);
    ReadServerSettings(iniFile, programFolder_, appSettings_);
    appSettings_.AppTitle = "Dagsoppgjør for Kassovia";
    ReadStoreSettings(iniFile, programFolder_, surroundings_.clock, appSettings_);
}

// A server may have been ended after it posted a day: the list must not offer that again.
void StartUp::FinishWhatWasPosted() {
    const auto dataSet = fileexport::FinishInterruptedDay(surroundings_.clock);
    if (dataSet) {
        window_.AppendStatusLine("Datasett " + dataSet->DisplayName() +
                                 " ble avbrutt mens filene ble lagt på plass, og er nå ferdig.");
    }
    fileexport::FinishFilesThatCameBack(surroundings_.clock, window_);
    if (appSettings_.AccountingSystem == "SAP") sapTransfer_.FinishPostedDays();
}

ui::Transfers StartUp::MakeTransfers() {
    return {[this](const store::DataSet& dataSet) { return exportRun_.ExportDataSet(dataSet); },
            [this](const store::DataSet& dataSet) {
                return sapTransfer_.TransferDataSetToSAP(dataSet);
            }};
}

}  // namespace app
