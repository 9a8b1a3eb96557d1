// A small shop in a folder of its own, with databases and data sets, in the shop's own words. Knows
// neither window nor transfers.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "app/app_settings.h"
#include "platform/database/sqlite_engine.h"
#include "store/databases.h"
#include "tests/support/platform/fixed_clock.h"
#include "tests/support/platform/scripted_operator.h"
#include "tests/support/platform/temp_folder.h"

namespace support {

struct Sale {
    platform::Value id = 1;
    platform::Value type = 1;
    platform::Value status = 0;
    platform::Value date = 20051116;
    platform::Value customerID = "1001";
    platform::Value customerName = "Hansen AS";
    platform::Value project = {};
    platform::Value ourRef = "Kari";
    platform::Value yourRef = "Ola";
    platform::Value selBuy = 0;
};

struct Line {
    platform::Value saleId = 1;
    platform::Value transType = 1;
    platform::Value amount = 100.0;
    platform::Value productID = "P1";
    platform::Value description = "Blåbærsyltetøy";
    platform::Value qty = 1.0;
    platform::Value price = 125.0;
    platform::Value discount = 0.0;
    platform::Value costPrice = 60.0;
    platform::Value vatCode = 3;
    platform::Value salesAccount = 3000;
    platform::Value string1 = {};
    platform::Value lineNo = 1;
};

// The current directory is the shop's folder for as long as the shop lives.
class StoreShop {
  public:
    StoreShop();
    ~StoreShop();
    StoreShop(const StoreShop&) = delete;
    StoreShop& operator=(const StoreShop&) = delete;

    // The two files of a data set.
    void WriteDataSet(std::string_view name, const std::vector<Sale>& sales,
                      const std::vector<Line>& lines) const;

    // Gives the receipts of a data set, 1 and 2 until then, other numbers in both files, of that
    // dt:type: as writers do that we do not have.
    void SpellReceiptNumbers(std::string_view name, std::string_view type, std::string_view first,
                             std::string_view second) const;

    void InStore(std::string_view sql) { databases.StoreDatabase->Execute(sql); }
    void InWork(std::string_view sql) { databases.WorkConnection->Execute(sql); }

    // The first column of a query's rows, as texts with a blank between.
    [[nodiscard]] std::string AskStore(std::string_view sql);
    [[nodiscard]] std::string AskWork(std::string_view sql);

    TempFolder folder;
    platform::database::SqliteEngine engine;
    FixedClock clock;
    ScriptedOperator theOperator;
    app::AppSettings settings;
    store::Databases databases;

  private:
    std::filesystem::path before_;
};

}  // namespace support
