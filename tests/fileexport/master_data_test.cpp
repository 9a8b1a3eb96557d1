#include "fileexport/master_data.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <chrono>
#include <csignal>

#include "tests/support/platform/expect_error.h"
#include "tests/support/ui/test_shop.h"

using support::TestShop;

namespace {

std::string Written(TestShop& shop) {
    const auto file = shop.textFiles.OpenForOutput("bilag.txt");
    fileexport::WriteMasterData(*file, *shop.databases.StoreDatabase,
                                store::Options(shop.databases.OptionsTable));
    file->Close();
    return shop.Text("bilag.txt");
}

// Of that many bytes at most: a full disk.
class FullDisk {
  public:
    explicit FullDisk(rlim_t bytes) {
        ::getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit{bytes, before_.rlim_max};
        ::signal(SIGXFSZ, SIG_IGN);
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() { ::setrlimit(RLIMIT_FSIZE, &before_); }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

  private:
    rlimit before_{};
};

constexpr const char* kProductFields = "@Prod (=ProdNo, EANItmNo, Descr, ProdPrGr, ProdPrG2)";
constexpr const char* kPriceFields = "@PrDcMat (=ProdNo, SalePr, CstPr, Gross)";

}  // namespace

TEST(MasterData, ChangedRowsOfEveryKindAreWrittenAndMarked) {
    TestShop shop;
    shop.InStore(
        "INSERT INTO Customers (ID, Name, Address1, CustPrGr, Discount, Status) VALUES "
        "('1002', ' Å \"Bil\" ', 'Storgata 1', 2, 12.5, 2), ('1001', 'Hansen', '', NULL, NULL, 1), "
        "('1003', 'Uendret', '', 1, 0, 0)");
    shop.InStore(
        "INSERT INTO Products (ID, BarCode, Description, Status) VALUES ('P1', '70', 'A', 1)");
    shop.InStore(
        "INSERT INTO PriceMatrix (ProdNo, SalePr, CstPr, Status) VALUES ('P1', 99.9, 50, 2)");
    EXPECT_EQ(
        Written(shop),
        "@Actor (=CustNo, Nm, Ad1, Ad2, Ad3, Ad4, PNo, PArea, Phone, Fax, CustPrGr, CustPrG2, "
        "MailAd, CustTotD)\n\n"
        R"("1002" " Å "Bil" " "Storgata 1" "" "" "" "" "" "" "" "2" "" "" "12,5")"
        "\n"
        R"("1001" "Hansen" "" "" "" "" "" "" "" "" "" "" "" "")"
        "\n"
        "\n" +
            std::string(kProductFields) +
            "\n\n"
            R"("P1" "70" "A" "" "")"
            "\n"
            "\n" +
            std::string(kPriceFields) +
            "\n\n"
            R"("P1" "99,9" "50" "1")"
            "\n");
    EXPECT_EQ(shop.AskStore("SELECT Status FROM Customers"), "0 0 0");
    EXPECT_EQ(shop.AskStore("SELECT Status FROM PriceMatrix"), "0");
    EXPECT_EQ(Written(shop), "") << "each row is offered once";
}

TEST(MasterData, GrossSwitch) {
    TestShop shop;
    const std::pair<const char*, const char*> cases[] = {{"0", "0"}, {"-1", "1"}, {"NULL", "1"}};
    for (const auto& [stored, written] : cases) {
        shop.InStore("DELETE FROM PriceMatrix");
        shop.InStore("INSERT INTO PriceMatrix (ProdNo, Status) VALUES ('P1', 1)");
        shop.InStore(std::string("UPDATE Options SET GrossPrices = ") + stored);
        EXPECT_EQ(Written(shop),
                  "\n" + std::string(kPriceFields) + "\n\n\"P1\" \"\" \"\" \"" + written + "\"\n");
    }
}

TEST(MasterData, RowsWrittenBeforeAFailureStayMarked) {
    TestShop shop;
    shop.InStore("INSERT INTO Products (ID, Status) VALUES ('P1', 1), ('P2', 1), ('P3', 1)");
    shop.InStore(
        "CREATE TRIGGER no BEFORE UPDATE ON Products WHEN OLD.ID = 'P2' "
        "BEGIN SELECT RAISE(ABORT, 'sperret'); END");
    support::ExpectError(3421, [&] { (void)Written(shop); });
    EXPECT_EQ(shop.AskStore("SELECT Status FROM Products"), "0 1 1");
}

TEST(MasterData, NoMarkGoesBeforeTheRecordsOfItsKindAreWritten) {
    TestShop shop;
    const std::string description(5000, 'x');
    shop.InStore("INSERT INTO Products (ID, Description, Status) VALUES ('P1', '', 1), ('P2', '" +
                 description + "', 2)");
    {
        const FullDisk full(4000);
        support::ExpectError(61, [&] { (void)Written(shop); });
    }
    EXPECT_EQ(shop.AskStore("SELECT Status FROM Products"), "1 2");
    EXPECT_NE(Written(shop).find(description), std::string::npos);
    EXPECT_EQ(shop.AskStore("SELECT Status FROM Products"), "0 0");
}

// Else the change could come between a row's reading and its mark, and would never be written.
TEST(MasterData, WhileTheStoreChangesItsDataNoRowIsRead) {
    TestShop shop;
    shop.InStore("INSERT INTO Products (ID, Status) VALUES ('P1', 1)");
    platform::database::SqliteEngine impatient{std::chrono::milliseconds(0)};
    const auto store = impatient.OpenDatabase("data/Kassovia.mdb");
    const auto change = shop.databases.StoreDatabase->BeginTransaction();
    const auto file = shop.textFiles.OpenForOutput("bilag.txt");
    support::ExpectError(3045, [&] {
        fileexport::WriteMasterData(*file, *store, store::Options(shop.databases.OptionsTable));
    });
    file->Close();
    EXPECT_EQ(shop.Text("bilag.txt"), "");
}
