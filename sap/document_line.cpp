#include "sap/document_line.h"

#include <cmath>

#include "app/field_values.h"
#include "platform/comparison.h"
#include "platform/error.h"
#include "platform/norwegian.h"
#include "platform/text.h"

namespace sap {

using app::NzText;
using platform::RoundToTwoDecimals;
using platform::Value;
using store::Options;
using store::Sale;
using store::SaleLine;

namespace {

constexpr std::size_t kProjectWidth = 8;

// kept: project-of-8. Filled up to 8 characters, an empty one too; a longer one stays whole.
void SetProjectAndDepartment(DocumentLine& values, const Sale& sale, const Options& options) {
    values.projectCode = platform::PadRight(NzText(sale.Project()), kProjectWidth);
    values.costingCode = NzText(options.DeptNo());
}

// The account that the line names, or the shop's where it names 0.
// kept: blank-for-nothing. Null is a name other than 0 and becomes a blank.
Value AccountOf(const SaleLine& line, const Options& options) {
    const Value account = line.SalesAccount();
    return platform::Equals(account, 0) ? options.SalesAccount() : account;
}

struct Amounts {
    double quantity = 0;         // two decimals
    std::optional<double> unit;  // amount by quantity, not yet rounded; none for a quantity of 0
};

Amounts AmountsOf(const SaleLine& line) {
    const Value quantity = line.Qty();
    Amounts amounts;
    amounts.quantity = RoundToTwoDecimals(quantity);
    const double divisor = platform::ToDouble(quantity);
    if (divisor == 0) return amounts;
    amounts.unit = platform::ToDouble(line.Amount()) / divisor;
    if (std::isfinite(*amounts.unit)) return amounts;
    throw platform::RuntimeError(platform::error_number::kOverflow, "Overflow");
}

// With the other sign, but never -0.
double Negated(double quantity) {
    return 0.0 - quantity;
}

void SetReceiptAmounts(DocumentLine& values, const Amounts& amounts, bool isCredit) {
    values.quantity = isCredit ? Negated(amounts.quantity) : amounts.quantity;
    if (!amounts.unit) return;
    values.isPriceRefused = *amounts.unit < 0;
    values.unitPrice = RoundToTwoDecimals(std::fabs(*amounts.unit));
    if (values.isPriceRefused) values.quantity = Negated(amounts.quantity);
}

// kept: order-price-message. A price of 0 is refused too; on a receipt it is not.
void SetOrderAmounts(DocumentLine& values, const Amounts& amounts, bool isCredit) {
    values.quantity = isCredit ? Negated(amounts.quantity) : amounts.quantity;
    if (!amounts.unit) return;
    values.isPriceRefused = *amounts.unit <= 0;
    values.unitPrice = RoundToTwoDecimals(std::fabs(*amounts.unit));
}

}  // namespace

bool IsRounding(const SaleLine& line) {
    return platform::Upper(platform::ToText(line.ProductID())) == "AVRUNDING";
}

DocumentLine ReceiptLine(const Sale& sale, const SaleLine& line, bool isCredit,
                         const Options& options) {
    DocumentLine values;
    values.itemCode = NzText(line.ProductID());
    values.accountCode = NzText(AccountOf(line, options));
    SetProjectAndDepartment(values, sale, options);
    values.itemDescription = NzText(line.Description());
    SetReceiptAmounts(values, AmountsOf(line), isCredit);
    return values;
}

DocumentLine RoundingLine(const Sale& sale, const SaleLine& line, bool isCredit,
                          const Options& options) {
    DocumentLine values;
    values.itemCode = "Avrunding";
    values.accountCode = NzText(AccountOf(line, options));
    SetProjectAndDepartment(values, sale, options);
    values.itemDescription = "Avrunding fra Kassovia";
    SetReceiptAmounts(values, AmountsOf(line), isCredit);
    return values;
}

DocumentLine OrderLine(const Sale& sale, const SaleLine& line, bool isCredit,
                       const Options& options) {
    DocumentLine values;
    values.itemCode = NzText(line.ProductID());
    SetProjectAndDepartment(values, sale, options);
    values.itemDescription = NzText(line.Description());
    SetOrderAmounts(values, AmountsOf(line), isCredit);
    return values;
}

// kept: discount-in-both. The discount is off the amount already, and is set as per cent too.
double LineDiscount(const SaleLine& line) {
    return RoundToTwoDecimals(platform::TrimmedText(line.Discount()));
}

}  // namespace sap
