#include "tests/support/sap/sap_shop.h"

#include <crypt.h>

#include "localcompany/company_schema.h"
#include "platform/norwegian.h"
#include "sap/logon.h"

namespace support {

SapShop::SapShop() : companyDatabase_(engine.CreateDatabase("Butikk.company")) {
    localcompany::CreateCompanyTables(*companyDatabase_);
    const auto scratch = std::make_unique<crypt_data>();
    const std::string hash = crypt_r("hemmelig", "$5$abcdefgh$", scratch.get());
    InCompany("INSERT INTO OUSR (USER_CODE, PASSWORD) VALUES ('manager', '" + hash + "')");
    InCompany("INSERT INTO OADM (DflDebAct) VALUES ('1500')");
    InCompany("INSERT INTO OACT (AcctCode) VALUES ('1500'), ('1900'), ('3000')");
    InCompany("INSERT INTO OPLN (ListNum) VALUES (1), (2)");
    InCompany(
        "INSERT INTO OCRD (CardCode, DebPayAcct) VALUES ('1001', '1501'), ('KONTANT', '1500')");
    InCompany("INSERT INTO OITM (ItemCode) VALUES ('P1'), ('P2')");
    settings.AccountingSystem = "SAP";
    settings.SAPCompanyDatabase = "Butikk";
    settings.SAPUserName = "manager";
    settings.SAPPassword = "hemmelig";
    settings.SAPUseTrusted = "1";
}

void SapShop::Connect() {
    ASSERT_TRUE(sap::LogonToSAP(context, connector));
}

std::string SapShop::AskCompany(std::string_view sql) {
    std::string texts;
    for (const platform::database::Row& row : companyDatabase_->Prepare(sql)->Run({})) {
        const char* separator = "";
        for (const platform::Value& value : row) {
            texts += separator + (value.IsNull() ? "NULL" : platform::ToText(value));
            separator = " ";
        }
        texts += "|";
    }
    return texts;
}

}  // namespace support
