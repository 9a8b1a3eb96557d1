// The rules of the SAP transfer, with a company that can be read and with one that can not.

#include <functional>

#include "tests/control/control_fixture.h"

namespace control {

using platform::Value;

TEST_F(ControlTest, FaultsOfASapDay) {
    UseSap();
    const struct {
        const char* name;
        std::function<void(Day&)> inject;
        std::string found;
    } faults[] = {
        {"the highest number",
         [](Day& d) { d.sales[0].id = d.lines[0].saleId = d.lines[1].saleId = 32767; }, ""},
        {"a number of more than 16 bits",
         [](Day& d) { d.sales[0].id = d.lines[0].saleId = d.lines[1].saleId = 32768; },
         "K208 32768 ID=32768\n"},
        {"no type", [](Day& d) { d.sales[0].type = Value(); }, "K305 1 SalesType\n"},
        {"no quantity", [](Day& d) { d.lines[0].qty = Value(); }, "K305 1:1 Qty\n"},
        {"no discount", [](Day& d) { d.lines[0].discount = Value(); }, "K305 1:1 Discount\n"},
        {"an invoice paid and nothing bought",
         [](Day& d) {
             d.AddSale(3, 1, 15);
             d.lines[4].transType = 10;
             d.lines[4].productID = Value();
         },
         "K501 3\n"},
        {"a customer that is not in SAP", [](Day& d) { d.sales[0].customerID = "1002"; },
         "K502 1 CustomerID=1002\n"},
        {"nobody, who is the shop's own customer", [](Day& d) { d.sales[0].customerID = " "; }, ""},
        {"an item that is not in SAP", [](Day& d) { d.lines[0].productID = "P9"; },
         "K503 1:1 ProductID=P9\n"},
        {"an item without a number on a receipt, which gets no line",
         [](Day& d) { d.lines[0].productID = Value(); }, ""},
        {"an account that is not in SAP", [](Day& d) { d.lines[0].salesAccount = 3009; },
         "K504 1:1 SalesAccount=3009\n"},
        {"a price below 0",
         [](Day& d) {
             d.lines[0].amount = d.lines[0].price = -125.0;
             d.lines[1].amount = 125.0;
         },
         "K505w 1:1 Amount=-125\n"},
        {"a return",
         [](Day& d) {
             d.lines[0].amount = d.lines[1].amount;
             d.lines[0].qty = -1.0;
             d.lines[1].amount = 125.0;
         },
         ""},
        {"what is the file export's alone",
         [](Day& d) {
             d.lines[0].description = "a;b";
             d.lines[0].vatCode = 7;
             d.sales[1].type = 0;
         },
         ""},
    };
    for (const auto& fault : faults) {
        Day day = CleanDay();
        fault.inject(day);
        EXPECT_EQ(Check(day), fault.found) << fault.name;
    }
}

TEST_F(ControlTest, WhatThisTransferCreatesIsNotMissing) {
    UseSap();
    shop_.InStore("UPDATE Customers SET Status = 1 WHERE ID = '1002'");
    shop_.InStore("INSERT INTO Products (ID, Status) VALUES ('P8', 1), ('P9', 2)");
    Day day = CleanDay();
    day.sales[0].customerID = "1002";
    day.lines[0].productID = "P8";
    EXPECT_EQ(Check(day), "");
    day.lines[0].productID = "P9";
    EXPECT_EQ(Check(day), "K503 1:1 ProductID=P9\n") << "changed, but not new";
}

TEST_F(ControlTest, WithoutAPasswordInTheSettingsTheCompanyIsNotRead) {
    UseSap();
    Day day = CleanDay();
    day.lines[0].productID = "P9";
    shop_.settings.SAPPassword = "";
    EXPECT_EQ(Check(day), "");
    shop_.settings.SAPPassword = "feil";
    EXPECT_EQ(Check(day), "");
    shop_.settings.SAPPassword = "hemmelig";
    shop_.settings.NoDayEnd = "1";
    EXPECT_EQ(Check(day), "") << "no documents are made";
}

}  // namespace control
