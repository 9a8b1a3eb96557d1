#include "fileexport/export_run.h"

#include "fileexport/master_data.h"
#include "fileexport/order_file.h"
#include "fileexport/placing.h"
#include "fileexport/vouchers.h"
#include "platform/files.h"
#include "store/import.h"

namespace fileexport {

using platform::Answer;

namespace {

constexpr const char* kOrderFileStart = "7;6;";

}  // namespace

ExportRun::ExportRun(const app::AppSettings& appSettings, const store::Databases& databases,
                     ui::RunState& runState, ui::StatusLog& statusLog,
                     platform::Operator& theOperator, const platform::Clock& clock,
                     platform::TextFiles& textFiles)
    : appSettings_(appSettings),
      databases_(databases),
      options_(databases.OptionsTable),
      runState_(runState),
      statusLog_(statusLog),
      operator_(theOperator),
      clock_(clock),
      textFiles_(textFiles) {}

bool ExportRun::ExportDataSet(const store::DataSet& dataSet) {
    if (!ui::DataSetFilesExist(dataSet, statusLog_)) return false;
    for (const auto* name : {&appSettings_.EDIFileName, &appSettings_.VoucherFileName})
        platform::RequireFileOrNothing(*name);
    const store::WaitingFiles files(dataSet);
    files.GiveUpFinishedNames();
    store::ImportDataSet(files, *databases_.WorkConnection);
    OpenSales(files);
    if (runState_.SalesRecordset->IsEof()) return false;  // kept: quiet-ends. Nobody is told.

    OpenVoucherFile();
    OpenOrderFile();
    WriteOrders(files);
    // From here on records lose their marks for good, so what can be known to fail fails before,
    // even for an operator who would say No at the end.
    orderFile_->Flush();
    RequireRoomForPlacing(files);
    WriteMasterData(*voucherFile_, *databases_.StoreDatabase, options_);
    WriteVouchers();

    if (ui::OperatorWantsRenaming(runState_, operator_, appSettings_.AppTitle)) {
        Place(dataSet, files);
    } else {
        // kept: orders-left-open. The order file's working copy stays, open: the next data set of
        // this program ends with error 55.
        DiscardVoucherFile();
    }
    return false;
}

void ExportRun::OpenSales(const store::WaitingFiles& files) {
    ui::OpenPersistConnection(runState_);
    runState_.SalesRecordset = runState_.PersistConnection->OpenRecordset(files.SalesFile());
}

void ExportRun::WriteOrders(const store::WaitingFiles& files) {
    const auto lines = runState_.PersistConnection->OpenForwardOnly(files.SalesLinesFile());
    WriteOrderFileBody(*orderFile_, recordCounter_,
                       {*runState_.SalesRecordset, *lines, options_, databases_});
}

void ExportRun::WriteVouchers() {
    Vouchers(*voucherFile_, recordCounter_,
             {*databases_.WorkConnection, *runState_.SalesRecordset, options_, clock_,
              runState_.SalesLinesRecordset})
        .Write();
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

// kept: orders-always-extended. Overwrite is the voucher file's alone.
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

// kept: boxes-without-a-title. The question at the end has one.
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
void ExportRun::RequireRoomForPlacing(const store::WaitingFiles& files) const {
    platform::RequirePlaceForFile(appSettings_.EDIFileName);
    platform::RequirePlaceForFile(appSettings_.VoucherFileName);
    const store::FinishedNames trial = files.TryFinishedNames(clock_);
    RequireRoomForNote();
    files.RequireUnchanged();
}

void ExportRun::Place(const store::DataSet& dataSet, const store::WaitingFiles& files) {
    RequireRoomForPlacing(files);
    CloseImportFiles();
    store::FinishedNames finishedNames(files, clock_);
    files.RequireUnchanged();
    PlaceDay(dataSet, {appSettings_.EDIFileName, appSettings_.VoucherFileName}, finishedNames);
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
