#include "sap/payments.h"

#include <gtest/gtest.h>

#include "platform/database/client_recordset.h"
#include "platform/text.h"
#include "tests/support/platform/expect_error.h"
#include "tests/support/sap/sap_shop.h"

namespace sapdi = platform::sapdi;
using platform::Value;

namespace {

// Rows that are a recordset of the store database and a query result of the SAP company at once.
class BothInterfaces : public platform::database::ClientRecordset, public sapdi::QueryResult {
  public:
    using platform::database::ClientRecordset::ClientRecordset;
    [[nodiscard]] std::int32_t QueryRecordCount() const override {
        return static_cast<std::int32_t>(RecordCount());
    }
    [[nodiscard]] bool QueryEof() const override { return IsEof(); }
    [[nodiscard]] Value QueryField(std::string_view name) const override { return Get(name); }
    void QueryMoveNext() override { MoveNext(); }
};

// A store database whose one query gives such rows.
class StoreWithQueryResults : public platform::database::Database {
  public:
    explicit StoreWithQueryResults(std::vector<platform::database::Row> rows)
        : rows_(std::move(rows)) {}
    std::unique_ptr<platform::database::ClientRecordset> OpenQuery(
        std::string_view sql, std::span<const Value> values) override {
        query = sql;
        queryValues.assign(values.begin(), values.end());
        auto rowSet = std::make_shared<platform::database::RowSet>();
        rowSet->fields = {"SalesLines.SalesDate", "TransType", "CustomerID", "SalesLines.Amount"};
        rowSet->rows = rows_;
        return std::make_unique<BothInterfaces>(rowSet);
    }
    std::unique_ptr<platform::database::TableRecordset> OpenTable(std::string_view) override {
        return {};
    }
    std::unique_ptr<platform::database::TableAppender> OpenAppender(std::string_view) override {
        return {};
    }
    void Execute(std::string_view) override {}
    std::unique_ptr<platform::database::PreparedStatement> Prepare(std::string_view) override {
        return {};
    }
    std::unique_ptr<platform::database::Transaction> BeginTransaction() override { return {}; }
    std::unique_ptr<platform::database::ScopedIndex> IndexWhileInScope(std::string_view,
                                                                       std::string_view) override {
        return {};
    }
    std::string query;
    platform::database::Row queryValues;

  private:
    std::vector<platform::database::Row> rows_;
};

class Payments : public testing::Test {
  protected:
    Payments() {
        shop.Connect();
        shop.objects.SalesDocument = sapdi::GetObject<sapdi::Documents>(
            *shop.objects.SAPCompany, sapdi::ObjectType::Invoices);
        shop.objects.SalesDocument->SetDocDate({2005, 11, 16, 0, 0, 0});
        shop.objects.CustomerPartner = sapdi::GetObject<sapdi::BusinessPartners>(
            *shop.objects.SAPCompany, sapdi::ObjectType::BusinessPartners);
        shop.InCompany("INSERT INTO OACT (AcctCode) VALUES ('0'), ('1501'), ('1587'), ('1920')");
    }

    // Books the payments of sale 17, which the store database gives as these rows.
    void BookReceipt(std::vector<platform::database::Row> rows) {
        StoreWithQueryResults store(std::move(rows));
        sap::CreateReceiptPayments(shop.context, store, 17);
        EXPECT_EQ(store.query,
                  "select * from Sales, SalesLines WHERE Sales.ID = SalesLines.SalesID and "
                  "(SalesLines.TransType >=? and SalesLines.TransType <= ?) and "
                  "SalesLines.SalesID = ?");
        EXPECT_EQ(store.queryValues, (platform::database::Row{10, 19, 17}));
    }

    support::SapShop shop;
};

constexpr const char* kEntries = "SELECT RefDate, TaxDate, DueDate, Memo FROM OJDT";
constexpr const char* kEntryLines = "SELECT Line_ID, Account, ShortName, Debit, Credit FROM JDT1";

}  // namespace

