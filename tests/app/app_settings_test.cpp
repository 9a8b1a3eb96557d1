#include "app/app_settings.h"

#include <gtest/gtest.h>

#include "platform/code_page.h"
#include "tests/support/platform/expect_error.h"
#include "tests/support/platform/fixed_clock.h"
#include "tests/support/platform/temp_folder.h"

namespace {

// The settings that the store's profile file with these lines gives.
app::AppSettings Read(const std::string& lines) {
    const support::TempFolder folder;
    folder.Write("kassovia.INI", platform::EncodeWindows1252("[General]\r\n" + lines + "\r\n"));
    platform::ProfileFiles profileFiles;
    app::INIClass iniFile(profileFiles);
    app::AppSettings settings;
    settings.AppTitle = "Dagsoppgjør for Kassovia";
    app::ReadStoreSettings(iniFile, folder.Path().string(),
                           support::FixedClock({2005, 3, 9, 4, 5, 6}), settings);
    app::DeriveAccountingFlags(settings);
    return settings;
}

}  // namespace

TEST(AppSettings, DatapathLosesOneSeparator) {
    EXPECT_EQ(Read("Datapath= C:\\Data\\ ").Datapath, "C:\\Data");
    EXPECT_EQ(Read("Datapath=C:\\Data\\\\").Datapath, "C:\\Data\\");
    EXPECT_EQ(Read("Datapath=\" data \"").Datapath, "data");
    EXPECT_EQ(Read("Datapath=\\").Datapath, "");
    EXPECT_EQ(Read("").Datapath, "");
}

TEST(AppSettings, DateTokensOfThePrefix) {
    const std::pair<const char*, const char*> cases[] = {
        {"NOW()ABC", "090305040506AB"},
        {"X_now()ABC", "X_20050309040506ABC"},
        {"now()X", "090305040506"},
        {"POS_NOW()", "POS_20050309040506"},
        {"DATE()_Ø", "09032005_"},
        {"Å_Date()-NOW()", "Å_20050309-20050309040506"},
        {"a NOW() NOW()", "a 20050309040506 NOW()"},
        {"plain", "plain"},
    };
    for (const auto& [value, expected] : cases) {
        EXPECT_EQ(Read(std::string("XMLPrefix=") + value).XMLPrefix, expected);
    }
    support::ExpectError(5, [] { Read("XMLPrefix=NOW()"); });
    support::ExpectError(5, [] { Read("XMLPrefix=date()"); });
}

TEST(AppSettings, TitleShowsAtMost20CharactersOfThePoint) {
    EXPECT_EQ(Read("PointID=Kasse 2").AppTitle, "Dagsoppgjør for Kassovia (Kasse 2)");
    EXPECT_EQ(Read("PointID=\"  1234567890123456789012345\"").AppTitle,
              "Dagsoppgjør for Kassovia (123456789012345678)");
    EXPECT_EQ(Read("PointID=\"   \"").AppTitle, "Dagsoppgjør for Kassovia");
}

TEST(AppSettings, SwitchesAndDefaults) {
    for (const char* yes : {"ja", "Yes", "1", "JA"}) {
        EXPECT_EQ(Read(std::string("Overwrite=") + yes).Overwrite, "1") << yes;
    }
    for (const char* no : {"J", "true", "\" 1\"", "", "0"}) {
        EXPECT_EQ(Read(std::string("Overwrite=") + no).Overwrite, "0") << no;
    }
    const app::AppSettings sap = Read("AccountingSystem=sap");
    EXPECT_TRUE(sap.UsesSAP);
    EXPECT_EQ(sap.AccountingSystem, "sap");
    EXPECT_TRUE(Read("AccountingSystem=Global").UsesGlobal);
    EXPECT_EQ(sap.ReceiptReportFileName, "receipt.rpt");
    EXPECT_EQ(Read("ReceiptReportFileName=bong.rpt").ReceiptReportFileName, "bong.rpt");
}
