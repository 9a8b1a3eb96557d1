#include "store/import.h"

#include <gtest/gtest.h>

#include "tests/support/platform/expect_error.h"
#include "tests/support/store/store_shop.h"

using support::ExpectError;
using support::Line;
using support::Sale;
using support::StoreShop;

namespace {

class Import : public testing::Test {
  protected:
    void ImportKasse1() {
        store::ImportDataSet(store::WaitingFiles(store::DataSet("Kasse1")),
                             *shop.databases.WorkConnection);
    }

    // Cuts the end off a file of the data set.
    void Truncate(const std::string& fileName) const {
        const std::string whole = shop.folder.Read(fileName);
        shop.folder.Write(fileName, whole.substr(0, whole.size() - 20));
    }

    StoreShop shop;
};

}  // namespace

TEST_F(Import, ReplacesBothTables) {
    shop.WriteDataSet("Kasse1", {{.id = 1}}, {{.saleId = 1}, {.saleId = 1}});
    ImportKasse1();
    shop.WriteDataSet("Kasse1", {{.id = 2, .customerName = "Æsj & Søn"}, {.id = 3}}, {});
    ImportKasse1();
    EXPECT_EQ(shop.AskWork("SELECT ID FROM Sales"), "2 3");
    EXPECT_EQ(shop.AskWork("SELECT CustomerName FROM Sales WHERE ID = 2"), "Æsj & Søn");
    EXPECT_EQ(shop.AskWork("SELECT count(*) FROM SalesLines"), "0");
}

TEST_F(Import, AMalformedFileLeavesItsTableAlone) {
    shop.WriteDataSet("Kasse1", {{.id = 1}}, {{.saleId = 1}});
    ImportKasse1();
    shop.WriteDataSet("Kasse1", {{.id = 2}}, {{.saleId = 2}, {.saleId = 2}});
    Truncate("Kasse1DayEndSalesLines.XML");
    const std::string text = ExpectError(321, [&] { ImportKasse1(); });
    EXPECT_NE(text.find("Kasse1DayEndSalesLines.XML"), std::string::npos) << text;
    EXPECT_EQ(shop.AskWork("SELECT ID FROM Sales"), "2");
    EXPECT_EQ(shop.AskWork("SELECT SalesID FROM SalesLines"), "1");

    std::filesystem::remove("Kasse1DayEndSales.XML");
    ExpectError(53, [&] { ImportKasse1(); });
    EXPECT_EQ(shop.AskWork("SELECT ID FROM Sales"), "2");
}

TEST_F(Import, ARefusedRowLeavesTheRowsBeforeIt) {
    shop.InWork("DROP TABLE Sales");
    shop.InWork("CREATE TABLE Sales (ID INTEGER PRIMARY KEY, SalesType SMALLINT)");
    shop.WriteDataSet("Kasse1", {{.id = 1}, {.id = 2}, {.id = 2}, {.id = 4}}, {});
    std::string text = ExpectError(3022, [&] { ImportKasse1(); });
    EXPECT_NE(text.find("Kasse1DayEndSales.XML, record 3"), std::string::npos) << text;
    EXPECT_EQ(shop.AskWork("SELECT ID FROM Sales"), "1 2");

    Truncate("Kasse1DayEndSales.XML");
    ExpectError(321, [&] { ImportKasse1(); });
    EXPECT_EQ(shop.AskWork("SELECT ID FROM Sales"), "1 2") << "malformed outweighs refused";
}

// A day that is posted with them would give a receipt the lines of another.
TEST_F(Import, ReceiptNumbersThatTheTableWouldRoundAreRefused) {
    for (const char* type : {"DOUBLE", "TEXT"}) {
        shop.InWork("DROP TABLE SalesLines");
        shop.InWork("CREATE TABLE SalesLines (SalesID " + std::string(type) + ")");
        shop.WriteDataSet("Kasse1", {}, {{.saleId = 1}, {.saleId = 2}});
        shop.SpellReceiptNumbers("Kasse1", "r8", "501", "9007199254740993");
        const std::string text = ExpectError(3421, [&] { ImportKasse1(); });
        EXPECT_NE(text.find("record 2"), std::string::npos) << text;
        EXPECT_NE(text.find("SalesID"), std::string::npos) << text;
        EXPECT_EQ(shop.AskWork("SELECT SalesID FROM SalesLines"), "501");
    }
}

TEST_F(Import, ATextInANumberColumnAndAMissingColumn) {
    shop.InWork("DROP TABLE Sales");
    shop.InWork(
        "CREATE TABLE Sales (ID INTEGER, Type INTEGER, Status INTEGER, Day INTEGER,"
        " Posted DATETIME, Customer INTEGER)");
    shop.WriteDataSet("Kasse1", {{.customerID = "17"}, {.customerID = "Hansen"}}, {});
    std::string text = ExpectError(3421, [&] { ImportKasse1(); });
    EXPECT_NE(text.find("record 2"), std::string::npos) << text;
    EXPECT_NE(text.find("Customer"), std::string::npos) << text;
    EXPECT_EQ(shop.AskWork("SELECT Customer FROM Sales"), "17");

    shop.InWork("DROP TABLE Sales");
    shop.InWork("CREATE TABLE Sales (a, b, c, d, e, f, g, h, i, j, k, l)");
    ExpectError(3265, [&] { ImportKasse1(); });
    shop.WriteDataSet("Kasse1", {}, {});
    ImportKasse1();
}
