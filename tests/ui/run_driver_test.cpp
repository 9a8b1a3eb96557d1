#include "ui/run_driver.h"

#include <gtest/gtest.h>

#include "tests/support/platform/expect_error.h"
#include "tests/support/ui/test_shop.h"

using support::TestShop;
using Texts = std::vector<std::string>;

namespace {

class FakeProcessStarter : public platform::ProcessStarter {
  public:
    bool Start(std::string_view commandLine) override {
        started.emplace_back(commandLine);
        return succeeds;
    }
    bool succeeds = true;
    Texts started;
};

// A window with three waiting data sets; a transfer whose name holds "feil" has errors, one whose
// name holds "stopp" raises an error.
class Run : public testing::Test {
  protected:
    Run() {
        for (const char* name : {"Kasse1", "<Uten navn>", "Østfeil"}) {
            shop.window.ListDayEnd.push_back({store::DataSet::OfDisplayName(name)});
        }
    }

    void Start() {
        driver.StartDayEnd();
        EXPECT_EQ(shop.theOperator.status, shop.window.List);
    }

    ui::TransferEntryPoint Recording(const std::string& which) {
        return [this, which](const store::DataSet& dataSet) {
            const std::string& name = dataSet.Name();
            calls.push_back(which + name);
            EXPECT_FALSE(shop.runState.DataSetHasErrors);
            EXPECT_EQ(shop.runState.CurrentDataSetName, name);
            if (name.find("stopp") != std::string::npos) throw platform::RuntimeError(3704, "x");
            shop.runState.DataSetHasErrors = name.find("feil") != std::string::npos;
            return false;
        };
    }

    TestShop shop;
    FakeProcessStarter processStarter;
    Texts calls;
    ui::RunDriver driver{
        shop.settings,    shop.window, shop.runState, {Recording("fil:"), Recording("SAP:")},
        shop.theOperator, shop.clock,  processStarter};
};

// An operator who can not be told that nothing waits any more.
class RunBeforeAFailingOperator : public Run {
  protected:
    struct FailingOperator : support::ScriptedOperator {
        void Show(const platform::Notice& notice) override {
            throw platform::RuntimeError(61, notice.text);
        }
    };
    FailingOperator failing;
    ui::frmMain window{shop.settings, failing};
    ui::RunDriver failingDriver{
        shop.settings, window,     shop.runState, {Recording("fil:"), Recording("SAP:")},
        failing,       shop.clock, processStarter};
};

constexpr const char* kNothingWaits = "Ingen filer er klare for overføring.";

}  // namespace

TEST_F(Run, NothingSelectedDoesNothing) {
    shop.settings.DayEndCommand = "ferdig.sh";
    Start();
    EXPECT_EQ(calls, Texts{});
    EXPECT_EQ(processStarter.started, Texts{});
    EXPECT_EQ(shop.window.ListDayEnd.size(), 3U);
}

TEST_F(Run, SelectedDataSetsInListOrder) {
    for (ui::ListEntry& entry : shop.window.ListDayEnd)
        entry.isSelected = true;
    Start();
    EXPECT_EQ(calls, (Texts{"fil:Kasse1", "fil:", "fil:Østfeil"}));
    EXPECT_EQ(shop.window.List,
              (Texts{"Starter behandling av datasett Kasse1, 16.11.2005 14:07:33.",
                     "Datasett Kasse1 er ferdig behandlet, 16.11.2005 14:07:33.",
                     "Starter behandling av datasett <Uten navn>, 16.11.2005 14:07:33.",
                     "Datasett <Uten navn> er ferdig behandlet, 16.11.2005 14:07:33.",
                     "Starter behandling av datasett Østfeil, 16.11.2005 14:07:33.",
                     "DATASETT ØSTFEIL ER FERDIG BEHANDLET MED FEIL!, 16.11.2005 14:07:33."}));
    EXPECT_TRUE(driver.AnyDataSetHadErrors());
    EXPECT_EQ(shop.theOperator.shown, Texts{kNothingWaits});
}

TEST_F(Run, OnlyTheExactSettingMeansSap) {
    shop.window.ListDayEnd[0].isSelected = true;
    shop.settings.AccountingSystem = "SAP";
    Start();
    shop.window.ListDayEnd = {{store::DataSet("A"), true}};
    shop.settings.AccountingSystem = "sap";
    Start();
    EXPECT_EQ(calls, (Texts{"SAP:Kasse1", "fil:A"}));
    EXPECT_FALSE(driver.AnyDataSetHadErrors());
}

TEST_F(Run, TheDayEndCommandRunsOnceAndItsFailureIsTold) {
    shop.settings.DayEndCommand = " ferdig.sh ";
    shop.window.ListDayEnd[2].isSelected = true;
    Start();
    EXPECT_EQ(processStarter.started, Texts{" ferdig.sh "});
    EXPECT_EQ(shop.theOperator.commands, Texts{" ferdig.sh "});

    processStarter.succeeds = false;
    shop.window.ListDayEnd = {{store::DataSet("A"), true}};
    shop.theOperator.shown.clear();
    Start();
    EXPECT_EQ(shop.theOperator.shown, (Texts{"Kommandoen lot seg ikke kjøre", kNothingWaits}));

    shop.settings.DayEndCommand = "   ";
    shop.window.ListDayEnd = {{store::DataSet("B"), true}};
    Start();
    EXPECT_EQ(processStarter.started.size(), 2U);
}

TEST_F(RunBeforeAFailingOperator, AnErrorOfTheRefreshIsPassedOverBehindACommandAlone) {
    window.ListDayEnd = {{store::DataSet("A"), true}};
    support::ExpectError(61, [&] { failingDriver.StartDayEnd(); });
    shop.settings.DayEndCommand = "ferdig.sh";
    window.ListDayEnd = {{store::DataSet("B"), true}};
    failingDriver.StartDayEnd();
    EXPECT_EQ(processStarter.started, Texts{"ferdig.sh"});
}

TEST_F(Run, AnErrorThatEscapesEndsTheRun) {
    shop.settings.DayEndCommand = "ferdig.sh";
    shop.window.ListDayEnd = {{store::DataSet("Kasse-stopp"), true}, {store::DataSet("B"), true}};
    support::ExpectError(3704, [&] { driver.StartDayEnd(); });
    EXPECT_EQ(calls, Texts{"fil:Kasse-stopp"});
    EXPECT_EQ(processStarter.started, Texts{});
    EXPECT_EQ(shop.window.ListDayEnd.size(), 2U);
}
