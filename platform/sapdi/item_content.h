// An item and its prices but for their way to and from the company, which is the connector's.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/sapdi/business_objects.h"
#include "platform/sapdi/master_record.h"

namespace platform::sapdi {

// Gives the numbers of the company's price lists in list order.
using PriceListReader = std::function<std::vector<Value>()>;

class PriceListContent : public ItemPriceList {
  public:
    struct Line {
        Value listNumber;
        std::optional<double> price;  // where one was set
    };

    explicit PriceListContent(PriceListReader reader) : reader_(std::move(reader)) {}

    void SetCurrentLine(std::int32_t line) override;
    void SetPrice(double price) override { LineAt(currentLine_).price = price; }

    // The lists are read when they are first needed.
    [[nodiscard]] std::vector<Line>& Lines();

    // As before the first price was set; the lists are read again.
    void Reset();

  private:
    [[nodiscard]] Line& LineAt(std::int32_t line);

    PriceListReader reader_;
    std::optional<std::vector<Line>> lines_;
    std::int32_t currentLine_ = 0;
};

class ItemContent : public Items {
  public:
    enum Column : std::size_t { kItemCode, kItemName };

    explicit ItemContent(PriceListReader reader) : prices_(std::move(reader)) {}

    void SetItemCode(std::string_view code) override { record_.Set(kItemCode, code); }
    void SetItemName(std::string_view name) override { record_.Set(kItemName, name); }
    [[nodiscard]] ItemPriceList& PriceList() override { return prices_; }

  protected:
    [[nodiscard]] MasterRecord& Record() { return record_; }
    [[nodiscard]] PriceListContent& Prices() { return prices_; }

  private:
    static constexpr std::array<std::string_view, kItemName + 1> kColumns = {"ItemCode",
                                                                             "ItemName"};

    MasterRecord record_{kColumns};
    PriceListContent prices_;
};

}  // namespace platform::sapdi
