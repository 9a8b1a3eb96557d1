// The demo shop: it comes out alike for a seed, its receipts balance, it holds what was asked for.

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "demo/day.h"
#include "demo/demo_folder.h"
#include "demo/shop.h"
#include "platform/database/sqlite_engine.h"
#include "platform/norwegian.h"
#include "platform/recordset_file/persist_connection.h"
#include "tests/support/platform/temp_folder.h"

namespace {

using platform::ToInt32;
using support::TempFolder;

demo::ShopOptions Options(const TempFolder& folder) {
    demo::ShopOptions options;
    options.folder = folder.Path().string();
    return options;
}

std::map<std::string, std::string> MakeAndReadAll(demo::ShopOptions options) {
    const TempFolder folder;
    options.folder = folder.Path().string();
    demo::MakeDemoShop(options);
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.Path())) {
        if (!entry.is_regular_file()) continue;
        const std::string name = std::filesystem::relative(entry.path(), folder.Path()).string();
        files[name] = folder.Read(name);
    }
    return files;
}

std::vector<demo::Receipt> ReceiptsOf(const demo::Shop& shop, std::int64_t sales,
                                      std::int64_t lines, bool paymentsGoWithGoods) {
    demo::Day day(shop, {"Kasse1", sales, lines, paymentsGoWithGoods}, 7);
    std::vector<demo::Receipt> receipts;
    while (day.HasMore())
        receipts.push_back(day.Next());
    return receipts;
}

std::vector<int> FirstColumn(const std::string& file, std::string_view sql) {
    const auto database = platform::database::SqliteEngine().OpenDatabase(file);
    std::vector<int> numbers;
    for (const platform::database::Row& row : database->Prepare(sql)->Run({}))
        numbers.push_back(ToInt32(row.front()));
    return numbers;
}

TEST(DemoShop, OneSeedGivesTheSameBytesAndAnotherDoesNot) {
    demo::ShopOptions options;
    options.dataSets = 3;
    options.sap = true;
    const auto first = MakeAndReadAll(options);
    EXPECT_EQ(first.size(), 11U);
    EXPECT_TRUE(first.contains("DayEndSales.XML")) << "the last of three has no name";
    EXPECT_EQ(MakeAndReadAll(options), first);
    options.seed = 2;
    auto other = MakeAndReadAll(options);
    for (const char* name : {"Kasse1DayEndSales.XML", "data/Kassovia.mdb", "Demo.company"}) {
        EXPECT_NE(other.at(name), first.at(name)) << name;
    }
}

TEST(DemoShop, ReceiptsBalanceAndHaveTheRecordsAskedFor) {
    const demo::Shop shop = demo::MakeShop({});
    const struct {
        std::int64_t sales, lines;
    } cases[] = {{0, 0}, {1, 2}, {1, 500}, {30, 60}, {30, 61}, {40, 140}, {5, 4000}, {900, 3000}};
    for (const auto& [sales, lines] : cases) {
        for (const bool paymentsGoWithGoods : {false, true}) {
            const auto receipts = ReceiptsOf(shop, sales, lines, paymentsGoWithGoods);
            EXPECT_EQ(receipts.size(), static_cast<std::size_t>(sales));
            std::size_t records = 0;
            for (const demo::Receipt& receipt : receipts) {
                std::int64_t balance = 0;
                for (const demo::ReceiptLine& line : receipt.lines)
                    balance += line.amount;
                EXPECT_EQ(balance, 0);
                records += receipt.lines.size();
            }
            EXPECT_EQ(records, static_cast<std::size_t>(lines)) << sales << " sales";
        }
    }
}

