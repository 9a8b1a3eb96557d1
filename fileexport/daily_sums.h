// The queries of the day's sums in the work database, and their rows by the names of their columns.
#pragma once

#include "platform/database/recordset.h"
#include "platform/value.h"

namespace fileexport {

// Sales by date, account and VAT code: of receipts alone, or of receipts and orders.
// kept: negative-account. Lines with a negative account, or without one, are in no sum.
inline constexpr const char* kReceiptSalesQuery =
    "SELECT SalesLines.SalesAccount, SalesLines.VatCode, sum(SalesLines.Amount), "
    "Sales.SalesDate From Sales, SalesLines WHERE Sales.ID = SalesLines.SalesID AND "
    "(SalesLines.TransType = 1 OR SalesLines.TransType = 2) AND SalesLines.SalesAccount >= 0 AND "
    "Sales.SalesStatus = 0 AND Sales.SalesType = 1 GROUP BY Sales.SalesDate, SalesAccount, VatCode";
inline constexpr const char* kReceiptAndOrderSalesQuery =
    "SELECT SalesLines.SalesAccount, SalesLines.VatCode, sum(SalesLines.Amount), "
    "Sales.SalesDate From Sales, SalesLines WHERE Sales.ID = SalesLines.SalesID AND "
    "(SalesLines.TransType = 1 OR SalesLines.TransType = 2) AND SalesLines.SalesAccount >= 0 AND "
    "Sales.SalesStatus = 0 AND Sales.SalesType > 0 AND Sales.SalesType < 3 GROUP BY "
    "Sales.Salesdate, SalesAccount, VatCode";

// Cash rounding by date, and means of payment by date and kind of line.
// kept: unlike-scopes. Roundings of receipts alone, but payments of receipts and orders.
inline constexpr const char* kRoundingQuery =
    "SELECT sum(SalesLines.Amount), Sales.SalesDate From Sales, SalesLines WHERE Sales.ID "
    "= SalesLines.SalesID AND SalesLines.ProductID = 'Avrunding' AND SalesLines.TransType = 0 AND "
    "Sales.SalesStatus = 0 AND Sales.SalesType = 1 GROUP BY Sales.SalesDate";
inline constexpr const char* kPaymentQuery =
    "SELECT SalesLines.TransType, sum(SalesLines.Amount), Sales.SalesDate From Sales, "
    "SalesLines WHERE Sales.ID = SalesLines.SalesID AND sales.SalesType > 0 AND sales.SalesType < "
    "3 AND sales.SalesStatus = 0 GROUP BY Sales.Salesdate, TransType";

// A row of one of these queries; a member is there where the query selects its column.
class DailySum {
  public:
    explicit DailySum(const platform::database::Record& record) : record_(record) {}

    [[nodiscard]] platform::Value SalesAccount() const { return record_.Get("SalesAccount"); }
    [[nodiscard]] platform::Value VatCode() const { return record_.Get("VatCode"); }
    [[nodiscard]] platform::Value TransType() const { return record_.Get("TransType"); }
    // Null of nulls. The sum has no name of its own in the queries, whose texts are part of errors.
    [[nodiscard]] platform::Value Total() const { return record_.Get("sum(SalesLines.Amount)"); }
    [[nodiscard]] platform::Value SalesDate() const { return record_.Get("SalesDate"); }

  private:
    const platform::database::Record& record_;
};

}  // namespace fileexport
