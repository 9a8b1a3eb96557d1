#include "tests/support/store/store_shop.h"

#include "platform/norwegian.h"
#include "platform/recordset_file/writer.h"
#include "store/data_set.h"
#include "store/schema.h"

namespace support {

namespace {

constexpr const char* kOptionsRow =
    "INSERT INTO Options (NextVoucherNo, DeptNo, CreditToOrder, GrossPrices, StockNo, SalesAccount,"
    " DefaultVATCode, Long1, CashAccount, BankAccount, IOUAccount, IOUName, Card1Account,"
    " Card1Name, Card7Account, Card7Name, DefaultCustomerID, SAPSalesPriceList, SAPCostPriceList)"
    " VALUES (500, 7, 0, 1, 4, 3000, 3, 7740, 1900, 1920, 2905, 'Tilgodelapp', 1581, 'Bankkort',"
    " 1587, 'Gavekort', 'KONTANT', 1, 2)";

std::string FirstColumn(platform::database::Database& database, std::string_view sql) {
    std::string texts;
    for (const platform::database::Row& row : database.Prepare(sql)->Run({}))
        texts += (texts.empty() ? "" : " ") + platform::ToText(row.front());
    return texts;
}

}  // namespace

StoreShop::StoreShop() : before_(std::filesystem::current_path()) {
    std::filesystem::current_path(folder.Path());
    std::filesystem::create_directory("data");
    store::CreateStoreTables(*engine.CreateDatabase("data/Kassovia.mdb"));
    store::CreateSalesTables(*engine.CreateDatabase("data/KVDayEndServer.mdb"));

    settings.AppTitle = "Dagsoppgjør for Kassovia";
    settings.Pattern = "*DayEnd*.xml";
    settings.Datapath = "data";
    settings.VoucherFileName = "bilag.txt";
    settings.EDIFileName = "ordre.edi";
    settings.Overwrite = "0";
    store::OpenConnections(engine, settings.Datapath, databases);
    InStore(kOptionsRow);
    InStore("INSERT INTO Tax (VatCode, Rate) VALUES (3, 25), (31, 15)");
    if (store::OpenTables(databases, theOperator, settings.AppTitle) != store::AfterOpening::GoOn) {
        ADD_FAILURE() << "the shop's tables do not open";
    }
}

StoreShop::~StoreShop() {
    std::error_code ignored;
    std::filesystem::current_path(before_, ignored);
}

void StoreShop::WriteDataSet(std::string_view name, const std::vector<Sale>& sales,
                             const std::vector<Line>& lines) const {
    const store::DataSet dataSet{std::string(name)};
    platform::recordset_file::RecordsetFileWriter salesFile(dataSet.SalesFile(),
                                                            store::SalesColumns());
    for (const Sale& s : sales) {
        salesFile.Write({s.id, s.type, s.status, s.date, platform::Value(), s.customerID,
                         s.customerName, s.project, s.ourRef, s.yourRef, s.selBuy});
    }
    salesFile.Finish();
    platform::recordset_file::RecordsetFileWriter linesFile(dataSet.SalesLinesFile(),
                                                            store::SalesLinesColumns());
    for (const Line& l : lines) {
        linesFile.Write({l.saleId, l.lineNo, platform::Value(20051116), l.transType, l.productID,
                         l.description, l.qty, l.price, l.discount, l.costPrice, l.amount,
                         l.vatCode, l.salesAccount, l.string1});
    }
    linesFile.Finish();
}

void StoreShop::SpellReceiptNumbers(std::string_view name, std::string_view type,
                                    std::string_view first, std::string_view second) const {
    const auto replace = [](std::string& text, std::string_view from, const std::string& to) {
        for (std::size_t at = text.find(from); at != text.npos; at = text.find(from, at))
            text.replace(at, from.size(), to), at += to.size();
    };
    for (const char* file : {"DayEndSales.XML", "DayEndSalesLines.XML"}) {
        const std::string fileName = std::string(name) + file;
        std::string text = folder.Read(fileName);
        // The number is the first column.
        const std::size_t at = text.find("dt:type='int'");
        text.replace(at, std::string_view("dt:type='int'").size(),
                     "dt:type='" + std::string(type) + "'");
        for (const std::string field : {"<z:row ID='", "<z:row SalesID='"}) {
            replace(text, field + "1'", field + std::string(first) + "'");
            replace(text, field + "2'", field + std::string(second) + "'");
        }
        folder.Write(fileName, text);
    }
}

std::string StoreShop::AskStore(std::string_view sql) {
    return FirstColumn(*databases.StoreDatabase, sql);
}

std::string StoreShop::AskWork(std::string_view sql) {
    return FirstColumn(*databases.WorkConnection, sql);
}

}  // namespace support
