// A small shop in a folder of its own, with databases, a data set and everything that a routine of
// the system is handed, in the shop's own words.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "app/app_settings.h"
#include "platform/database/sqlite_engine.h"
#include "platform/text_file.h"
#include "store/databases.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/scripted_operator.h"
#include "tests/support/temp_folder.h"
#include "ui/frm_main.h"
#include "ui/run_state.h"

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
class TestShop {
  public:
    TestShop();
    ~TestShop();
    TestShop(const TestShop&) = delete;
    TestShop& operator=(const TestShop&) = delete;

    // The two files of a data set.
    void WriteDataSet(std::string_view name, const std::vector<Sale>& sales,
                      const std::vector<Line>& lines) const;

    void InStore(std::string_view sql) { databases.StoreDatabase->Execute(sql); }
    void InWork(std::string_view sql) { databases.WorkConnection->Execute(sql); }

    // The first column of a query's rows, as texts with a blank between.
    [[nodiscard]] std::string AskStore(std::string_view sql);
    [[nodiscard]] std::string AskWork(std::string_view sql);

    // A file of the shop as the operator would read it: UTF-8, lines ended by "\n"; a carriage
    // return that does not stand at a line's end stays visible.
    [[nodiscard]] std::string Text(std::string_view fileName) const;

    TempFolder folder;
    platform::SqliteEngine engine;
    FixedClock clock;
    ScriptedOperator theOperator;
    app::AppSettings settings;
    store::Databases databases;
    platform::TextFiles textFiles;
    ui::RunState runState;
    ui::frmMain window{settings, theOperator};

  private:
    std::filesystem::path before_;
};

}  // namespace support
