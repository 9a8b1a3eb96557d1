#include "demo/day.h"

#include <algorithm>

#include "demo/options.h"

namespace demo {

Day::Day(const Shop& shop, const DayPlan& plan, std::uint64_t seed)
    : random_(seed, "day " + plan.name),
      maker_(shop, random_, plan.paymentsGoWithGoods),
      stillToCome_(AllReceiptKinds().begin(), AllReceiptKinds().end()),
      salesLeft_(plan.sales),
      linesLeft_(plan.lines) {}

Receipt Day::Next() {
    // Every sale that is still to come must find its fewest records.
    const std::int64_t most = linesLeft_ - kFewestLinesPerSale * (salesLeft_ - 1);
    // The last one takes what the others have left over.
    const bool isLast = salesLeft_ == 1;
    const ReceiptKind kind = isLast ? PlainReceiptKind() : ChooseKind(most);
    const std::int64_t records =
        isLast ? linesLeft_ : ChooseRecords(maker_.FewestRecords(kind), most);
    Receipt receipt = maker_.Make(kind, records);
    linesLeft_ -= static_cast<std::int64_t>(receipt.lines.size());
    --salesLeft_;
    return receipt;
}

ReceiptKind Day::ChooseKind(std::int64_t mostRecords) {
    const auto waiting = static_cast<std::int64_t>(stillToCome_.size());
    // Spread over the day: the fewer sales are left, the likelier.
    const bool takesWaiting = random_.Between(1, salesLeft_ - 1) <= waiting;
    if (!takesWaiting) {
        const ReceiptKind drawn = DrawKind();
        return maker_.FewestRecords(drawn) <= mostRecords ? drawn : PlainReceiptKind();
    }
    // One that finds no room waits for a sale with more.
    const auto position = stillToCome_.begin() + random_.Between(0, waiting - 1);
    const ReceiptKind next = *position;
    if (maker_.FewestRecords(next) > mostRecords) return PlainReceiptKind();
    stillToCome_.erase(position);
    return next;
}

ReceiptKind Day::DrawKind() {
    std::int64_t total = 0;
    for (const ReceiptKind& kind : AllReceiptKinds())
        total += kind.weight;
    std::int64_t drawn = random_.Between(1, total);
    for (const ReceiptKind& kind : AllReceiptKinds()) {
        drawn -= kind.weight;
        if (drawn <= 0) return kind;
    }
    return PlainReceiptKind();
}

// On average what is left for each sale.
std::int64_t Day::ChooseRecords(std::int64_t fewest, std::int64_t most) {
    const std::int64_t spare = linesLeft_ - kFewestLinesPerSale * salesLeft_;
    const std::int64_t twiceTheMean = 2 * spare / salesLeft_;
    const std::int64_t wanted = kFewestLinesPerSale + random_.Between(0, twiceTheMean);
    return std::clamp(wanted, fewest, most);
}

}  // namespace demo
