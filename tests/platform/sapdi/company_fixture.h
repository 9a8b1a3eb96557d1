// A small local company for tests: accounts, two customers, two items and two price lists.
#pragma once

#include <crypt.h>
#include <gtest/gtest.h>

#include <memory>
#include <span>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>

#include "platform/database/sqlite_engine.h"
#include "platform/sapdi/local_company.h"
#include "tests/support/temp_folder.h"

namespace platform::sapdi {

inline constexpr std::string_view kPassword = "landhandel";

inline constexpr std::string_view kCompanyTables[] = {
    R"(CREATE TABLE OUSR (USER_CODE TEXT COLLATE NOCASE PRIMARY KEY, PASSWORD TEXT))",
    R"(CREATE TABLE OADM (DflDebAct TEXT))",
    R"(CREATE TABLE OACT (AcctCode TEXT COLLATE NOCASE PRIMARY KEY, AcctName TEXT))",
    R"(CREATE TABLE OCRD (CardCode TEXT COLLATE NOCASE PRIMARY KEY, CardName TEXT, Phone1 TEXT,
        Fax TEXT, E_Mail TEXT, Address TEXT, Block TEXT, City TEXT, ZipCode TEXT,
        DebPayAcct TEXT))",
    R"(CREATE TABLE OITM (ItemCode TEXT COLLATE NOCASE PRIMARY KEY, ItemName TEXT))",
    R"(CREATE TABLE OPLN (ListNum INTEGER PRIMARY KEY, ListName TEXT))",
    R"(CREATE TABLE ITM1 (ItemCode TEXT COLLATE NOCASE, PriceList INTEGER, Price REAL,
        PRIMARY KEY (ItemCode, PriceList)))",
    R"(CREATE TABLE OJDT (TransId INTEGER PRIMARY KEY AUTOINCREMENT, Number INTEGER, RefDate TEXT,
        DueDate TEXT, TaxDate TEXT, Memo TEXT))",
    R"(CREATE TABLE JDT1 (TransId INTEGER, Line_ID INTEGER, Account TEXT, ShortName TEXT,
        Debit REAL, Credit REAL, PRIMARY KEY (TransId, Line_ID)))",
    R"(INSERT INTO OADM VALUES ('1500'))",
    R"(INSERT INTO OACT VALUES ('1500', 'Kundefordringer'), ('1900', 'Kasse'), ('3000', 'Salg'))",
    R"(INSERT INTO OPLN VALUES (7, 'Kost'), (3, 'Utsalg'))",
    R"(INSERT INTO OCRD (CardCode, DebPayAcct) VALUES ('1000', '1510'), ('Ærlig AS', NULL))",
    R"(INSERT INTO OITM VALUES ('kaffe', 'Kaffe'), ('TE ', 'Te'))",
};

inline constexpr std::string_view kDocumentColumns =
    R"( (DocEntry INTEGER PRIMARY KEY AUTOINCREMENT, DocNum INTEGER,
        CardCode TEXT COLLATE NOCASE, CardName TEXT, NumAtCard TEXT, Ref1 TEXT, Ref2 TEXT,
        DocDate TEXT, TaxDate TEXT, Comments TEXT, OwnRef TEXT, SlpCode INTEGER,
        Printed TEXT DEFAULT 'N'))";

inline constexpr std::string_view kDocumentLineColumns =
    R"( (DocEntry INTEGER, LineNum INTEGER, ItemCode TEXT COLLATE NOCASE, Dscription TEXT,
        Quantity REAL, Price REAL, DiscPrcnt REAL, AcctCode TEXT, Project TEXT, OcrCode TEXT,
        PRIMARY KEY (DocEntry, LineNum)))";

// The kinds of documents with their tables: OINV and INV1, and so on.
inline constexpr std::pair<ObjectType, std::string_view> kDocuments[] = {
    {ObjectType::Invoices, "INV"},      {ObjectType::CreditNotes, "RIN"},
    {ObjectType::DeliveryNotes, "DLN"}, {ObjectType::Returns, "RDN"},
    {ObjectType::Orders, "RDR"},
};

// The rows of a query, values parted by `|`, rows by `;`, null as `-`.
inline std::string RowsOf(Database& database, std::string_view sql) {
    std::ostringstream text;
    for (const auto rows = database.OpenQuery(sql); !rows->IsEof(); rows->MoveNext()) {
        if (text.tellp() > 0) text << ";";
        for (int i = 0; i < rows->FieldCount(); ++i) {
            const Value value = rows->Get(i);
            text << (i == 0 ? "" : "|");
            if (value.IsNull()) text << "-";
            if (const auto* whole = value.AsWhole()) text << *whole;
            if (const auto* floating = value.AsFloating()) text << *floating;
            if (const auto* string = value.AsText()) text << *string;
        }
    }
    return text.str();
}

class CompanyTest : public ::testing::Test {
  protected:
    CompanyTest() {
        const auto database = engine_.CreateDatabase(folder_.File("Demo.company"));
        const auto transaction = database->BeginTransaction();
        for (const std::string_view sql : kCompanyTables)
            database->Execute(sql);
        for (const auto& [type, name] : kDocuments) {
            const std::string table(name);
            database->Execute("CREATE TABLE O" + table + std::string(kDocumentColumns));
            database->Execute("CREATE TABLE " + table + "1" + std::string(kDocumentLineColumns));
        }
        crypt_data scratch{};
        const Value hash = crypt_r(std::string(kPassword).c_str(), "$6$salt", &scratch);
        database->Prepare("INSERT INTO OUSR VALUES ('manager', ?1), ('empty', ''), ('none', NULL)")
            ->Run(std::span(&hash, 1));
        transaction->Commit();
        SetLogon(*company_, "", "Demo", "manager", kPassword);
        EXPECT_EQ(company_->Connect(), 0);
    }

    static void SetLogon(Company& company, std::string_view server, std::string_view database,
                         std::string_view user, std::string_view password) {
        company.SetServer(server);
        company.SetCompanyDB(database);
        company.SetUserName(user);
        company.SetPassword(password);
    }

    template <class Kind>
    std::unique_ptr<Kind> New(ObjectType type) {
        return GetObject<Kind>(*company_, type);
    }

    std::unique_ptr<Documents> Document(std::string_view customer, std::string_view item,
                                        std::string_view account = "",
                                        ObjectType type = ObjectType::Invoices) {
        auto document = New<Documents>(type);
        document->SetCardCode(customer);
        document->Lines().SetItemCode(item);
        document->Lines().SetAccountCode(account);
        return document;
    }

    std::int32_t AddPartner(std::string_view code) {
        const auto partner = New<BusinessPartners>(ObjectType::BusinessPartners);
        partner->SetCardCode(code);
        return partner->Add();
    }

    std::int32_t AddItem(std::string_view code) {
        const auto item = New<Items>(ObjectType::Items);
        item->SetItemCode(code);
        return item->Add();
    }

    void ExpectLastError(std::int32_t code, std::string_view text) {
        EXPECT_EQ(company_->GetLastError().code, code);
        EXPECT_EQ(company_->GetLastError().text, text);
    }

    // As another program sees the company's file.
    std::string Rows(std::string_view sql) {
        return RowsOf(*engine_.OpenDatabase(folder_.File("Demo.company")), sql);
    }

    support::TempFolder folder_;
    SqliteEngine engine_{std::chrono::milliseconds(20)};
    LocalConnector connector_{engine_, folder_.Path().string()};
    std::unique_ptr<Company> company_ = connector_.CreateCompany();
};

}  // namespace platform::sapdi
