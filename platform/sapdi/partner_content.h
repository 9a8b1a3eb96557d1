// A business partner but for its way to and from the company, which is the connector's.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <utility>

#include "platform/sapdi/business_objects.h"
#include "platform/sapdi/master_record.h"

namespace platform::sapdi {

class PartnerContent : public BusinessPartners {
  public:
    enum Column : std::size_t {
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

  protected:
    [[nodiscard]] MasterRecord& Record() { return record_; }
    void SetDebitorAccount(std::string account) { debitorAccount_ = std::move(account); }

  private:
    static constexpr std::array<std::string_view, kZipCode + 1> kColumns = {
        "CardCode", "CardName", "Phone1", "Fax", "E_Mail", "Address", "Block", "City", "ZipCode"};

    MasterRecord record_{kColumns};
    std::string debitorAccount_;  // as it was loaded
};

}  // namespace platform::sapdi