TEST_F(Payments, RowsOfTheRealStoreDatabaseAreNoQueryResult) {
    support::ExpectError(
        13, [&] { sap::CreateReceiptPayments(shop.context, *shop.databases.StoreDatabase, 17); });
    EXPECT_EQ(shop.AskCompany(kEntries), "");
}

TEST_F(Payments, OneEntryWithALineForEachPayment) {
    BookReceipt({{20051115, 15, "1001", 500.0}, {20051116, 10, "1001", -500.0}});
    EXPECT_EQ(shop.AskCompany(kEntries),
              "2005-11-16 2005-11-16 2005-11-16 Betaling av salg 17 fra Kassovia.|");
    EXPECT_EQ(shop.AskCompany(kEntryLines), "0 1501 1001 0 500|1 1900 NULL 500 0|");
    BookReceipt({{20051116, 11, "", -5.0}, {20051116, 15, "1001", 5.0}});
    EXPECT_EQ(shop.AskCompany("SELECT Memo FROM OJDT WHERE TransId = 2"),
              "Betaling av faktura på salg 17 fra Kassovia.|");
    BookReceipt({});
    EXPECT_EQ(shop.AskCompany("SELECT count(*) FROM OJDT"), "2|");
}

TEST_F(Payments, AMissingAccountIsAskedFor) {
    shop.InStore("UPDATE Options SET CashAccount = 0");
    shop.theOperator.inputs = {"1920", "", "", "1900"};
    BookReceipt({{20051116, 13, "", -7.0}, {20051116, 14, "", 0.0}, {20051116, 10, "", 7.0}});
    EXPECT_EQ(shop.AskCompany(kEntryLines), "0 1920 NULL 7 0|1 0 NULL 0 0|2 1900 NULL 0 7|");
    const platform::InputRequest& request = shop.theOperator.prompted.at(0);
    EXPECT_EQ(request.text,
              "Mangler kontonummer for betalingsmiddel på bong# 17. Dokument# 0.\n"
              "Hvilken balansekonto skal betalingen inn på?");
    EXPECT_EQ(request.title + request.defaultText, "Kontonummer9999");
}

TEST_F(Payments, AnEntryThatIsNotAddedIsToldAndKeptAsAFile) {
    shop.objects.SAPCompany->StartTransaction();
    BookReceipt({{20051116, 10, "", -7.0}});
    ASSERT_EQ(shop.theOperator.shown.size(), 2U);
    EXPECT_EQ(shop.theOperator.shown[0],
              "Klarte ikke opprette betaling for bong 17. Noter ned nummeret og feilmelding.");
    EXPECT_EQ(shop.theOperator.shown[1].find("Feil:-5002,"), 0U);
    EXPECT_TRUE(shop.runState.DataSetHasErrors);
    EXPECT_TRUE(shop.folder.Has("0.xml"));
    EXPECT_EQ(shop.theOperator.boxes, "- !T ");
    EXPECT_TRUE(shop.objects.SAPCompany->InTransaction());
}

TEST_F(Payments, OfADocument) {
    (void)shop.objects.CustomerPartner->GetByKey("1001");
    sap::CreateDocumentPayment(shop.context, 27, -80.5, "1001", 17);
    shop.theOperator.inputs = {"1920"};
    sap::CreateDocumentPayment(shop.context, 15, 20, "1001", 18);
    EXPECT_EQ(shop.AskCompany(kEntries),
              "2005-11-16 2005-11-16 2005-11-16 Betaling av salg 17 fra Kassovia.|"
              "2005-11-16 2005-11-16 2005-11-16 Betaling av faktura på salg 18 fra Kassovia.|");
    EXPECT_EQ(shop.AskCompany(kEntryLines),
              "0 1501 1001 80,5 0|1 1587 NULL 0 80,5|"
              "0 1501 1001 0 20|1 1920 NULL 20 0|");
    shop.InStore("UPDATE Options SET BankAccount = NULL");
    shop.context.Options.Refresh();
    support::ExpectError(13, [&] { sap::CreateDocumentPayment(shop.context, 12, 1, "1001", 19); });
}
