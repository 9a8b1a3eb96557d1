#include "sap/partners_and_items.h"

#include <gtest/gtest.h>

#include "tests/support/platform/expect_error.h"
#include "tests/support/sap/sap_shop.h"

using Texts = std::vector<std::string>;

namespace {

class MasterDataToSap : public testing::Test {
  protected:
    MasterDataToSap() { shop.Connect(); }
    sap::Customer customer{.ID = "2001",
                           .Name = "Bø AS",
                           .Address1 = "Gate 1",
                           .Address2 = "PB 7",
                           .Address3 = "x",
                           .Address4 = "x",
                           .PostalCode = "3841",
                           .PostalAddress = "FLATDAL",
                           .Phone = "353",
                           .Fax = " ",
                           .CustPrGr = "2",
                           .CustPrG2 = " ",
                           .EMail = "a@b.example",
                           .Discount = "5"};
    sap::Product product{"P9", "Kaffe", "7065", 39.9, 20};
    support::SapShop shop;
};

constexpr const char* kPrices =
    "SELECT PriceList, Price FROM ITM1 WHERE ItemCode = 'P9' ORDER BY PriceList";

}  // namespace

TEST_F(MasterDataToSap, Customers) {
    EXPECT_TRUE(CreateCustomerInSAP(shop.context, customer));
    EXPECT_EQ(shop.AskCompany("SELECT * FROM OCRD WHERE CardCode = '2001'"),
              "2001 Bø AS 353   a@b.example Gate 1 PB 7 FLATDAL 3841 1500|");
    EXPECT_FALSE(CreateCustomerInSAP(shop.context, customer));
    ASSERT_EQ(shop.theOperator.shown.size(), 2U);
    EXPECT_EQ(shop.theOperator.shown[0], "Fikk ikke opprettet kunde 2001 - Bø AS");
    EXPECT_EQ(shop.theOperator.shown[1].find("Found error:-2035,"), 0U);

    EXPECT_EQ(shop.theOperator.boxes, "!T - ");

    customer.Name = "Nytt navn";
    EXPECT_TRUE(UpdateCustomerInSAP(shop.context, customer));
    EXPECT_EQ(shop.AskCompany("SELECT CardName, Fax FROM OCRD WHERE CardCode = '2001'"),
              "Nytt navn  |");
    customer.ID = "ukjent";
    EXPECT_FALSE(UpdateCustomerInSAP(shop.context, customer));
    EXPECT_EQ(shop.theOperator.shown.size(), 2U) << "skipped without a message";
}

TEST_F(MasterDataToSap, ACodeThatIsNotNegativeHasABlankForItsSign) {
    shop.InCompany(
        "CREATE TRIGGER no BEFORE INSERT ON OCRD BEGIN SELECT RAISE(ABORT, 'sperret'); END");
    EXPECT_FALSE(CreateCustomerInSAP(shop.context, customer));
    EXPECT_EQ(shop.theOperator.shown.at(1).find("Found error: 3421,"), 0U);
}

TEST_F(MasterDataToSap, ProductsAndTheirPrices) {
    EXPECT_TRUE(CreateProductInSAP(shop.context, product));
    EXPECT_EQ(shop.AskCompany(kPrices), "1 39,9|2 20|");
    product.Price = 42;
    product.CostPrice = 21;
    for (const auto& [sales, cost, prices] : {std::tuple{"2", "0", "1 39,9|2 42|"},
                                              {"NULL", "-1", "1 39,9|2 42|"},
                                              {"1", "1", "1 21|2 42|"}}) {
        shop.InStore(std::string("UPDATE Options SET SAPSalesPriceList = ") + sales +
                     ", SAPCostPriceList = " + cost);
        shop.context.Options.Refresh();
        EXPECT_TRUE(UpdateProductInSAP(shop.context, product));
        EXPECT_EQ(shop.AskCompany(kPrices), prices);
    }
    shop.InStore("UPDATE Options SET SAPSalesPriceList = 3");
    shop.context.Options.Refresh();
    support::ExpectError(9, [&] { (void)UpdateProductInSAP(shop.context, product); });
    product.ID = " ";
    shop.InStore("UPDATE Options SET SAPSalesPriceList = 0");
    shop.context.Options.Refresh();
    EXPECT_FALSE(CreateProductInSAP(shop.context, product));
    EXPECT_EQ(shop.theOperator.shown.at(0), "Fikk ikke opprettet produkt   - Kaffe");
}
