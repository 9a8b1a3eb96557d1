#include "store/waiting_files.h"

#include "platform/error.h"
#include "platform/files.h"
#include "platform/removable.h"
#include "platform/sha256.h"

namespace store {

namespace {

constexpr std::size_t kMarkLength = 50;  // what the key of a table in SAP can hold

void RequireUnchangedFile(const platform::HeldFile& file) {
    if (file.IsUnchanged()) return;
    throw platform::RuntimeError(platform::error_number::kPathAccess,
                                 file.Name() +
                                     " has changed since its day was read. The day is not posted; "
                                     "start it again when the till has written its files");
}

}  // namespace

WaitingFiles::WaitingFiles(const DataSet& dataSet)
    : dataSet_(dataSet),
      sales_(dataSet.FindSalesFile().value_or(dataSet.SalesFile())),
      salesLines_(dataSet.FindSalesLinesFile().value_or(dataSet.SalesLinesFile())) {}

void WaitingFiles::RequireUnchanged() const {
    RequireUnchangedFile(sales_);
    RequireUnchangedFile(salesLines_);
}

FinishedNames WaitingFiles::TryFinishedNames(const platform::Clock& clock) const {
    platform::RequireRemovable(sales_.Name());
    platform::RequireRemovable(salesLines_.Name());
    return {*this, TrialName(dataSet_.SalesFile(), clock.Now()),
            TrialName(dataSet_.SalesLinesFile(), clock.Now())};
}

void WaitingFiles::GiveUpFinishedNames() const {
    store::GiveUpFinishedNames(sales_, dataSet_.SalesFile());
    store::GiveUpFinishedNames(salesLines_, dataSet_.SalesLinesFile());
}

void WaitingFiles::Finish(const platform::Clock& clock) const {
    store::Finish(sales_, dataSet_.SalesFile(), clock);
    store::Finish(salesLines_, dataSet_.SalesLinesFile(), clock);
}

std::string WaitingFiles::Mark() const {
    return platform::Sha256OfFiles({sales_.Name(), salesLines_.Name()}).substr(0, kMarkLength);
}

void FinishLinesLeftBehind() {
    for (const DataSet& dataSet : DataSet::WithoutSales()) {
        const platform::HeldFile lines(dataSet.SalesLinesFile());
        if (HasFinishedName(lines, dataSet.SalesLinesFile())) platform::DeleteFile(lines.Name());
    }
}

// kept: two-looks-at-the-clock. The stamps of a day's two files may differ by a second.
FinishedNames::FinishedNames(const WaitingFiles& files, const platform::Clock& clock)
    : sales_(files.sales_, FinishedName(files.dataSet_.SalesFile(), clock.Now())),
      salesLines_(files.salesLines_, FinishedName(files.dataSet_.SalesLinesFile(), clock.Now())) {}

void FinishedNames::Keep() {
    sales_.Keep();
    salesLines_.Keep();
    sales_.LeaveWaitingName();
    salesLines_.LeaveWaitingName();
}

}  // namespace store
