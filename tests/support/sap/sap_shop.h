// A shop that posts to a local SAP company: user "manager" with the password "hemmelig", accounts
// 1500, 1900 and 3000, price lists 1 and 2, partner 1001 and items P1 and P2.
#pragma once

#include <string>

#include "localcompany/local_company.h"
#include "sap/transfer_context.h"
#include "sap/transfer_driver.h"
#include "tests/support/ui/test_shop.h"

namespace support {

class SapShop : public TestShop {
  public:
    SapShop();

    // Logs on with the settings as they are.
    void Connect();

    void InCompany(std::string_view sql) { companyDatabase_->Execute(sql); }

    // The rows of a query on the company, each as its values with a blank between, "|" behind each.
    [[nodiscard]] std::string AskCompany(std::string_view sql);

    localcompany::LocalConnector connector{engine, folder.Path().string()};
    sap::SapObjects objects;
    sap::TransferContext context{settings, store::Options(databases.OptionsTable), objects,
                                 runState.DataSetHasErrors, theOperator};
    sap::TransferDriver driver{settings, databases,   runState, objects,
                               window,   theOperator, clock,    connector};

  private:
    std::unique_ptr<platform::database::Database> companyDatabase_;
};

}  // namespace support
