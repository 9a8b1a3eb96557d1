#include "bench/open_shop.h"

#include <stdexcept>
#include <utility>

#include "demo/demo_folder.h"
#include "fileexport/master_data.h"
#include "fileexport/order_file.h"
#include "fileexport/vouchers.h"
#include "store/data_set.h"
#include "store/import.h"

namespace bench {

OpenShop::OpenShop() {
    store::OpenConnections(engine, "data", databases);
    if (store::OpenTables(databases, theOperator, "") != store::AfterOpening::GoOn) {
        throw std::runtime_error("the shop's tables do not open");
    }
}

void OpenShop::Import() {
    store::ImportDataSet(store::WaitingFiles(store::DataSet(kDataSet)), *databases.WorkConnection);
}

void OpenShop::WriteOrderFile() {
    OpenSales();
    const auto file = textFiles.OpenForOutput("order.bench");
    const auto lines =
        runState.PersistConnection->OpenForwardOnly(store::DataSet(kDataSet).SalesLinesFile());
    fileexport::WriteOrderFileBody(*file, recordCounter_,
                                   {*runState.SalesRecordset, *lines, options, databases});
    file->Close();
}

void OpenShop::WriteMasterData() {
    const auto file = textFiles.OpenForOutput("master.bench");
    fileexport::WriteMasterData(*file, *databases.StoreDatabase, options);
    file->Close();
}

void OpenShop::WriteVouchers() {
    OpenSales();
    const auto file = textFiles.OpenForOutput("vouchers.bench");
    fileexport::Vouchers(*file, recordCounter_,
                         {*databases.WorkConnection, *runState.SalesRecordset, options, clock,
                          runState.SalesLinesRecordset})
        .Write();
    file->Close();
}

void OpenShop::OpenSales() {
    ui::OpenPersistConnection(runState);
    runState.SalesRecordset =
        runState.PersistConnection->OpenRecordset(store::DataSet(kDataSet).SalesFile());
}

demo::ShopOptions OneDay(std::int64_t sales, std::int64_t lines) {
    demo::ShopOptions options;
    options.dataSets = 1;
    options.sales = sales;
    options.lines = lines;
    return options;
}

TempShop::TempShop(demo::ShopOptions options) : before_(std::filesystem::current_path()) {
    options.folder = folder_.Path().string();
    demo::MakeDemoShop(options);
    std::filesystem::current_path(folder_.Path());
}

TempShop::~TempShop() {
    std::error_code ignored;
    std::filesystem::current_path(before_, ignored);
}

}  // namespace bench
