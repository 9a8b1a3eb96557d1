#include "fileexport/export_run.h"

#include <optional>
#include <string>

#include "fileexport/master_data.h"
#include "fileexport/order_file.h"
#include "fileexport/placed_files.h"
#include "fileexport/placing.h"
#include "fileexport/vouchers.h"
#include "platform/error.h"
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
    FinishFilesThatCameBack(clock_, statusLog_);
    if (!ui::DataSetFilesExist(dataSet, statusLog_)) return false;
    for (const auto* name : {&appSettings_.EDIFileName, &appSettings_.VoucherFileName})
        platform::RequireFileOrNothing(*name);
    const store::WaitingFiles files(dataSet);
    files.GiveUpFinishedNames();
    store::ImportDataSet(files, *databases_.WorkConnection);
    OpenSales(files);
    if (runState_.SalesRecordset->IsEof()) return false;  // kept: quiet-ends. Nobody is told.

    voucherFile_ = BeginVoucherFile();
    orderFile_ = BeginOrderFile();
    files.RequireUnchanged();
    WriteOrders(files);
    // From here on records lose their marks for good, so what can be known to fail fails before,
    // even for an operator who would say No at the end.
    orderFile_->Text().Sync();
    RequireRoomForPlacing(files);
    WriteMasterData(voucherFile_->Text(), *databases_.StoreDatabase, options_);
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
    WriteOrderFileBody(orderFile_->Text(), recordCounter_,
                       {*runState_.SalesRecordset, *lines, options_, databases_});
}

void ExportRun::WriteVouchers() {
    Vouchers(voucherFile_->Text(), recordCounter_,
             {*databases_.WorkConnection, *runState_.SalesRecordset, options_, clock_,
              runState_.SalesLinesRecordset})
        .Write();
}

std::unique_ptr<ImportFile> ExportRun::BeginVoucherFile() {
    auto file = std::make_unique<ImportFile>(textFiles_, appSettings_.VoucherFileName);
    file->Begin(file->IsThere() ? WhatBecomesOfOldVouchers() : OldFile::IsExtended);
    return file;
}

// kept: orders-always-extended. Overwrite is the voucher file's alone.
std::unique_ptr<ImportFile> ExportRun::BeginOrderFile() {
    auto file = std::make_unique<ImportFile>(textFiles_, appSettings_.EDIFileName, kOrderFileStart);
    file->Begin(OldFile::IsExtended);
    return file;
}

// kept: boxes-without-a-title. The question at the end has one.
OldFile ExportRun::WhatBecomesOfOldVouchers() {
    runState_.LastAnswer = Answer::Yes;
    if (appSettings_.Overwrite == "1") return OldFile::IsReplaced;
    runState_.LastAnswer = operator_.Ask(
        {std::nullopt, "Filen med bunter og bilag finnes fra før. Skal den overskrives?",
         platform::Icon::Question, Answer::No});
    return runState_.LastAnswer == Answer::Yes ? OldFile::IsReplacedAsItIsNow : OldFile::IsExtended;
}

// What can be known to fail later fails here, before the first file is placed: a day that is placed
// in part keeps the server from starting until the reason is mended.
void ExportRun::RequireRoomForPlacing(const store::WaitingFiles& files) const {
    files.RequireUnchanged();
    orderFile_->RequirePlace();
    voucherFile_->RequirePlace();
    const store::FinishedNames trial = files.TryFinishedNames(clock_);
    RequireRoomForNote();
}

void ExportRun::Place(const store::DataSet& dataSet, const store::WaitingFiles& files) {
    RequireRoomForPlacing(files);
    CloseImportFiles();
    files.GiveUpFinishedNames();
    store::FinishedNames finishedNames(files, clock_);
    FollowChanges();
    files.RequireUnchanged();
    PlaceDay(dataSet, {orderFile_->Target(), voucherFile_->Target()}, finishedNames);
}

// Both working copies are complete on disk before the first of them takes its name, and each takes
// it in one step: a full disk leaves both configured files as they were.
void ExportRun::CloseImportFiles() {
    orderFile_->Text().Close();
    CloseVoucherFile(voucherFile_->Text());
    orderFile_->RequireWorkingCopy();
    voucherFile_->RequireWorkingCopy();
}

// The accounting package takes its files while a question stands, and other programs add to them:
// what it has must not come again, and what they wrote must not go.
void ExportRun::FollowChanges() {
    constexpr int kMostTimes = 5;
    for (int i = 0; i < kMostTimes; ++i) {
        const bool orders = FollowedChange(*orderFile_);
        const bool vouchers = FollowedChange(*voucherFile_);
        if (!orders && !vouchers) return;
    }
    throw platform::RuntimeError(platform::error_number::kPathAccess,
                                 "Another program goes on changing " + orderFile_->Target() +
                                     " or " + voucherFile_->Target() + ". The day is not placed");
}

bool ExportRun::FollowedChange(ImportFile& file) {
    const std::optional<ImportFile::Since> change = file.FollowChange();
    if (!change) return false;
    statusLog_.AppendStatusLine(
        "Filen " + file.Target() +
        (*change == ImportFile::Since::Gone
             ? " er borte siden dagen ble lest. Dagen legges i en ny fil."
             : " er endret siden dagen ble lest. Dagen legges til det som står der nå."));
    return true;
}

void ExportRun::DiscardVoucherFile() {
    CloseVoucherFile(voucherFile_->Text());
    platform::DeleteFile(WorkingCopy(voucherFile_->Target()));
}

}  // namespace fileexport
