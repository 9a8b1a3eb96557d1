// The day's vouchers as the file export would make them: the lines of a day in groups, summed by
// the export's own queries and made postings by its own rules. Writes nothing.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>

#include "control/sale_table.h"
#include "control/shop.h"
#include "fileexport/posting.h"

namespace control {

// What the sums of the export tell lines apart by.
struct LineGroup {
    std::int64_t transType = 0;
    bool isRoundingProduct = false;
    std::optional<std::int64_t> account;
    std::optional<std::int64_t> vatCode;

    // NOLINTNEXTLINE(modernize-use-nullptr): takes the generated comparisons for ones with 0.
    friend auto operator<=>(const LineGroup&, const LineGroup&) = default;
};

class DaySums {
  public:
    DaySums(const Shop& shop, Findings& findings);

    void Add(const SaleRecord& sale, const LineGroup& line, std::int64_t units);

    // Whether a sum of the export takes such a line of a sale of that type.
    [[nodiscard]] bool Takes(std::int32_t salesType, const LineGroup& line);

    // The posting of a line on a customer's account, if there is one: K307.
    void AddReceiptLine(const SaleRecord& sale, const store::SaleLine& line, const Place& place);

    // K307, K401, K402 and K406, once all lines are in.
    void Check();

  private:
    using Key = std::tuple<std::int32_t, std::int32_t, std::int16_t, LineGroup>;

    struct Kind;
    static const Kind kKinds[];

    void Store();
    [[nodiscard]] bool IsPosted(const fileexport::DailySum& payments) const;
    void CheckSums(const Kind& kind);
    void CheckSum(const Kind& kind, const fileexport::DailySum& sum);
    void TellAccount(std::string_view code, const Kind& kind, const fileexport::DailySum& sum);
    void CheckBalance();
    void CheckLength(const fileexport::Posting& posting, const Place& place);
    void AddToBalance(const platform::Value& amount);

    store::Options options_;
    Findings& findings_;
    std::unique_ptr<platform::database::Database> sums_;   // the groups of the day
    std::unique_ptr<platform::database::Database> trial_;  // one line at a time
    std::map<Key, std::int64_t> groups_;                   // units
    std::int64_t stored_ = 0;
    std::map<std::pair<std::int32_t, LineGroup>, bool> taken_;
    std::int64_t balance_ = 0;  // units: credit less debit
    bool isTooLarge_ = false;
    std::set<std::string> toldAccounts_;
};

}  // namespace control
