#include "control/data_set_check.h"

#include <optional>
#include <string>

#include "control/day_file.h"
#include "control/lines_check.h"
#include "control/sales_check.h"

namespace control {

namespace {

struct TwoFiles {
    std::string sales;
    std::string lines;
};

// Nothing, and K101, where one of them is missing.
std::optional<TwoFiles> FilesOf(const store::DataSet& dataSet, Findings& findings) {
    const std::optional<std::string> sales = dataSet.FindSalesFile();
    const std::optional<std::string> lines = dataSet.FindSalesLinesFile();
    if (!sales) findings.Add("K101", {.value = dataSet.SalesFile()});
    if (!lines) findings.Add("K101", {.value = dataSet.SalesLinesFile()});
    if (!sales || !lines) return std::nullopt;
    return TwoFiles{*sales, *lines};
}

class DataSetCheck {
  public:
    DataSetCheck(const TwoFiles& files, const Shop& shop, Findings& findings)
        : shop_(shop),
          findings_(findings),
          salesFile_(shop, findings, files.sales, "Sales", "ID"),
          linesFile_(shop, findings, files.lines, "SalesLines", "SalesID") {
        if (shop.UsesSap()) {
            sap_.emplace(shop, findings);
        } else if (shop.HasOptions()) {
            sums_.emplace(shop, findings);
        }
    }

    void Run() {
        SalesCheck sales(shop_, findings_, sap_ ? &*sap_ : nullptr);
        const bool hasSales = salesFile_.Walk([&](const auto& names) { sales.Begin(names); },
                                              [&](const FileRow& row) { sales.Take(row); });
        if (hasSales) sales.EndOfSales();
        LinesCheck lines(shop_, findings_, sales, sap_ ? &*sap_ : nullptr,
                         sums_ ? &*sums_ : nullptr);
        // Without all sales nothing can be told of a line but whether it can be read.
        const bool hasLines = linesFile_.Walk([&](const auto& names) { lines.Begin(names); },
                                              [&](const FileRow& row) {
                                                  if (hasSales) lines.Take(row);
                                              });
        if (!hasSales || !hasLines) return;
        sales.EndOfLines();
        const bool isImported = !salesFile_.HasRefusals() && !linesFile_.HasRefusals();
        if (sums_ && isImported) sums_->Check();
    }

  private:
    const Shop& shop_;
    Findings& findings_;
    DayFile salesFile_;
    DayFile linesFile_;
    std::optional<SapCheck> sap_;
    std::optional<DaySums> sums_;
};

}  // namespace

void CheckDataSet(const store::DataSet& dataSet, const Shop& shop, Findings& findings) {
    findings.Begin(dataSet.DisplayName());
    if (const auto files = FilesOf(dataSet, findings)) DataSetCheck(*files, shop, findings).Run();
}

}  // namespace control
