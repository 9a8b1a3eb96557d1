// Sales are found by their numbers in any order, of equal ones the first.

#include "control/sale_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace control {

TEST(SaleTable, FindsEachInAnyOrder) {
    for (const std::vector<int>& ids :
         {std::vector{1, 2, 3, 7}, std::vector{7, 3, 1, 2}, std::vector{3, 7, 3, 3, 1}}) {
        SaleTable table;
        for (const int id : ids) {
            SaleRecord sale;
            sale.id = id;
            sale.type = static_cast<int>(table.InFileOrder().size());
            table.Add(sale);
        }
        table.Index();
        for (const std::vector<int>& sought :
             {std::vector{1, 2, 3, 4, 7, 8, 0}, std::vector{7, 7, 3, 1, 3, 2, 9, 3}}) {
            for (const int id : sought) {
                const auto first = std::ranges::find(ids, id);
                const SaleRecord* found = table.Find(id);
                ASSERT_EQ(found != nullptr, first != ids.end()) << id;
                if (found == nullptr) continue;
                EXPECT_EQ(found->type, first - ids.begin()) << id;
                EXPECT_EQ(found->Has(sale_flag::kTwice), std::ranges::count(ids, id) > 1) << id;
            }
        }
    }
}

}  // namespace control
