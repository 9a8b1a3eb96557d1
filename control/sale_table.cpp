#include "control/sale_table.h"

#include <algorithm>
#include <numeric>

namespace control {

SaleRecord& SaleTable::Add(const SaleRecord& sale) {
    return sales_.emplace_back(sale);
}

std::int64_t SaleTable::IdAt(std::size_t place) const {
    return sales_[byId_.empty() ? place : byId_[place]].id;
}

SaleRecord& SaleTable::At(std::size_t place) {
    return sales_[byId_.empty() ? place : byId_[place]];
}

void SaleTable::Index() {
    byId_.clear();
    const auto isBefore = [](const SaleRecord& a, const SaleRecord& b) { return a.id < b.id; };
    if (!std::ranges::is_sorted(sales_, isBefore)) {
        byId_.resize(sales_.size());
        std::iota(byId_.begin(), byId_.end(), 0U);
        std::ranges::stable_sort(byId_, {},
                                 [this](std::uint32_t place) { return sales_[place].id; });
    }
    for (std::size_t place = 1; place < sales_.size(); ++place) {
        if (IdAt(place - 1) != IdAt(place)) continue;
        At(place - 1).flags |= sale_flag::kTwice;
        At(place).flags |= sale_flag::kTwice;
    }
    last_ = 0;
}

SaleRecord* SaleTable::Find(std::int64_t id) {
    const bool isTwice = last_ > 0 && last_ < sales_.size() && IdAt(last_ - 1) == id;
    if (!isTwice) {
        for (const std::size_t place : {last_, last_ + 1}) {
            if (place >= sales_.size() || IdAt(place) != id) continue;
            last_ = place;
            return &At(place);
        }
    }
    std::size_t low = 0;
    for (std::size_t high = sales_.size(); low < high;) {
        const std::size_t middle = low + (high - low) / 2;
        if (IdAt(middle) < id) {
            low = middle + 1;
        } else {
            high = middle;
        }
    }
    if (low >= sales_.size() || IdAt(low) != id) return nullptr;
    last_ = low;
    return &At(low);
}

}  // namespace control
