#include "store/master_data.h"

#include <gtest/gtest.h>

#include "tests/support/store/store_shop.h"

using support::StoreShop;

// What the store does between the reading of the first product and its mark.
TEST(MarkAsSent, OnlyARowThatIsStillAsItWasSentHasNothingMoreToSend) {
    struct Case {
        const char* status;
        const char* meanwhile;
        const char* statuses;
    };
    const Case cases[] = {
        {"1", "", "0 2"},
        {"2", "", "0 2"},
        {"2", "UPDATE Products SET Price = 6 WHERE ID = 'P1'", "2 2"},
        {"1", "UPDATE Products SET Price = 6 WHERE ID = 'P1'", "2 2"},
        {"1", "UPDATE Products SET Price = 6, Status = 0 WHERE ID = 'P1'", "0 2"},
        {"1", "UPDATE Products SET Price = 6 WHERE ID = 'P2'", "0 2"},
        {"1", "DELETE FROM Products WHERE ID = 'P1'", "2"},
        {"1", "UPDATE Products SET ID = 'P3' WHERE ID = 'P1'", "1 2"},
    };
    for (const Case& each : cases) {
        StoreShop shop;
        shop.InStore("INSERT INTO Products (ID, Price, Status) VALUES ('P1', 5, " +
                     std::string(each.status) + "), ('P2', 5, 2)");
        platform::database::Database& store = *shop.databases.StoreDatabase;
        const auto rows = store.OpenQuery("SELECT * FROM Products");
        if (*each.meanwhile) shop.InStore(each.meanwhile);
        store::MarkAsSent(store, *rows);
        EXPECT_EQ(shop.AskStore("SELECT Status FROM Products"), each.statuses)
            << each.status << " " << each.meanwhile;
    }
}
