// Whole days: each folder beside this file is a shop before a run, the operator's answers, and what
// the run must leave. Everything is kept in UTF-8 with plain line ends so that a bookkeeper can
// read it; on its way into the shop and out of it a file is turned into the system's own encoding.

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <sstream>

#include "app/start_up.h"
#include "demo/sales_tables.h"
#include "demo/store_database.h"
#include "platform/code_page.h"
#include "platform/database/sqlite_engine.h"
#include "platform/norwegian.h"
#include "platform/sapdi/local_company.h"
#include "platform/text.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/temp_folder.h"

namespace fs = std::filesystem;

namespace {

const fs::path kDays = fs::absolute("days");

std::string ReadFile(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string WithCrLf(const std::string& text) {
    std::string result;
    for (const char c : text) {
        if (c == '\n') result += '\r';
        result += c;
    }
    return result;
}

// The operator of the day: answers in order, and writes down everything that happens.
class Bookkeeper : public platform::Operator {
  public:
    explicit Bookkeeper(const fs::path& answers) : answers_(answers) {}

    void Show(const platform::Notice& notice) override { log << "[OK] " << notice.text << '\n'; }

    platform::Answer Ask(const platform::Question& question) override {
        std::string answer = "(ikke ventet)";
        std::getline(answers_, answer);
        log << '[' << answer << "] " << question.text << '\n';
        return answer == "ja" ? platform::Answer::Yes : platform::Answer::No;
    }

    std::string Prompt(const platform::InputRequest& request) override {
        log << "[?] " << request.text << '\n';
        return {};
    }

    void ShowStatusLine(std::string_view line) override { log << line << '\n'; }
    void DayEndCommandStarted(std::string_view line) override { log << "$ " << line << '\n'; }
    void ReportFatal(const platform::RuntimeError& error) override {
        log << "Run-time error '" << error.Number() << "'\n";
    }

    std::ostringstream log;

  private:
    std::ifstream answers_;
};

class NoProcesses : public platform::ProcessStarter {
  public:
    bool Start(std::string_view /*commandLine*/) override { return false; }
};

class Day : public testing::TestWithParam<std::string> {
  protected:
    void LayOutShop() const {
        for (const auto& entry : fs::recursive_directory_iterator(day / "before")) {
            const fs::path name = entry.path().lexically_relative(day / "before");
            if (entry.is_directory()) {
                fs::create_directories(shop.Path() / name);
                continue;
            }
            std::string content = ReadFile(entry.path());
            const bool isDataSet = platform::EqualsIgnoreCase(name.extension().string(), ".xml");
            if (!isDataSet) content = platform::EncodeWindows1252(WithCrLf(content));
            shop.Write(name.string(), content);
        }
        fs::create_directories(shop.Path() / "data");
        platform::SqliteEngine engine;
        demo::CreateSalesTables(*engine.CreateDatabase(shop.File("data/KVDayEndServer.mdb")));
        const auto store = engine.CreateDatabase(shop.File("data/Kassovia.mdb"));
        demo::CreateStoreTables(*store);
        std::istringstream statements(ReadFile(day / "store.sql"));
        for (std::string sql; std::getline(statements, sql, ';');) {
            if (sql.find_first_not_of(" \n") != std::string::npos) store->Execute(sql);
        }
    }

    // Runs every waiting data set, and gives the log with what the store database then holds.
    std::string RunDay() const {
        Bookkeeper bookkeeper(day / "answers.txt");
        support::FixedClock clock;
        NoProcesses noProcesses;
        platform::ProfileFiles profileFiles;
        platform::SqliteEngine engine;
        platform::sapdi::LocalConnector connector(engine, shop.Path().string());
        app::StartUp server(shop.Path().string(),
                            {bookkeeper, clock, noProcesses, profileFiles, engine, connector});
        try {
            EXPECT_EQ(server.Main(), app::AfterStartUp::Run);
            for (ui::ListEntry& entry : server.Window().ListDayEnd)
                entry.isSelected = true;
            server.Driver().StartDayEnd();
        } catch (const platform::RuntimeError& error) {
            bookkeeper.ReportFatal(error);
        }
        const auto ask = [&](const std::string& what, const std::string& sql) {
            bookkeeper.log << what << ':';
            const auto rows = engine.OpenDatabase(shop.File("data/Kassovia.mdb"))->OpenQuery(sql);
            for (; !rows->IsEof(); rows->MoveNext()) {
                bookkeeper.log << ' ' << platform::ToText(rows->Get(0));
            }
            bookkeeper.log << '\n';
        };
        ask("Neste bilagsnummer", "SELECT NextVoucherNo FROM Options");
        ask("Endret i butikken",
            "SELECT ID FROM Customers WHERE Status <> 0 UNION ALL "
            "SELECT ID FROM Products WHERE Status <> 0");
        return bookkeeper.log.str();
    }

    // The files of the shop but its settings and databases, one name a line.
    [[nodiscard]] std::string Files() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::recursive_directory_iterator(shop.Path())) {
            const std::string name = entry.path().lexically_relative(shop.Path()).string();
            const std::string extension = entry.path().extension();
            if (entry.is_regular_file() && extension != ".mdb" && extension != ".ini") {
                names.push_back(name);
            }
        }
        std::sort(names.begin(), names.end());
        std::string list;
        for (const std::string& name : names)
            list += name + "\n";
        return list;
    }

    fs::path day = kDays / GetParam();
    support::TempFolder shop;
};

std::vector<std::string> DayNames() {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(kDays)) {
        if (entry.is_directory()) names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

}  // namespace

TEST_P(Day, LeavesWhatIsExpected) {
    LayOutShop();
    EXPECT_EQ(RunDay(), ReadFile(day / "expected/log.txt"));
    EXPECT_EQ(Files(), ReadFile(day / "expected/files.txt"));
    for (const auto& entry : fs::directory_iterator(day / "expected")) {
        const std::string name = entry.path().filename().string();
        if (name == "log.txt" || name == "files.txt") continue;
        EXPECT_EQ(platform::DecodeWindows1252(shop.Read(name)), WithCrLf(ReadFile(entry.path())))
            << name;
    }
}

INSTANTIATE_TEST_SUITE_P(Days, Day, testing::ValuesIn(DayNames()), [](const auto& test) {
    std::string name = test.param;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
});
