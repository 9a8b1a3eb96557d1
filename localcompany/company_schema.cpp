#include "localcompany/company_schema.h"

#include <string>
#include <string_view>

namespace localcompany {

namespace {

constexpr std::string_view kTables[] = {
    R"(CREATE TABLE OUSR (USER_CODE TEXT COLLATE NOCASE PRIMARY KEY, PASSWORD TEXT))",

    R"(CREATE TABLE OADM (DflDebAct TEXT))",

    R"(CREATE TABLE OACT (AcctCode TEXT COLLATE NOCASE PRIMARY KEY, AcctName TEXT))",

    R"(CREATE TABLE OCRD (
        CardCode TEXT COLLATE NOCASE PRIMARY KEY, CardName TEXT, Phone1 TEXT, Fax TEXT,
        E_Mail TEXT, Address TEXT, Block TEXT, City TEXT, ZipCode TEXT, DebPayAcct TEXT))",

    R"(CREATE TABLE OITM (ItemCode TEXT COLLATE NOCASE PRIMARY KEY, ItemName TEXT))",

    R"(CREATE TABLE OPLN (ListNum INTEGER PRIMARY KEY, ListName TEXT))",

    R"(CREATE TABLE ITM1 (
        ItemCode TEXT COLLATE NOCASE, PriceList INTEGER, Price REAL,
        PRIMARY KEY (ItemCode, PriceList)))",

    R"(CREATE TABLE OJDT (
        TransId INTEGER PRIMARY KEY AUTOINCREMENT, Number INTEGER, RefDate TEXT, DueDate TEXT,
        TaxDate TEXT, Memo TEXT))",

    R"(CREATE TABLE JDT1 (
        TransId INTEGER, Line_ID INTEGER, Account TEXT, ShortName TEXT, Debit REAL, Credit REAL,
        PRIMARY KEY (TransId, Line_ID)))",

    // The days that have been posted: Code and Name are a day's mark.
    R"(CREATE TABLE "@KVDAYEND" (Code TEXT PRIMARY KEY, Name TEXT))",
};

// Invoice, credit note, delivery, return, order: a table of heads and one of lines each.
constexpr std::string_view kDocuments[] = {"INV", "RIN", "DLN", "RDN", "RDR"};

constexpr std::string_view kDocumentColumns =
    " (DocEntry INTEGER PRIMARY KEY AUTOINCREMENT, DocNum INTEGER, CardCode TEXT COLLATE NOCASE, "
    "CardName TEXT, NumAtCard TEXT, Ref1 TEXT, Ref2 TEXT, DocDate TEXT, TaxDate TEXT, "
    "Comments TEXT, OwnRef TEXT, SlpCode INTEGER, Printed TEXT DEFAULT 'N')";

constexpr std::string_view kDocumentLineColumns =
    " (DocEntry INTEGER, LineNum INTEGER, ItemCode TEXT COLLATE NOCASE, Dscription TEXT, "
    "Quantity REAL, Price REAL, DiscPrcnt REAL, AcctCode TEXT, Project TEXT, OcrCode TEXT, "
    "PRIMARY KEY (DocEntry, LineNum))";

}  // namespace

void CreateCompanyTables(platform::database::Database& database) {
    for (const std::string_view sql : kTables)
        database.Execute(sql);
    for (const std::string_view document : kDocuments) {
        const std::string name(document);
        database.Execute("CREATE TABLE O" + name + std::string(kDocumentColumns));
        database.Execute("CREATE TABLE " + name + "1" + std::string(kDocumentLineColumns));
    }
}

}  // namespace localcompany
