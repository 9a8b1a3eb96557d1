#include "platform/sapdi/local_items.h"

#include <array>
#include <optional>
#include <utility>
#include <vector>

#include "platform/error.h"
#include "platform/sapdi/master_record.h"

namespace platform::sapdi {
namespace {

enum ItemColumn : std::size_t { kItemCode, kItemName };

constexpr std::array<std::string_view, kItemName + 1> kItemColumns = {"ItemCode", "ItemName"};

constexpr std::string_view kPriceLists = "SELECT ListNum FROM OPLN ORDER BY ListNum";
constexpr std::string_view kSetPrice =
    "INSERT INTO ITM1 (ItemCode, PriceList, Price) VALUES (?1, ?2, ?3) "
    "ON CONFLICT (ItemCode, PriceList) DO UPDATE SET Price = excluded.Price";

class LocalPriceList : public ItemPriceList {
  public:
    explicit LocalPriceList(CompanySession& session) : session_(session) {}

    void SetCurrentLine(std::int32_t line) override {
        (void)LineAt(line);
        currentLine_ = line;
    }

    void SetPrice(double price) override { LineAt(currentLine_).price = price; }

    // A new item has a price on every list, whatever a former item of that code has left.
    void SaveAsNew(const std::string& itemCode) {
        for (const Line& line : Lines()) {
            session_.Run(kSetPrice, {itemCode, line.listNumber, line.price.value_or(0)});
        }
    }

    void SaveChanges(const std::string& itemCode) {
        for (const Line& line : Lines()) {
            if (line.price) session_.Run(kSetPrice, {itemCode, line.listNumber, *line.price});
        }
    }

    void ForgetPrices() {
        lines_.reset();
        currentLine_ = 0;
    }

  private:
    struct Line {
        Value listNumber;
        std::optional<double> price;  // where one was set
    };

    std::vector<Line>& Lines() {
        if (!lines_) {
            (void)session_.Connected();
            lines_.emplace();
            for (Row& row : session_.Run(kPriceLists, {})) {
                lines_->push_back({std::move(row.front()), std::nullopt});
            }
        }
        return *lines_;
    }

    Line& LineAt(std::int32_t line) {
        if (line >= 0 && static_cast<std::size_t>(line) < Lines().size()) {
            return Lines()[static_cast<std::size_t>(line)];
        }
        throw RuntimeError(error_number::kIndexOutOfRange,
                           "Price list: there is no line " + std::to_string(line));
    }

    CompanySession& session_;
    std::optional<std::vector<Line>> lines_;  // read when they are first needed
    std::int32_t currentLine_ = 0;
};

class LocalItems : public Items {
  public:
    explicit LocalItems(std::shared_ptr<CompanySession> session)
        : session_(std::move(session)), prices_(*session_) {}

    void SetItemCode(std::string_view code) override { record_.Set(kItemCode, code); }
    void SetItemName(std::string_view name) override { record_.Set(kItemName, name); }
    [[nodiscard]] ItemPriceList& PriceList() override { return prices_; }

    [[nodiscard]] std::int32_t Add() override {
        const std::int32_t code = session_->Add([this] {
            record_.Insert(*session_);
            prices_.SaveAsNew(record_.Code());
            return record_.Code();
        });
        if (code == 0) record_.MarkSaved();
        return code;
    }

    [[nodiscard]] std::int32_t Update() override {
        const std::int32_t code =
            session_->Change([this] { prices_.SaveChanges(record_.Update(*session_)); });
        if (code == 0) {
            record_.MarkSaved();
            prices_.ForgetPrices();
        }
        return code;
    }

    bool GetByKey(std::string_view itemCode) override {
        (void)session_->Connected();
        if (!record_.Load(*session_, itemCode)) return false;
        prices_.ForgetPrices();
        return true;
    }

  private:
    std::shared_ptr<CompanySession> session_;
    MasterRecord record_{kItemCodes, kItemColumns};
    LocalPriceList prices_;
};

}  // namespace

std::unique_ptr<Items> NewLocalItems(std::shared_ptr<CompanySession> session) {
    return std::make_unique<LocalItems>(std::move(session));
}

}  // namespace platform::sapdi
