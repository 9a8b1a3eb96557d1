#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>

#include "tests/localcompany/company_fixture.h"
#include "tests/support/platform/expect_error.h"

namespace localcompany {

using platform::Value;
using platform::sapdi::BusinessPartners;
using platform::sapdi::Documents;
using platform::sapdi::Items;
using platform::sapdi::JournalEntries;
using platform::sapdi::LastError;
using platform::sapdi::ObjectType;
using platform::sapdi::Query;
using platform::sapdi::TransactionEnd;
namespace {

namespace number = platform::error_number;
using support::ExpectError;

struct LogonCase {
    std::string server, database, user;
    std::string_view password;
    std::int32_t code;
};

class LocalCompany : public CompanyTest {
  protected:
    void ExpectLogon(const LogonCase& c) {
        SCOPED_TRACE(c.server + ", " + c.database + ", " + c.user + ", " + std::string(c.password));
        const auto company = connector_.CreateCompany();
        company->SetUseTrusted(true);  // the SAP user is checked all the same
        SetLogon(*company, c.server, c.database, c.user, c.password);
        EXPECT_EQ(company->Connect(), c.code);
        const LastError error = company->GetLastError();
        EXPECT_EQ(error.code, c.code);
        EXPECT_EQ(error.text.empty(), c.code == 0);
        EXPECT_TRUE(c.password.empty() || error.text.find(c.password) == std::string::npos);
        if (c.code != 0) {
            ExpectError(number::kObjectClosed, [&] { company->StartTransaction(); });
        }
    }
};

TEST_F(LocalCompany, ConnectsWhereServerCompanyAndUserAreAccepted) {
    const std::string folder = folder_.Path().string();
    std::string backslashed = folder;
    std::replace(backslashed.begin(), backslashed.end(), '/', '\\');
    folder_.Write("Rubbish.company", std::string(5000, 'x'));
    std::filesystem::create_directory(folder_.Path() / "Sub");
    const LogonCase cases[] = {
        {"", "demo", "manager", kPassword, 0},
        {"(LOCAL)", "Demo", "MANAGER ", kPassword, 0},
        {folder, "Demo", "manager", kPassword, 0},
        {backslashed, "Demo", "manager", kPassword, 0},
        {"SQLSRV01", "Demo", "manager", kPassword, -10},
        {folder + "/Sub", "Demo", "manager", kPassword, -10},
        {folder + "/Sub", "../Demo", "manager", kPassword, -10},
        {"", "Sub\\..\\Demo", "manager", kPassword, -10},
        {"", folder + "/Demo", "manager", kPassword, -10},
        {"", "", "manager", kPassword, -10},
        {"", "Other", "manager", kPassword, -10},
        {"", "Rubbish", "manager", kPassword, -10},
        {"", "Demo", "", kPassword, -10},
        {"", "Demo", "nobody", kPassword, -10},
        {"", "Demo", "manager", "Landhandel", -10},
        {"", "Demo", "manager", "landhandel2", -10},
        {"", "Demo", "manager", "", -10},
        {"", "Demo", "empty", "", -10},
        {"", "Demo", "none", "", -10},
    };
    for (const LogonCase& c : cases)
        ExpectLogon(c);
    EXPECT_FALSE(folder_.Has("Other.company"));
    EXPECT_FALSE(folder_.Has("Sub/Demo.company"));
}

TEST_F(LocalCompany, ARefusedLogonTellsTheReasonWithoutSql) {
    const auto refusal = [&](const std::string& companyDb) {
        const auto company = connector_.CreateCompany();
        SetLogon(*company, "", companyDb, "manager", kPassword);
        EXPECT_EQ(company->Connect(), -10);
        return company->GetLastError().text;
    };
    (void)engine_.CreateDatabase(folder_.File("Empty.company"));
    folder_.Write("Rubbish.company", std::string(5000, 'x'));
    const auto other = engine_.OpenDatabase(folder_.File("Demo.company"));
    other->Execute("BEGIN EXCLUSIVE");
    for (const auto& [companyDb, reason] :
         {std::pair<const char*, const char*>{"Empty", "no such table"},
          {"Rubbish", "not a database"},
          {"Demo", "locked"}}) {
        const std::string text = refusal(companyDb);
        EXPECT_NE(text.find(reason), std::string::npos) << text;
        EXPECT_NE(text.find(companyDb), std::string::npos) << text;
        EXPECT_EQ(text.find("SQL"), std::string::npos) << text;
        EXPECT_EQ(text.find("SELECT"), std::string::npos) << text;
    }
}

TEST_F(LocalCompany, RefusesObjectsAndCallsWithoutAConnection) {
    const auto partner = New<BusinessPartners>(ObjectType::BusinessPartners);
    const auto item = New<Items>(ObjectType::Items);
    const auto document = Document("1000", "kaffe");
    const auto entry = New<JournalEntries>(ObjectType::JournalEntries);
    const auto query = New<Query>(ObjectType::Recordset);
    ExpectError(number::kTypeMismatch, [&] { (void)New<Items>(ObjectType::Orders); });
    company_->StartTransaction();
    EXPECT_EQ(document->Add(), 0);
    company_->Disconnect();
    EXPECT_FALSE(company_->InTransaction());
    EXPECT_EQ(Rows("SELECT count(*) FROM OINV"), "0");

    const std::function<void()> calls[] = {
        [&] { (void)company_->GetBusinessObject(ObjectType::Items); },
        [&] { company_->StartTransaction(); },
        [&] { company_->EndTransaction(TransactionEnd::Commit); },
        [&] { (void)partner->Add(); },
        [&] { (void)partner->Update(); },
        [&] { (void)partner->GetByKey("1000"); },
        [&] { (void)item->Add(); },
        [&] { (void)item->GetByKey("kaffe"); },
        [&] { item->PriceList().SetPrice(1); },
        [&] { (void)document->Add(); },
        [&] { (void)document->GetByKey(1); },
        [&] { (void)entry->Add(); },
        [&] { query->DoQuery("SELECT 1"); },
    };
    for (const auto& call : calls)
        ExpectError(number::kObjectClosed, call);
    company_.reset();
    ExpectError(number::kObjectClosed, [&] { (void)partner->Add(); });
}

TEST_F(LocalCompany, RollsBackTheTransactionInWhichAnAddFails) {
    company_->StartTransaction();
    ExpectError(-2038, [&] { company_->StartTransaction(); });
    EXPECT_EQ(company_->GetLastError().code, -2038);
    EXPECT_TRUE(company_->InTransaction());
    EXPECT_EQ(AddItem("Mel"), 0);
    EXPECT_EQ(Document("1000", "mel")->Add(), 0);
    EXPECT_EQ(Document("1000", "none")->Add(), -2028);
    EXPECT_FALSE(company_->InTransaction());
    ExpectError(-2038, [&] { company_->EndTransaction(TransactionEnd::Commit); });

    EXPECT_EQ(Document("1000", "mel")->Add(), -2028) << "rolled back with the rest";
    EXPECT_EQ(Document("1000", "te")->Add(), 0);
    EXPECT_EQ(Rows("SELECT DocEntry, CardCode FROM OINV"), "1|1000") << "commits by itself";

    company_->StartTransaction();
    EXPECT_EQ(Document("1000", "te")->Add(), 0);
    EXPECT_EQ(Rows("SELECT count(*) FROM OINV"), "1");
    company_->EndTransaction(TransactionEnd::Commit);
    EXPECT_EQ(Rows("SELECT count(*) FROM INV1"), "2");

    company_->StartTransaction();
    EXPECT_EQ(Document("1000", "te")->Add(), 0);
    const auto partner = New<BusinessPartners>(ObjectType::BusinessPartners);
    partner->SetCardCode("9");
    EXPECT_EQ(partner->Update(), -2028) << "an update ends it as well";
    EXPECT_FALSE(company_->InTransaction());

    company_->StartTransaction();
    EXPECT_EQ(Document("1000", "te")->Add(), 0);
    company_->EndTransaction(TransactionEnd::RollBack);
    company_->StartTransaction();
    EXPECT_EQ(AddItem("Mel"), 0);
    company_.reset();
    EXPECT_EQ(Rows("SELECT (SELECT count(*) FROM INV1), (SELECT count(*) FROM OITM)"), "2|2");
}

TEST_F(LocalCompany, KeepsTheLastErrorUntilTheNextChange) {
    constexpr std::string_view kText = "Item code 'te' already exists";
    EXPECT_EQ(AddItem("te"), -2035);
    EXPECT_FALSE(New<Documents>(ObjectType::Invoices)->GetByKey(1));
    const auto query = New<Query>(ObjectType::Recordset);
    query->DoQuery("SELECT 1");
    ExpectError(number::kSyntaxError, [&] { query->DoQuery("SELEC"); });
    ExpectLastError(-2035, kText);
    company_->StartTransaction();
    ExpectLastError(0, "");
    EXPECT_EQ(AddItem("te"), -2035);
    company_->StartTransaction();
    company_->EndTransaction(TransactionEnd::RollBack);
    ExpectLastError(0, "");
    EXPECT_EQ(AddItem("te"), -2035);
    EXPECT_EQ(company_->Connect(), 0);
    ExpectLastError(0, "");

    const auto other = engine_.OpenDatabase(folder_.File("Demo.company"));
    const auto lock = other->BeginTransaction();
    EXPECT_EQ(AddItem("Mel"), number::kDatabaseInUse) << "what the database refuses is told too";
    EXPECT_EQ(company_->GetLastError().code, number::kDatabaseInUse);
}

TEST_F(LocalCompany, RunsAnyOneStatement) {
    EXPECT_EQ(Document("1000", "te")->Add(), 0);
    const auto query = New<Query>(ObjectType::Recordset);
    EXPECT_TRUE(query->QueryEof());
    query->DoQuery("SELECT * FROM OITM WHERE UPPER(ItemCode) = 'KAFFE'");
    EXPECT_EQ(query->QueryRecordCount(), 1);
    EXPECT_EQ(query->QueryField("itemname"), Value("Kaffe"));
    query->QueryMoveNext();
    EXPECT_TRUE(query->QueryEof());
    ExpectError(number::kNoCurrentRecord, [&] { query->QueryMoveNext(); });
    query->DoQuery("UPDATE OINV SET Printed = 'Y' WHERE DocNum = 1");
    EXPECT_EQ(query->QueryRecordCount(), 0);
    EXPECT_EQ(Rows("SELECT Printed FROM OINV"), "Y");
    ExpectError(number::kSyntaxError,
                [&] { query->DoQuery("DELETE FROM OITM; DELETE FROM OCRD"); });
    EXPECT_EQ(Rows("SELECT count(*) FROM OITM"), "2");
}

}  // namespace
}  // namespace localcompany
