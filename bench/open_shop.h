// The demo shop in the current directory, opened for single steps of the file export, and demo
// shops in folders of their own. Measures nothing itself.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "bench/quiet_operator.h"
#include "demo/options.h"
#include "fileexport/record_writer.h"
#include "platform/clock.h"
#include "platform/database/sqlite_engine.h"
#include "platform/temp_folder.h"
#include "platform/text_file.h"
#include "store/databases.h"
#include "store/options.h"
#include "ui/run_state.h"

namespace bench {

// The first data set of every demo shop.
inline constexpr const char* kDataSet = "Kasse1";

class OpenShop {
  public:
    OpenShop();

    // The steps of an export. Each leaves out the questions, and the placing of the files.
    void Import();
    void WriteOrderFile();   // "order.bench", complete on disk
    void WriteMasterData();  // "master.bench", likewise
    void WriteVouchers();    // "vouchers.bench", likewise; takes what Import has left

    platform::database::SqliteEngine engine;
    platform::SystemClock clock;
    QuietOperator theOperator;
    platform::TextFiles textFiles;
    store::Databases databases;
    store::Options options{databases.OptionsTable};
    ui::RunState runState;

  private:
    void OpenSales();

    fileexport::RecordCounter recordCounter_ = 0;
};

// A shop with one data set of that size.
[[nodiscard]] demo::ShopOptions OneDay(std::int64_t sales, std::int64_t lines);

// A demo shop in a folder of its own, which is the current directory for as long as the shop lives.
class TempShop {
  public:
    explicit TempShop(demo::ShopOptions options);
    ~TempShop();
    TempShop(const TempShop&) = delete;
    TempShop& operator=(const TempShop&) = delete;

  private:
    platform::TempFolder folder_;
    std::filesystem::path before_;
};

}  // namespace bench
