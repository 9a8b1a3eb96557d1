#include "platform/sapdi/local_partners.h"

#include <array>
#include <utility>

#include "platform/sapdi/master_record.h"

namespace platform::sapdi {
namespace {

enum PartnerColumn : std::size_t {
    kCardCode,
    kCardName,
    kPhone1,
    kFax,
    kEmail,
    kAddress,
    kBlock,
    kCity,
    kZipCode,
};

constexpr std::array<std::string_view, kZipCode + 1> kPartnerColumns = {
    "CardCode", "CardName", "Phone1", "Fax", "E_Mail", "Address", "Block", "City", "ZipCode"};

constexpr std::string_view kTakeDefaultAccount =
    "UPDATE OCRD SET DebPayAcct = (SELECT DflDebAct FROM OADM LIMIT 1) WHERE CardCode = ?1";
constexpr std::string_view kAccountOfPartner = "SELECT DebPayAcct FROM OCRD WHERE CardCode = ?1";

class LocalPartners : public BusinessPartners {
  public:
    explicit LocalPartners(std::shared_ptr<CompanySession> session)
        : session_(std::move(session)) {}

    void SetCardCode(std::string_view code) override { record_.Set(kCardCode, code); }
    void SetCardName(std::string_view name) override { record_.Set(kCardName, name); }
    void SetPhone1(std::string_view number) override { record_.Set(kPhone1, number); }
    void SetFax(std::string_view number) override { record_.Set(kFax, number); }
    void SetEmailAddress(std::string_view address) override { record_.Set(kEmail, address); }
    void SetAddress(std::string_view street) override { record_.Set(kAddress, street); }
    void SetBlock(std::string_view secondAddress) override { record_.Set(kBlock, secondAddress); }
    void SetCity(std::string_view city) override { record_.Set(kCity, city); }
    void SetZipCode(std::string_view postalCode) override { record_.Set(kZipCode, postalCode); }
    [[nodiscard]] std::string DebitorAccount() const override { return debitorAccount_; }

    [[nodiscard]] std::int32_t Add() override {
        const std::int32_t code = session_->Add([this] {
            record_.Insert(*session_);
            session_->Run(kTakeDefaultAccount, {record_.Code()});
            return record_.Code();
        });
        if (code == 0) record_.MarkSaved();
        return code;
    }

    [[nodiscard]] std::int32_t Update() override {
        const std::int32_t code = session_->Change([this] { (void)record_.Update(*session_); });
        if (code == 0) record_.MarkSaved();
        return code;
    }

    bool GetByKey(std::string_view cardCode) override {
        (void)session_->Connected();
        if (!record_.Load(*session_, cardCode)) return false;
        const std::vector<Row> rows = session_->Run(kAccountOfPartner, {record_.Code()});
        const std::string* account = rows.front().front().AsText();
        debitorAccount_ = account == nullptr ? std::string() : *account;
        return true;
    }

  private:
    std::shared_ptr<CompanySession> session_;
    MasterRecord record_{kCustomerCodes, kPartnerColumns};
    std::string debitorAccount_;
};

}  // namespace

std::unique_ptr<BusinessPartners> NewLocalPartners(std::shared_ptr<CompanySession> session) {
    return std::make_unique<LocalPartners>(std::move(session));
}

}  // namespace platform::sapdi
