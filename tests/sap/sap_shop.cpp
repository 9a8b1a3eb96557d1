#include "tests/sap/sap_shop.h"

#include <crypt.h>

#include "demo/company_database.h"
#include "platform/norwegian.h"
#include "sap/logon.h"

SapShop::SapShop() : companyDatabase_(engine.CreateDatabase("Butikk.company")) {
    demo::CreateCompanyTables(*companyDatabase_);
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
    const auto rows = companyDatabase_->OpenQuery(sql);
    for (; !rows->IsEof(); rows->MoveNext()) {
        for (int i = 0; i < rows->FieldCount(); ++i) {
            const platform::Value value = rows->Get(i);
            texts += (i == 0 ? "" : " ") + (value.IsNull() ? "NULL" : platform::ToText(value));
        }
        texts += "|";
    }
    return texts;
}