TEST(DemoShop, AnOrdinaryDayHasEveryKindOfRecordAndSale) {
    std::set<int> kinds;
    std::set<int> salesTypes;
    std::set<int> vatCodes;
    bool hasReturn = false;
    for (const demo::Receipt& receipt : ReceiptsOf(demo::MakeShop({}), 40, 140, false)) {
        salesTypes.insert(receipt.salesType);
        for (const demo::ReceiptLine& line : receipt.lines) {
            kinds.insert(line.kind);
            hasReturn = hasReturn || line.quantity < 0;
            if (line.vatCode != 0) vatCodes.insert(line.vatCode);
            if (line.kind == demo::record::kCash) {
                EXPECT_EQ(line.amount % 100, 0) << "no coins below one krone";
            }
            const bool onAccount = line.kind >= demo::record::kCreditSale &&
                                   line.kind <= demo::record::kInvoicePayment;
            EXPECT_TRUE(!onAccount || receipt.customer != nullptr);
        }
    }
    EXPECT_EQ(kinds,
              (std::set<int>{0, 1, 2, 10, 11, 12, 13, 14, 15, 16, 21, 22, 23, 24, 25, 26, 27}));
    EXPECT_EQ(salesTypes, (std::set<int>{1, 2, 4}));
    EXPECT_EQ(vatCodes, (std::set<int>{3, 5, 31, 33}));
    EXPECT_TRUE(hasReturn);
}

TEST(DemoShop, FilesAndTablesHoldWhatWasAskedFor) {
    const TempFolder folder;
    demo::ShopOptions options = Options(folder);
    options.sales = 25;
    options.lines = 90;
    options.changedCustomers = 4;
    options.changedProducts = 7;
    demo::MakeDemoShop(options);

    const platform::recordset_file::PersistConnection files("Provider=MSPersist;");
    const auto lines = files.LoadRows(folder.File("Kasse2DayEndSalesLines.XML"));
    ASSERT_EQ(lines->rows.size(), 90U);
    EXPECT_EQ(files.OpenRecordset(folder.File("Kasse2DayEndSales.XML"))->RecordCount(), 25);

    const std::string store = folder.File("data/Kassovia.mdb");
    EXPECT_EQ(FirstColumn(store, "SELECT Status FROM Customers WHERE Status <> 0"),
              (std::vector<int>{1, 2, 1, 2}));
    EXPECT_EQ(FirstColumn(store, "SELECT count(*) FROM Products WHERE Status <> 0"),
              std::vector<int>{7});
    EXPECT_EQ(FirstColumn(store,
                          "SELECT count(*) FROM PriceMatrix, Products WHERE ProdNo = ID AND "
                          "PriceMatrix.Status = Products.Status"),
              FirstColumn(store, "SELECT count(*) FROM Products"));

    // The import copies by position, so the work tables have the columns of the files.
    const auto work =
        platform::database::SqliteEngine().OpenDatabase(folder.File("data/KVDayEndServer.mdb"));
    const auto table = work->OpenAppender("SalesLines");
    ASSERT_EQ(static_cast<std::size_t>(table->FieldCount()), lines->fields.size());
    for (int i = 0; i < table->FieldCount(); ++i) {
        const auto place = static_cast<std::size_t>(i);
        EXPECT_EQ(table->FieldName(i), lines->fields[place]);
        EXPECT_NO_THROW(table->Set(i, lines->rows.front()[place])) << table->FieldName(i);
    }
    EXPECT_NE(folder.Read("Kassovia.ini").find("=B\xF8 Landhandel\r\n"), std::string::npos);
}

TEST(DemoShop, ReceiptsOfASapShopHoldNothingThatTheTransferCouldNotTake) {
    const TempFolder folder;
    demo::ShopOptions options = Options(folder);
    options.sap = true;
    options.sales = 200;
    demo::MakeDemoShop(options);
    std::set<std::string> known;
    for (const demo::Product& product : demo::MakeShop(options).products)
        known.insert(product.id);
    const auto lines = platform::recordset_file::PersistConnection("Provider=MSPersist;")
                           .OpenRecordset(folder.File("Kasse1DayEndSalesLines.XML"));
    std::set<int> withGoods;
    std::set<int> withPaidInvoice;
    for (; !lines->IsEof(); lines->MoveNext()) {
        const int kind = ToInt32(lines->Get("TransType"));
        const int sale = ToInt32(lines->Get("SalesID"));
        if (kind == demo::record::kInvoicePayment) withPaidInvoice.insert(sale);
        if (kind != demo::record::kGoods && kind != demo::record::kService) continue;
        withGoods.insert(sale);
        EXPECT_TRUE(known.contains(*lines->Get("ProductID").AsText()));
    }
    EXPECT_FALSE(withPaidInvoice.empty());
    for (const int sale : withPaidInvoice)
        EXPECT_TRUE(withGoods.contains(sale)) << sale;
}

