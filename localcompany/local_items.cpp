#include "localcompany/local_items.h"

#include <utility>
#include <vector>

#include "localcompany/codes.h"
#include "localcompany/master_table.h"
#include "platform/sapdi/item_content.h"

namespace localcompany {

using platform::Value;
using platform::database::Row;
using platform::sapdi::ItemContent;
using platform::sapdi::Items;
using platform::sapdi::PriceListContent;

namespace {

constexpr std::string_view kPriceLists = "SELECT ListNum FROM OPLN ORDER BY ListNum";
constexpr std::string_view kSetPrice =
    "INSERT INTO ITM1 (ItemCode, PriceList, Price) VALUES (?1, ?2, ?3) "
    "ON CONFLICT (ItemCode, PriceList) DO UPDATE SET Price = excluded.Price";

std::vector<Value> NumbersOfPriceLists(CompanySession& session) {
    (void)session.Connected();
    std::vector<Value> numbers;
    for (Row& row : session.Run(kPriceLists, {}))
        numbers.push_back(std::move(row.front()));
    return numbers;
}

// A new item has a price on every list, whatever a former item of that code has left.
void SaveEveryPrice(CompanySession& session, const std::string& itemCode,
                    PriceListContent& prices) {
    for (const PriceListContent::Line& line : prices.Lines())
        session.Run(kSetPrice, {itemCode, line.listNumber, line.price.value_or(0)});
}

void SavePricesThatWereSet(CompanySession& session, const std::string& itemCode,
                           PriceListContent& prices) {
    for (const PriceListContent::Line& line : prices.Lines()) {
        if (line.price) session.Run(kSetPrice, {itemCode, line.listNumber, *line.price});
    }
}

class LocalItems : public ItemContent {
  public:
    explicit LocalItems(std::shared_ptr<CompanySession> session)
        : ItemContent([session] { return NumbersOfPriceLists(*session); }),
          session_(std::move(session)) {}

    [[nodiscard]] std::int32_t Add() override {
        const std::int32_t code = session_->Add([this] {
            InsertRecord(*session_, kItemCodes, Record());
            SaveEveryPrice(*session_, Record().Code(), Prices());
            return Record().Code();
        });
        if (code == 0) Record().MarkSaved();
        return code;
    }

    [[nodiscard]] std::int32_t Update() override {
        const std::int32_t code = session_->Change([this] {
            const std::string stored = UpdateRecord(*session_, kItemCodes, Record());
            SavePricesThatWereSet(*session_, stored, Prices());
        });
        if (code == 0) {
            Record().MarkSaved();
            Prices().Reset();
        }
        return code;
    }

    bool GetByKey(std::string_view itemCode) override {
        (void)session_->Connected();
        if (!LoadRecord(*session_, kItemCodes, itemCode, Record())) return false;
        Prices().Reset();
        return true;
    }

  private:
    std::shared_ptr<CompanySession> session_;
};

}  // namespace

std::unique_ptr<Items> NewLocalItems(std::shared_ptr<CompanySession> session) {
    return std::make_unique<LocalItems>(std::move(session));
}

}  // namespace localcompany
