// A clean day is silent; each fault is found at its place, and nothing else but what follows of it.

#include <functional>

#include "tests/control/control_fixture.h"

namespace control {

namespace {

using platform::Value;

struct Fault {
    const char* name;
    std::function<void(Day&)> inject;
    std::string found;
};

support::Line& Item(Day& day) {
    return day.lines[0];
}
support::Line& Cash(Day& day) {
    return day.lines[1];
}
support::Line& OnAccount(Day& day) {
    return day.lines[3];
}

// The receipt with another payment.
void Pay(Day& day, const Value& transType) {
    Cash(day).transType = transType;
}

void AddRounding(Day& day, int saleId, const char* product) {
    support::Line rounding;
    rounding.saleId = saleId;
    rounding.lineNo = 3;
    rounding.transType = 0;
    rounding.productID = product;
    rounding.amount = 0.25;
    day.lines.push_back(rounding);
    for (support::Line& line : day.lines) {
        if (line.saleId == Value(saleId) && line.lineNo == Value(2)) line.amount = -125.25;
    }
}

}  // namespace

TEST_F(ControlTest, ACleanDayIsSilent) {
    EXPECT_EQ(Check(CleanDay()), "");
    EXPECT_EQ(Result().checked, std::vector<std::string>{"Kasse1"});
    EXPECT_FALSE(Result().hasErrors);
    UseSap();
    EXPECT_EQ(Check(CleanDay()), "");
}

TEST_F(ControlTest, FaultsOfSales) {
    const Fault faults[] = {
        {"two of one number", [](Day& d) { d.sales.push_back(d.sales[0]); }, "K201 1 ID=1\n"},
        {"type 0", [](Day& d) { d.sales[0].type = 0; }, "K202 1 SalesType=0\n"},
        {"no type", [](Day& d) { d.sales[0].type = Value(); }, "K202 1 SalesType\n"},
        {"transferred", [](Day& d) { d.sales[0].status = 1; }, "K203w 1 SalesStatus=1\n"},
        {"no such day", [](Day& d) { d.sales[0].date = 20051131; }, "K204 1 SalesDate=20051131\n"},
        {"no date", [](Day& d) { d.sales[0].date = Value(); }, "K204 1 SalesDate\n"},
        {"tomorrow",
         [](Day& d) {
             for (support::Sale& sale : d.sales)
                 sale.date = 20051117;
         },
         "K205w 1 SalesDate=17.11.2005\nK205w 2 SalesDate=17.11.2005\n"},
        {"two days", [](Day& d) { d.sales[0].date = 20051115; },
         "K206w SalesDate=15.11.2005, 16.11.2005\n"},
        {"no lines",
         [](Day& d) {
             d.sales.emplace_back();
             d.sales.back().id = 3;
         },
         "K207w 3\n"},
        {"a paid order of type 4", [](Day& d) { d.sales[0].type = 4; }, "K209w 1 SalesType=4\n"},
        {"no sales at all", [](Day& d) { d = {}; }, "K106n\n"},
        {"a customer that nobody has", [](Day& d) { d.sales[0].customerID = "1003"; },
         "K405w 1 CustomerID=1003\n"},
        {"a name with a semicolon", [](Day& d) { d.sales[0].customerName = "Hansen; sønn"; },
         "K306w 1 CustomerName=Hansen; sønn\n"},
        {"a reference that is cut before it",
         [](Day& d) { d.sales[0].ourRef = "Kari Marie Nordmann-Hansen; Bø"; }, ""},
    };
    for (const Fault& fault : faults) {
        Day day = CleanDay();
        fault.inject(day);
        EXPECT_EQ(Check(day), fault.found) << fault.name;
    }
}

TEST_F(ControlTest, FaultsOfLines) {
    const Fault faults[] = {
        {"a line of another day",
         [](Day& d) {
             d.AddSale(9, 1, 10);
             d.sales.pop_back();
         },
         "K301 9:1 SalesID=9\nK301 9:2 SalesID=9\n"},
        {"too little paid", [](Day& d) { Cash(d).amount = -112.5; },
         "K302 1 Amount=12,50\nK406=-12,50\n"},
        {"a means of payment that nobody knows", [](Day& d) { Pay(d, 28); },
         "K303w 1:2 TransType=28\nK406=-125,00\n"},
        {"the same without an amount",
         [](Day& d) {
             d.lines.push_back(Cash(d));
             d.lines.back().transType = 28;
             d.lines.back().amount = 0.0;
         },
         ""},
        {"a discount that was forgotten", [](Day& d) { Item(d).discount = 10.0; },
         "K304w 1:1 Amount=125\n"},
        {"a cent of rounding", [](Day& d) { Item(d).price = 125.01; }, ""},
        {"no amount", [](Day& d) { Item(d).amount = Value(); }, "K305 1:1 Amount\nK406=125,00\n"},
        {"a quotation mark", [](Day& d) { Item(d).description = "Skrue 3\""; },
         "K306w 1:1 Description=Skrue 3\"\n"},
        {"a smile", [](Day& d) { Item(d).description = "Kake ☺ €"; },
         "K308w 1:1 Description=Kake ☺ €\n"},
        {"an account below 0", [](Day& d) { Item(d).salesAccount = -1; },
         "K309w 1:1 SalesAccount=-1\nK406=125,00\n"},
        {"no account", [](Day& d) { Item(d).salesAccount = Value(); },
         "K309w 1:1 SalesAccount\nK406=125,00\n"},
        {"a rounding of a receipt", [](Day& d) { AddRounding(d, 1, "avrunding"); }, ""},
        {"a rounding of an order", [](Day& d) { AddRounding(d, 2, "Avrunding"); },
         "K310w 2:3 Amount=0,25\nK406=0,25\n"},
        {"a rounding under another name", [](Day& d) { AddRounding(d, 1, "Øre"); },
         "K310w 1:3 Amount=0,25\nK406=0,25\n"},
        {"a card without an account", [](Day& d) { Pay(d, 22); }, "K401 Card2Account\n"},
        {"a VAT code without a rate", [](Day& d) { Item(d).vatCode = 7; }, "K403w 1:1 VatCode=7\n"},
        {"a credit sale to nobody", [](Day& d) { d.sales[1].customerID = Value(); },
         "K404 2 CustomerID=\n"},
        {"an invoice paid by a customer with letters",
         [](Day& d) {
             d.sales[1].customerID = "Hansen";
             OnAccount(d).transType = 15;
         },
         "K404 2 CustomerID=Hansen\nK405w 2 CustomerID=Hansen\n"},
    };
    for (const Fault& fault : faults) {
        Day day = CleanDay();
        fault.inject(day);
        EXPECT_EQ(Check(day), fault.found) << fault.name;
    }
}

TEST_F(ControlTest, FaultsOfTheDaysOptions) {
    const struct {
        const char* sql;
        const char* found;
    } cases[] = {
        {"UPDATE Options SET CashAccount = NULL", "K401 CashAccount\n"},
        {"UPDATE Options SET CashAccount = 0", "K402w CashAccount=0\n"},
        {"UPDATE Options SET CashAccount = 1900, BankAccount = NULL, Long1 = NULL", ""},
        {"UPDATE Tax SET Rate = -100 WHERE VatCode = 3",
         "K403 1:1 VatCode=3\nK403 2:1 VatCode=3\n"},
    };
    for (const auto& [sql, found] : cases) {
        shop_.InStore(sql);
        EXPECT_EQ(Check(CleanDay()), found) << sql;
    }
}

// The sales of orders are not posted then, their payments are.
TEST_F(ControlTest, VouchersThatDifferByDesignAreAWarning) {
    Day day = CleanDay();
    OnAccount(day).transType = 12;
    EXPECT_EQ(Check(day), "");
    shop_.InStore("UPDATE Options SET CreditToOrder = 1");
    EXPECT_EQ(Check(day), "K406w=125,00\n");
    EXPECT_FALSE(Result().hasErrors);
}

TEST_F(ControlTest, ALongNameOfAMeansOfPaymentIsCut) {
    Day day = CleanDay();
    Pay(day, 16);
    for (const auto& [length, found] : {std::pair(103, ""), std::pair(104, "K307w=201\n")}) {
        shop_.InStore("UPDATE Options SET IOUName = '" +
                      std::string(static_cast<std::size_t>(length), 'x') + "'");
        EXPECT_EQ(Check(day), found) << length;
    }
}

TEST_F(ControlTest, AnEmptyRoundingAccountIsAccount0) {
    shop_.InStore("UPDATE Options SET Long1 = NULL");
    Day day = CleanDay();
    AddRounding(day, 1, "Avrunding");
    EXPECT_EQ(Check(day), "K402w Long1\n");
}

// The sums of many lines come out to the cent, as those of the postings do.
TEST_F(ControlTest, SumsAreExact) {
    Day day = CleanDay();
    day.lines.clear();
    for (int i = 0; i < 30; ++i) {
        support::Line line;
        line.saleId = 1 + i % 2;
        line.lineNo = i;
        line.amount = line.price = i < 28 ? 0.10 : -1.40;
        line.qty = 1.0;
        day.lines.push_back(line);
    }
    EXPECT_EQ(Check(day), "");
    day.lines.back().amount = day.lines.back().price = -1.41;
    EXPECT_EQ(Check(day), "K302 2 Amount=-0,01\nK406=0,01\n");
}

TEST_F(ControlTest, OfManyOfOneCodeTwentyAreToldAndTheNumberOfAll) {
    Day day;
    for (int id = 1; id <= 25; ++id) {
        day.AddSale(id, 1, 10);
        day.sales.back().status = 1;
        if (id <= 20) day.sales.back().customerID = "Borte";
    }
    shop_.WriteDataSet("Kasse1", day.sales, day.lines);
    const std::vector<Finding> findings = Result().findings;
    ASSERT_EQ(findings.size(), 21U + 20U);
    EXPECT_EQ(findings[19].sale, "20");
    EXPECT_EQ(findings[20].code, "K203");
    EXPECT_EQ(findings[20].sale, std::nullopt);
    EXPECT_EQ(findings[20].value, "25");
    EXPECT_EQ(findings[40].sale, "20") << "twenty are all told";
}

}  // namespace control
