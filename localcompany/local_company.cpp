#include "localcompany/local_company.h"

#include <utility>

#include "localcompany/company_session.h"
#include "localcompany/local_documents.h"
#include "localcompany/local_items.h"
#include "localcompany/local_journal_entries.h"
#include "localcompany/local_partners.h"
#include "localcompany/local_query.h"
#include "localcompany/logon.h"
#include "platform/database/statement_text.h"
#include "platform/error.h"
#include "platform/sapdi/error_codes.h"

namespace localcompany {

using platform::RuntimeError;
using platform::database::DatabaseEngine;
using platform::sapdi::BusinessObject;
using platform::sapdi::Company;
using platform::sapdi::LastError;
using platform::sapdi::ObjectType;
using platform::sapdi::TransactionEnd;
namespace error_number = platform::error_number;
namespace error_code = platform::sapdi::error_code;

namespace {

// A company that was made by others may lack the table of marks.
constexpr std::string_view kMarkTable = "@KVDAYEND";
constexpr std::string_view kMarkQuery = R"(SELECT 1 FROM "@KVDAYEND" WHERE Code = ?)";
constexpr std::string_view kMarkInsertion =
    R"(INSERT INTO "@KVDAYEND" (Code, Name) VALUES (?1, ?1))";

// Objects share the session, so that one that is left over when the company goes is unconnected.
class LocalCompany : public Company {
  public:
    LocalCompany(DatabaseEngine& engine, std::string programFolder)
        : engine_(engine), programFolder_(std::move(programFolder)) {}
    ~LocalCompany() override { session_->Close(); }
    LocalCompany(const LocalCompany&) = delete;
    LocalCompany& operator=(const LocalCompany&) = delete;

    void SetUseTrusted(bool trusted) override { useTrusted_ = trusted; }
    [[nodiscard]] bool UseTrusted() const override { return useTrusted_; }
    // A file knows no database users and one language: accepted as given.
    void SetDbUserName(std::string_view) override {}
    void SetDbPassword(std::string_view) override {}
    void SetLanguage(int) override {}
    void SetServer(std::string_view server) override { server_ = server; }
    void SetCompanyDB(std::string_view database) override { companyDb_ = database; }
    void SetUserName(std::string_view user) override { userName_ = user; }
    [[nodiscard]] std::string UserName() const override { return userName_; }
    void SetPassword(std::string_view password) override { password_ = password; }

    [[nodiscard]] std::int32_t Connect() override;
    void Disconnect() override { session_->Close(); }

    [[nodiscard]] LastError GetLastError() const override { return session_->GetLastError(); }
    [[nodiscard]] std::string GetNewObjectKey() const override { return session_->NewObjectKey(); }

    void StartTransaction() override { session_->StartTransaction(); }
    void EndTransaction(TransactionEnd end) override { session_->EndTransaction(end); }
    [[nodiscard]] bool InTransaction() const override { return session_->InTransaction(); }

    [[nodiscard]] bool KeepsMarks() const override;
    [[nodiscard]] bool HasMark(std::string_view mark) const override;
    void AddMark(std::string_view mark) override;

    [[nodiscard]] std::unique_ptr<BusinessObject> GetBusinessObject(ObjectType type) override;

  private:
    DatabaseEngine& engine_;
    std::string programFolder_;
    bool useTrusted_ = false;
    std::string server_;
    std::string companyDb_;
    std::string userName_;
    std::string password_;
    std::shared_ptr<CompanySession> session_ = std::make_shared<CompanySession>();
};

std::int32_t LocalCompany::Connect() {
    session_->Close();
    try {
        const auto file = CompanyFile(server_, companyDb_, programFolder_);
        session_->Open(engine_.OpenDatabase(file.string()));
        RequireUser(*session_, userName_, password_);
    } catch (const RuntimeError& error) {
        // A file that is missing or broken is a logon that is refused, like a wrong password.
        session_->Close();
        return session_->SetLastError(
            error_code::kNotAccepted,
            std::string(platform::database::WithoutStatement(error.Description())));
    }
    session_->ClearLastError();
    return 0;
}

bool LocalCompany::KeepsMarks() const {
    try {
        (void)session_->Connected().OpenTable(kMarkTable);
        return true;
    } catch (const RuntimeError& error) {
        if (error.Number() != error_number::kNoSuchTable) throw;
        return false;
    }
}

bool LocalCompany::HasMark(std::string_view mark) const {
    return !session_->Run(kMarkQuery, {std::string(mark)}).empty();
}

void LocalCompany::AddMark(std::string_view mark) {
    (void)session_->Run(kMarkInsertion, {std::string(mark)});
}

std::unique_ptr<BusinessObject> LocalCompany::GetBusinessObject(ObjectType type) {
    (void)session_->Connected();
    switch (type) {
        case ObjectType::BusinessPartners:
            return NewLocalPartners(session_);
        case ObjectType::Items:
            return NewLocalItems(session_);
        case ObjectType::Invoices:
        case ObjectType::CreditNotes:
        case ObjectType::DeliveryNotes:
        case ObjectType::Returns:
        case ObjectType::Orders:
            return NewLocalDocuments(session_, type);
        case ObjectType::JournalEntries:
            return NewLocalJournalEntries(session_);
        case ObjectType::Recordset:
            return NewLocalQuery(session_);
    }
    throw RuntimeError(error_number::kInvalidArgument,
                       "There is no object type " + std::to_string(static_cast<int>(type)));
}

}  // namespace

LocalConnector::LocalConnector(DatabaseEngine& engine, std::string programFolder)
    : engine_(engine), programFolder_(std::move(programFolder)) {}

std::unique_ptr<Company> LocalConnector::CreateCompany() {
    return std::make_unique<LocalCompany>(engine_, programFolder_);
}

}  // namespace localcompany
