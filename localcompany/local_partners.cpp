#include "localcompany/local_partners.h"

#include <utility>

#include "localcompany/codes.h"
#include "localcompany/master_table.h"
#include "platform/sapdi/partner_content.h"

namespace localcompany {

using platform::sapdi::BusinessPartners;
using platform::sapdi::PartnerContent;
using platform::sapdi::TextOf;

namespace {

constexpr std::string_view kTakeDefaultAccount =
    "UPDATE OCRD SET DebPayAcct = (SELECT DflDebAct FROM OADM LIMIT 1) WHERE CardCode = ?1";
constexpr std::string_view kAccountOfPartner = "SELECT DebPayAcct FROM OCRD WHERE CardCode = ?1";

class LocalPartners : public PartnerContent {
  public:
    explicit LocalPartners(std::shared_ptr<CompanySession> session)
        : session_(std::move(session)) {}

    [[nodiscard]] std::int32_t Add() override {
        const std::int32_t code = session_->Add([this] {
            InsertRecord(*session_, kCustomerCodes, Record());
            session_->Run(kTakeDefaultAccount, {Record().Code()});
            return Record().Code();
        });
        if (code == 0) Record().MarkSaved();
        return code;
    }

    [[nodiscard]] std::int32_t Update() override {
        const std::int32_t code =
            session_->Change([this] { (void)UpdateRecord(*session_, kCustomerCodes, Record()); });
        if (code == 0) Record().MarkSaved();
        return code;
    }

    bool GetByKey(std::string_view cardCode) override {
        (void)session_->Connected();
        if (!LoadRecord(*session_, kCustomerCodes, cardCode, Record())) return false;
        const auto rows = session_->Run(kAccountOfPartner, {Record().Code()});
        SetDebitorAccount(std::string(TextOf(rows.front().front())));
        return true;
    }

  private:
    std::shared_ptr<CompanySession> session_;
};

}  // namespace

std::unique_ptr<BusinessPartners> NewLocalPartners(std::shared_ptr<CompanySession> session) {
    return std::make_unique<LocalPartners>(std::move(session));
}

}  // namespace localcompany
