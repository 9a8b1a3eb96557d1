#include "demo/demo_folder.h"

#include <filesystem>
#include <fstream>
#include <limits>
#include <string_view>
#include <system_error>

#include "demo/company_database.h"
#include "demo/data_set_files.h"
#include "demo/profile_files.h"
#include "demo/store_database.h"
#include "platform/error.h"
#include "platform/files.h"

namespace demo {

namespace {

namespace fs = std::filesystem;

// What a shop and the runs on it leave in the folder itself.
constexpr std::string_view kOwnFiles =
    "*DayEndSales.xml*;*DayEndSalesLines.xml*;SAP_ERR_*.xml;Demo.company;Kassovia.ini";

bool IsDemoShop(const fs::path& folder) {
    std::ifstream profile(folder / kServerProfile, std::ios::binary);
    std::string firstLine;
    return std::getline(profile, firstLine) &&
           std::string_view(firstLine).substr(0, kDemoShopMark.size()) == kDemoShopMark;
}

void Clear(const fs::path& folder) {
    for (const std::string& name : platform::ListFiles(folder.string(), kOwnFiles)) {
        fs::remove(folder / name);
    }
    fs::remove_all(folder / "data");
    fs::remove_all(folder / "import");
    // The mark goes last: a folder half cleared is still known as a demo shop.
    fs::remove(folder / kServerProfile);
}

// Nothing is deleted where no demo shop stands.
void PrepareFolder(const fs::path& folder) {
    if (fs::exists(folder) && !(fs::is_directory(folder) && fs::is_empty(folder))) {
        if (!IsDemoShop(folder)) {
            throw FolderInUse(folder.string() + " is not empty and not a demo shop; left as it is");
        }
        Clear(folder);
    }
    fs::create_directories(folder / "data");
    fs::create_directories(folder / "import");
}

// "Kasse1", "Kasse2" ...; among three and more the last has no name.
std::string DataSetName(int number, int count) {
    if (count >= 3 && number == count) return {};
    return "Kasse" + std::to_string(number);
}

DataSet PlanDataSet(const ShopOptions& options, int number) {
    DataSet dataSet;
    dataSet.plan.name = DataSetName(number, options.dataSets);
    dataSet.firstSaleId = FirstSaleId(options, number);
    dataSet.plan.sales = options.sales;
    dataSet.plan.lines = options.lines.value_or(options.sales * kLinesPerTwoSales / 2);
    dataSet.plan.paymentsGoWithGoods = options.sap;
    return dataSet;
}

void WriteShop(const ShopOptions& options, const fs::path& folder) {
    const Shop shop = MakeShop(options);
    if (options.sap) {
        WriteSapProfiles(folder);
        WriteCompanyDatabase(folder / (std::string(kCompanyName) + ".company"), shop, options.seed);
    } else {
        WriteFileExportProfiles(folder);
    }
    WriteStoreDatabase(folder / "data" / "Kassovia.mdb", shop);
    WriteWorkDatabase(folder / "data" / "KVDayEndServer.mdb");
    for (int number = 1; number <= options.dataSets; ++number) {
        WriteDataSet(folder, shop, PlanDataSet(options, number), options.seed);
    }
}

}  // namespace

std::int64_t FirstSaleId(const ShopOptions& options, int dataSet) {
    constexpr std::int64_t kFirst = 100001;
    constexpr std::int64_t kFirstForSap = 1001;
    const std::int64_t before = (dataSet - 1) * options.sales;
    if (!options.sap) return kFirst + before;
    const std::int64_t highest = kFirstForSap + options.dataSets * options.sales - 1;
    const bool allFit = highest <= std::numeric_limits<std::int16_t>::max();
    return allFit ? kFirstForSap + before : 1;
}

void MakeDemoShop(const ShopOptions& options) {
    const fs::path folder(options.folder);
    try {
        PrepareFolder(folder);
        WriteShop(options, folder);
    } catch (const fs::filesystem_error& error) {
        throw platform::ErrorFromErrno(error.code().value(), "prepare", error.path1().string());
    }
}

}  // namespace demo
