// The sales of a data set, held against the rules of sales while their file is walked.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "control/day_file.h"
#include "control/remembered.h"
#include "control/sale_table.h"
#include "control/sap_check.h"
#include "control/shop.h"

namespace control {

class SalesCheck {
  public:
    // `sap` is null for the file export.
    SalesCheck(const Shop& shop, Findings& findings, SapCheck* sap);

    void Begin(const std::vector<std::string>& names);
    void Take(const FileRow& row);

    // What shows with the last sale: two of one number, several dates, no sale at all.
    void EndOfSales();

    // What shows with the last line: receipts that do not add up, sales without lines ...
    void EndOfLines();

    [[nodiscard]] SaleTable& Sales() { return sales_; }
    [[nodiscard]] bool HasOrders() const { return hasOrders_; }  // heads in the order file

  private:
    struct Columns {
        std::size_t id, type, status, date, customer, customerName, ourRef;
    };

    void TakeNumber(const FileRow& row, SaleRecord& sale, const Place& place);
    void TakeType(const platform::Value& value, SaleRecord& sale, const Place& place);
    void TakeStatus(const platform::Value& value, SaleRecord& sale, const Place& place);
    void TakeDate(const platform::Value& value, SaleRecord& sale, const Place& place);
    void TakeCustomer(const FileRow& row, SaleRecord& sale, const Place& place);
    void TakeTexts(const FileRow& row, const Place& place);
    void KeepCustomer(const SaleRecord& sale, const std::string& customer);
    [[nodiscard]] std::string CustomerOf(const SaleRecord& sale) const;
    void CheckDates();
    void CheckSale(const SaleRecord& sale);
    void CheckFileExport(const SaleRecord& sale, const Place& place);

    const Shop& shop_;
    Findings& findings_;
    SapCheck* sap_;
    Columns columns_{};
    SaleTable sales_;
    Remembered<bool> hasCustomer_;
    Remembered<std::optional<std::int32_t>> accounts_;             // by customer
    std::map<std::int32_t, std::string> dates_;                    // the first few
    std::unordered_map<std::int64_t, std::string> toldCustomers_;  // of faulty sales, by number
    std::int32_t today_;
    bool creditToOrderIsFalse_ = false;
    bool hasOrders_ = false;
};

}  // namespace control