TEST(DemoShop, TheCompanyHasWhatAnEarlierTransferBrought) {
    const TempFolder folder;
    demo::ShopOptions options = Options(folder);
    options.sap = true;
    demo::MakeDemoShop(options);
    const std::string company = folder.File("Demo.company");
    EXPECT_EQ(FirstColumn(company, "SELECT count(*) FROM OCRD WHERE CardCode = '10000'"),
              std::vector<int>{1})
        << "the anonymous customer";
    const auto store =
        platform::database::SqliteEngine().OpenDatabase(folder.File("data/Kassovia.mdb"));
    const auto companyDatabase = platform::database::SqliteEngine().OpenDatabase(company);
    for (const auto rows = store->OpenQuery("SELECT ID, Status FROM Products"); !rows->IsEof();
         rows->MoveNext()) {
        const std::string id = *rows->Get("ID").AsText();
        const auto item =
            companyDatabase->OpenQuery("SELECT ItemCode FROM OITM WHERE ItemCode = '" + id + "'");
        EXPECT_EQ(item->IsEof(), ToInt32(rows->Get("Status")) == 1) << id;
    }
}

TEST(DemoShop, SaleNumbersOfASapShopStayWithin16BitsWhileTheyCan) {
    demo::ShopOptions options;
    options.sap = true;
    const struct {
        std::int64_t sales, firstOfTheSecond;
    } cases[] = {{40, 1041}, {15883, 16884}, {15884, 1}, {40000, 1}};
    for (const auto& [sales, firstOfTheSecond] : cases) {
        options.sales = sales;
        EXPECT_EQ(demo::FirstSaleId(options, 2), firstOfTheSecond) << sales;
    }
}

TEST(DemoShop, BarCodesHaveTheirCheckDigit) {
    EXPECT_EQ(demo::WithCheckDigit("590123412345"), "5901234123457");
    EXPECT_EQ(demo::WithCheckDigit("400638133393"), "4006381333931");
    EXPECT_EQ(demo::WithCheckDigit("000000000000"), "0000000000000");
    for (const demo::Product& product : demo::MakeShop({}).products) {
        EXPECT_EQ(demo::WithCheckDigit(product.barCode.substr(0, 12)), product.barCode);
    }
}

TEST(DemoShop, OnlyADemoShopIsReplaced) {
    const TempFolder foreign;
    foreign.Write("Kassovia.ini", "[General]\r\n");
    EXPECT_THROW(demo::MakeDemoShop(Options(foreign)), demo::FolderInUse);
    EXPECT_EQ(foreign.Read("Kassovia.ini"), "[General]\r\n");
    EXPECT_FALSE(foreign.Has("data"));

    const TempFolder own;
    demo::ShopOptions options = Options(own);
    demo::MakeDemoShop(options);
    own.Write("notes.txt", "kept");
    own.Write("Kasse1DayEndSales.XML.202511301507.ferdig", "");
    own.Write("import/bilag.txt", "");
    options.dataSets = 1;
    demo::MakeDemoShop(options);
    EXPECT_TRUE(own.Has("notes.txt"));
    EXPECT_FALSE(own.Has("Kasse1DayEndSales.XML.202511301507.ferdig"));
    EXPECT_FALSE(own.Has("Kasse2DayEndSales.XML"));
    EXPECT_FALSE(own.Has("import/bilag.txt"));
}

}  // namespace
