// The sales of one data set, one after another, so that a day of any size takes no more room than
// its largest receipt. Knows no files.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "demo/random.h"
#include "demo/receipt.h"
#include "demo/shop.h"

namespace demo {

struct DayPlan {
    std::string name;  // of the data set: the prefix of its files, which may be empty
    std::int64_t sales = 0;
    std::int64_t lines = 0;  // records of all receipts; at least two a sale, none without sales
    bool paymentsGoWithGoods = false;
};

class Day {
  public:
    Day(const Shop& shop, const DayPlan& plan, std::uint64_t seed);

    [[nodiscard]] bool HasMore() const { return salesLeft_ > 0; }

    // The next receipt. All together have exactly the planned number of records; where the plan has
    // room for it, every kind of receipt comes up once before the common ones are repeated.
    [[nodiscard]] Receipt Next();

  private:
    [[nodiscard]] ReceiptKind ChooseKind(std::int64_t mostRecords);
    [[nodiscard]] ReceiptKind DrawKind();
    [[nodiscard]] std::int64_t ChooseRecords(std::int64_t fewest, std::int64_t most);

    Random random_;
    ReceiptMaker maker_;
    std::vector<ReceiptKind> stillToCome_;
    std::int64_t salesLeft_;
    std::int64_t linesLeft_;
};

}  // namespace demo
