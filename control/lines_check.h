// The lines of a data set, held against the rules of lines while their file is walked, and added up
// by receipt and by posting.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "control/day_file.h"
#include "control/day_sums.h"
#include "control/sales_check.h"
#include "control/sap_check.h"
#include "control/vat_rates.h"

namespace control {

class LinesCheck {
  public:
    // `sap` is null for the file export, `sums` for SAP and where there are no options.
    LinesCheck(const Shop& shop, Findings& findings, SalesCheck& sales, SapCheck* sap,
               DaySums* sums);

    void Begin(const std::vector<std::string>& names);
    void Take(const FileRow& row);

  private:
    struct Columns {
        std::size_t saleId, lineNo, transType, product, description, quantity, price, discount,
            amount, vatCode, account, reference;
    };

    // What several rules ask of a line.
    struct Line {
        const FileRow& row;
        SaleRecord& sale;
        const Place& place;
        std::optional<std::int64_t> transType;
        std::int64_t units = 0;  // of its amount

        [[nodiscard]] bool IsItem() const;
    };

    [[nodiscard]] const platform::Value& At(const FileRow& row, std::size_t column) const {
        return ValueAt(row.values, column);
    }
    [[nodiscard]] bool TakeAmount(Line& line);
    void CheckKind(const Line& line);
    void CheckItem(const Line& line);
    void CheckPrice(const Line& line);
    void CheckFileExport(const Line& line);
    void CheckPosting(const Line& line);
    void CheckOnAccount(const Line& line);
    void CheckVatCode(const Line& line);
    void CheckTexts(const Line& line);
    void Tell(std::string_view code, const Line& line, const char* field,
              const platform::Value& value);

    const Shop& shop_;
    Findings& findings_;
    SalesCheck& sales_;
    SapCheck* sap_;
    DaySums* sums_;
    VatRates vatRates_;
    Columns columns_{};
};

}  // namespace control
