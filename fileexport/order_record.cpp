#include "fileexport/order_record.h"

#include <cmath>

#include "app/field_values.h"
#include "platform/comparison.h"
#include "platform/error.h"
#include "platform/norwegian.h"
#include "platform/text.h"
#include "store/transaction_types.h"

namespace fileexport {

using platform::RuntimeError;
using platform::Value;
namespace sales_type = store::sales_type;

namespace {

constexpr std::size_t kReferenceLength = 20;  // characters

// The 47 positions behind the last value of an "L" line.
constexpr const char* kLineEnd =
    "; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ;";

}  // namespace

bool IsOrder(const Value& salesType) {
    return platform::Equals(salesType, sales_type::kReceipt) ||
           platform::Equals(salesType, sales_type::kOrder) ||
           platform::Equals(salesType, sales_type::kType4);
}

// Every position of the import format stands here; the zeros are values that the store lacks.
// kept: blanks-of-positions. Some hold a blank beside their value; the stock number is not trimmed.
std::string HeadLine(const store::Sale& sale, const store::Options& options) {
    const Value salesType = sale.SalesType();
    const bool isType4 = platform::Equals(salesType, sales_type::kType4);
    const std::string orderKind = isType4 ? "3" : "1";
    const std::string saleClass =
        isType4 || platform::Equals(salesType, sales_type::kOrder) ? "1" : "4";
    // kept: cut-and-trim. Cut first: blanks in front count.
    const std::string ourRef = platform::Left(platform::ToText(sale.OurRef()), kReferenceLength);
    const std::string project = platform::TrimmedText(app::NzNumber(sale.Project()));
    const std::string salesDate = platform::TrimmedText(sale.SalesDate());
    const std::string customerID = platform::TrimmedText(sale.CustomerID());
    const std::string customerName = platform::TrimmedText(sale.CustomerName());
    const std::string seller = platform::TrimmedText(sale.SelBuy());
    const std::string id = platform::TrimmedText(sale.ID());
    const std::string stockNo = platform::ToText(app::NzNumber(options.StockNo()));

    return "H; ; ;" + saleClass + "; ;0;" + customerID + "; " + customerName +
           "; ; ; ; ; ; ; ; ; ; ; ; ; ; ;" + salesDate + "; ; ; ; ; ; ; ; ; ; ; ;" + id +
           " ; ; ; ; ;" + orderKind + "; ; ;0 ;" + project + " ;0 ;0 ;0 ;0 ; ; ; ; ; ; ; ; ; " +
           std::string(platform::Trim(ourRef)) + "; ; ; ; ; " + seller + "; " + stockNo +
           "; ; ; ; ;";
}

Value NetPrice(const Value& price, double vatRate) {
    if (price.IsNull()) return {};
    const double gross = platform::ToDouble(price);
    const double divisor = vatRate + 100;
    if (divisor == 0) {
        if (gross == 0) throw RuntimeError(platform::error_number::kOverflow, "Overflow");
        throw RuntimeError(platform::error_number::kDivisionByZero, "Division by zero");
    }
    const double net = gross / divisor * 100;
    if (!std::isfinite(net)) throw RuntimeError(platform::error_number::kOverflow, "Overflow");
    return net;
}

// kept: quotes-not-escaped. Nor is a semicolon in a product or its text.
std::string OrderLine(const store::SaleLine& line, const Value& netPrice) {
    const std::string product = platform::TrimmedText(line.ProductID());
    const std::string description = platform::TrimmedText(line.Description());
    const auto quantity = platform::ToTwoDecimals(line.Qty());
    const auto price = platform::ToTwoDecimals(netPrice);
    const auto costPrice = platform::ToTwoDecimals(line.CostPrice());
    const auto discount = platform::ToTwoDecimals(line.Discount());
    return "L; ;" + product + ";" + description + "; " + AmountText(quantity) + ";" +
           AmountText(price) + "; " + AmountText(costPrice) + " ; ; ; ; ; ;" +
           AmountText(discount) + "; ; ; ;;0;0" + kLineEnd;
}

// kept: comma-and-point. A point here, a comma in the voucher file.
std::string AmountText(const std::optional<platform::TwoDecimals>& amount) {
    return amount ? amount->PointText() : "0";  // kept: null-is-0. Without decimals.
}

}  // namespace fileexport
