// The accounting file export: turns one data set into the voucher file and the order file.
#pragma once

#include <memory>

#include "app/app_settings.h"
#include "fileexport/import_file.h"
#include "fileexport/record_writer.h"
#include "platform/clock.h"
#include "platform/operator.h"
#include "platform/text_file.h"
#include "store/data_set.h"
#include "store/databases.h"
#include "store/options.h"
#include "store/waiting_files.h"
#include "ui/run_state.h"
#include "ui/status_log.h"

namespace fileexport {

class ExportRun {
  public:
    ExportRun(const app::AppSettings& appSettings, const store::Databases& databases,
              ui::RunState& runState, ui::StatusLog& statusLog, platform::Operator& theOperator,
              const platform::Clock& clock, platform::TextFiles& textFiles);

    // Both import files are built as working copies (".tmp") and take the configured names only
    // when the operator says Yes at the end. The answer is always false.
    bool ExportDataSet(const store::DataSet& dataSet);

  private:
    void OpenSales(const store::WaitingFiles& files);
    void WriteOrders(const store::WaitingFiles& files);
    void WriteVouchers();
    [[nodiscard]] std::unique_ptr<ImportFile> BeginVoucherFile();
    [[nodiscard]] std::unique_ptr<ImportFile> BeginOrderFile();
    [[nodiscard]] OldFile WhatBecomesOfOldVouchers();
    void RequireRoomForPlacing(const store::WaitingFiles& files) const;
    void Place(const store::DataSet& dataSet, const store::WaitingFiles& files);
    void CloseImportFiles();
    void FollowChanges();
    [[nodiscard]] bool FollowedChange(ImportFile& file);
    void DiscardVoucherFile();

    const app::AppSettings& appSettings_;
    const store::Databases& databases_;
    store::Options options_;
    ui::RunState& runState_;
    ui::StatusLog& statusLog_;
    platform::Operator& operator_;
    const platform::Clock& clock_;
    platform::TextFiles& textFiles_;

    std::unique_ptr<ImportFile> voucherFile_;
    std::unique_ptr<ImportFile> orderFile_;  // stays open after a No: see ExportDataSet
    RecordCounter recordCounter_ = 0;
};

}  // namespace fileexport
