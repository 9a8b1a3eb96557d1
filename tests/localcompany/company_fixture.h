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

#include "localcompany/company_schema.h"
#include "localcompany/local_company.h"
#include "platform/database/sqlite_engine.h"
#include "tests/support/platform/temp_folder.h"

namespace localcompany {

using platform::Value;
using platform::database::Database;
using platform::database::SqliteEngine;
using platform::sapdi::BusinessPartners;
using platform::sapdi::Company;
using platform::sapdi::Documents;
using platform::sapdi::GetObject;
using platform::sapdi::Items;
using platform::sapdi::ObjectType;

inline constexpr std::string_view kPassword = "landhandel";

inline constexpr std::string_view kCompanyRows[] = {
    R"(INSERT INTO OADM VALUES ('1500'))",
    R"(INSERT INTO OACT VALUES ('1500', 'Kundefordringer'), ('1900', 'Kasse'), ('3000', 'Salg'))",
    R"(INSERT INTO OPLN VALUES (7, 'Kost'), (3, 'Utsalg'))",
    R"(INSERT INTO OCRD (CardCode, DebPayAcct) VALUES ('1000', '1510'), ('Ærlig AS', NULL))",
    R"(INSERT INTO OITM VALUES ('kaffe', 'Kaffe'), ('TE ', 'Te'))",
};

// The kinds of documents with their tables: OINV and INV1, and so on.
inline constexpr std::pair<ObjectType, std::string_view> kDocuments[] = {
    {ObjectType::Invoices, "INV"},      {ObjectType::CreditNotes, "RIN"},
    {ObjectType::DeliveryNotes, "DLN"}, {ObjectType::Returns, "RDN"},
    {ObjectType::Orders, "RDR"},
};

// The rows of a query, values parted by `|`, rows by `;`, null as `-`.
inline std::string RowsOf(Database& database, std::string_view sql) {
    std::ostringstream text;
    for (const platform::database::Row& row : database.Prepare(sql)->Run({})) {
        if (text.tellp() > 0) text << ";";
        const char* separator = "";
        for (const Value& value : row) {
            text << std::exchange(separator, "|");
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
        CreateCompanyTables(*database);
        for (const std::string_view sql : kCompanyRows)
            database->Execute(sql);
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

}  // namespace localcompany
