// A shop with a clean day, and what a check finds in it.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "control/check.h"
#include "platform/database/sqlite_engine.h"
#include "tests/support/sap/sap_shop.h"

namespace control {

struct Day {
    std::vector<support::Sale> sales;
    std::vector<support::Line> lines;

    // The lines of a sale that has one item and its payment.
    void AddSale(int id, int type, int payment, double amount = 125) {
        support::Sale sale;
        sale.id = id;
        sale.type = type;
        sales.push_back(sale);
        support::Line item;
        item.saleId = id;
        item.amount = item.price = amount;
        lines.push_back(item);
        support::Line paid;
        paid.saleId = id;
        paid.lineNo = 2;
        paid.transType = payment;
        paid.amount = -amount;
        paid.productID = paid.description = platform::Value();
        paid.vatCode = paid.salesAccount = 0;
        lines.push_back(paid);
    }
};

// A receipt paid in cash and an order on the customer's account.
inline Day CleanDay() {
    Day day;
    day.AddSale(1, 1, 10);
    day.AddSale(2, 2, 13);
    return day;
}

class ControlTest : public testing::Test {
  protected:
    ControlTest() {
        shop_.settings.AccountingSystem = "";
        shop_.InStore("INSERT INTO Customers (ID, Status) VALUES ('1001', 0), ('1002', 0)");
    }

    CheckResult Result(const std::vector<std::string>& names = {}) {
        const Surroundings surroundings{shop_.settings, reading_,
                                        [this] { return reading_.CreateTemporary(); }, connector_,
                                        shop_.clock};
        return CheckShop(surroundings, names);
    }

    // "K302 Kasse1 1:2 Amount=12,50", one a line; what there is not is left out.
    std::string Check(const std::vector<std::string>& names = {}) {
        std::string all;
        for (const Finding& each : Result(names).findings) {
            all += std::string(each.code);
            if (each.severity == Severity::Warning) all += "w";
            if (each.severity == Severity::Note) all += "n";
            if (each.dataSet && *each.dataSet != "Kasse1") all += " " + *each.dataSet;
            if (each.sale) all += " " + *each.sale;
            if (each.line) all += ":" + std::to_string(*each.line);
            if (each.field) all += " " + *each.field;
            if (each.value) all += "=" + *each.value;
            all += "\n";
            EXPECT_FALSE(each.text.empty() || each.remedy.empty()) << each.code;
            EXPECT_EQ((each.text + each.remedy).find('{'), std::string::npos) << each.text;
        }
        return all;
    }

    std::string Check(const Day& day) {
        shop_.WriteDataSet("Kasse1", day.sales, day.lines);
        return Check();
    }

    void UseSap() { shop_.settings.AccountingSystem = "SAP"; }

    support::SapShop shop_;
    platform::database::SqliteEngine reading_{std::chrono::seconds(1),
                                              platform::database::SqliteEngine::Access::Reading};
    localcompany::LocalConnector connector_{reading_, shop_.folder.Path().string()};
};

}  // namespace control
