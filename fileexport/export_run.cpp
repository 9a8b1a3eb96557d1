#include "fileexport/export_run.h"

#include "fileexport/master_data.h"
#include "fileexport/order_file.h"
#include "fileexport/placing.h"
#include "fileexport/vouchers.h"
#include "platform/files.h"
#include "store/data_set.h"
#include "store/import.h"

namespace fileexport {

using platform::Answer;

namespace {

constexpr const char* kOrderFileStart = "7;6;";

}  // namespace

ExportRun::ExportRun(const app::AppSettings& appSettings, const store::Databases& databases,
                     ui::RunState& runState, ui::frmMain& window, platform::Operator& theOperator,
                     const platform::Clock& clock, platform::TextFiles& textFiles)
    : appSettings_(appSettings),
      databases_(databases),
      runState_(runState),
      window_(window),
      operator_(theOperator),
      clock_(clock),
      textFiles_(textFiles) {}

bool ExportRun::ExportDataSet(const std::string& dataSetName) {
    if (!ui::DataSetFilesExist(dataSetName, window_)) return false;
    store::ImportDataSet(dataSetName, *databases_.WorkConnection);
    OpenSales(dataSetName);
    if (runState_.SalesRecordset->AbsolutePosition() < 0) return false;  // a day without sales

    OpenVoucherFile();
    OpenOrderFile();
    WriteOrderFileBody(*orderFile_, recordCounter_, dataSetName, runState_, databases_);
    // From here on records lose their marks for good, so what can be known to fail fails before,
    // even for an operator who would say No at the end.
    orderFile_->Flush();
    RequireRoomForPlacing(dataSetName);
    runState_.SalesRecordset->MoveFirst();
    WriteMasterData(*voucherFile_, databases_);
    Vouchers(*voucherFile_, recordCounter_, databases_, runState_, clock_).Write();

    if (ui::OperatorWantsRenaming(runState_, operator_, appSettings_.AppTitle)) {
        RequireRoomForPlacing(dataSetName);
        CloseImportFiles();
        PlaceDay({dataSetName, appSettings_.EDIFileName, appSettings_.VoucherFileName}, clock_);
    } else {
        // The order file's working copy stays open, so that the next data set of this run fails
        // rather than following a day that was not taken.
        DiscardVoucherFile();
    }
    return false;
}

void ExportRun::OpenSales(const std::string& dataSetName) {
    ui::OpenPersistConnection(runState_);
    runState_.SalesRecordset =
        runState_.PersistConnection->OpenRecordset(store::SalesFileName(dataSetName));
}

void ExportRun::OpenVoucherFile() {
    const std::string& name = appSettings_.VoucherFileName;
    if (platform::FileExists(name) && !OperatorWantsOverwriting()) {
        textFiles_.Copy(name, WorkingCopy(name));
        voucherFile_ = textFiles_.OpenForAppend(WorkingCopy(name));
    } else {
        voucherFile_ = textFiles_.OpenForOutput(WorkingCopy(name));
    }
}

// An existing order file is always extended, whatever Overwrite says: orders of several days wait
// in it until the accounting package has taken them.
void ExportRun::OpenOrderFile() {
    const std::string& name = appSettings_.EDIFileName;
    if (platform::FileExists(name)) {
        textFiles_.Copy(name, WorkingCopy(name));
        orderFile_ = textFiles_.OpenForAppend(WorkingCopy(name));
    } else {
        orderFile_ = textFiles_.OpenForOutput(WorkingCopy(name));
        orderFile_->WriteLine(kOrderFileStart);
    }
}

bool ExportRun::OperatorWantsOverwriting() {
    runState_.LastAnswer = Answer::Yes;
    if (appSettings_.Overwrite != "1") {
        runState_.LastAnswer = operator_.Ask(
            {std::nullopt, "Filen med bunter og bilag finnes fra før. Skal den overskrives?",
             platform::Icon::Question, Answer::No});
    }
    return runState_.LastAnswer == Answer::Yes;
}

// What can be known to fail later fails here, before the first file is placed: a day that is placed
// in part keeps the server from starting until the reason is mended.
void ExportRun::RequireRoomForPlacing(const std::string& dataSetName) const {
    platform::RequirePlaceForFile(appSettings_.EDIFileName);
    platform::RequirePlaceForFile(appSettings_.VoucherFileName);
    platform::RequireWritableFolderOf(store::SalesFileName(dataSetName));
}

// Both working copies are complete on disk before the first of them takes its name, and each takes
// it in one step: a full disk leaves both configured files as they were.
void ExportRun::CloseImportFiles() {
    orderFile_->Close();
    CloseVoucherFile(*voucherFile_);
}

void ExportRun::DiscardVoucherFile() {
    CloseVoucherFile(*voucherFile_);
    platform::DeleteFile(WorkingCopy(appSettings_.VoucherFileName));
}

}  // namespace fileexport
