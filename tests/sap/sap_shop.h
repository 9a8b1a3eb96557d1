// A shop that posts to a local SAP company: user "manager" with the password "hemmelig", accounts
// 1500, 1900 and 3000, price lists 1 and 2, partner 1001 and items P1 and P2.
#pragma once

#include <string>

#include "platform/sapdi/local_company.h"
#include "sap/transfer_context.h"
#include "sap/transfer_driver.h"
#include "tests/support/test_shop.h"

class SapShop : public support::TestShop {
  public:
    SapShop();

    // Logs on with the settings as they are.
    void Connect();

    void InCompany(std::string_view sql) { companyDatabase_->Execute(sql); }

    // The rows of a query on the company, each as its values with a blank between, "|" behind each.
    [[nodiscard]] std::string AskCompany(std::string_view sql);

    platform::sapdi::LocalConnector connector{engine, folder.Path().string()};
    sap::SapObjects objects;
    sap::TransferContext context{settings, databases, runState, objects, theOperator};
    sap::TransferDriver driver{context, window, clock, connector};

  private:
    std::unique_ptr<platform::Database> companyDatabase_;
};
