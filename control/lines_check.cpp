#include "control/lines_check.h"

#include <cmath>

#include "control/record_text.h"
#include "control/values.h"
#include "platform/comparison.h"
#include "platform/error.h"
#include "store/sale_line.h"
#include "store/transaction_types.h"

namespace control {

using platform::Value;
namespace trans_type = store::trans_type;

namespace {

constexpr double kCentTolerance = 0.01 + 1e-9;

bool IsAboveZero(const Value& value) {
    return platform::Compare(value, 0) == platform::Ordering::Greater;
}

}  // namespace

bool LinesCheck::Line::IsItem() const {
    return transType == trans_type::kSales1 || transType == trans_type::kSales2;
}

LinesCheck::LinesCheck(const Shop& shop, Findings& findings, SalesCheck& sales, SapCheck* sap,
                       DaySums* sums)
    : shop_(shop), findings_(findings), sales_(sales), sap_(sap), sums_(sums), vatRates_(shop) {}

void LinesCheck::Begin(const std::vector<std::string>& names) {
    const auto place = [&](const char* name) { return ColumnPlace(names, name); };
    columns_ = {place("SalesID"),     place("LineNo"),  place("TransType"),    place("ProductID"),
                place("Description"), place("Qty"),     place("Price"),        place("Discount"),
                place("Amount"),      place("VatCode"), place("SalesAccount"), place("String1")};
    if (sap_ != nullptr) sap_->BeginLines(names);
}

void LinesCheck::Take(const FileRow& row) {
    const Value& saleId = At(row, columns_.saleId);
    const Place place{.sale = TextOf(saleId), .line = WholeOf(At(row, columns_.lineNo))};
    const std::optional<std::int64_t> id = WholeOf(saleId);
    SaleRecord* sale = id ? sales_.Sales().Find(*id) : nullptr;
    if (sale == nullptr) {
        if (row.isRefused) return;  // told, and perhaps of its very sale number
        Place here = place;
        here.field = "SalesID";
        here.value = TextOf(saleId);
        return findings_.Add("K301", here);
    }
    sale->flags |= sale_flag::kLines;
    if (row.isRefused) {
        sale->flags |= sale_flag::kIncomplete;
        return;
    }
    Line line{row, *sale, place, WholeOf(At(row, columns_.transType))};
    if (sap_ != nullptr) sap_->TakeLine(row, *sale, place);
    if (line.IsItem()) CheckItem(line);
    if (!TakeAmount(line)) return;
    CheckKind(line);
    if (!shop_.UsesSap()) CheckFileExport(line);
}

bool LinesCheck::TakeAmount(Line& line) {
    const Value& amount = At(line.row, columns_.amount);
    const std::optional<double> number = platform::NumberOf(amount);
    const auto units = number ? platform::database::AmountUnits(*number) : std::nullopt;
    if (!units || __builtin_add_overflow(line.sale.units, *units, &line.sale.units)) {
        line.sale.flags |= sale_flag::kIncomplete;
        Tell("K305", line, "Amount", amount);
        return false;
    }
    line.units = *units;
    return true;
}

void LinesCheck::CheckKind(const Line& line) {
    constexpr std::int64_t kMost = 1000;  // no kind is higher
    const bool isKnown = line.transType && *line.transType >= 0 && *line.transType < kMost &&
                         store::LedgerOf(static_cast<int>(*line.transType));
    if (isKnown || line.units == 0) return;
    Tell("K303", line, "TransType", At(line.row, columns_.transType));
}

void LinesCheck::CheckItem(const Line& line) {
    CheckPrice(line);
    if (!shop_.UsesSap()) CheckVatCode(line);
}

void LinesCheck::CheckPrice(const Line& line) {
    const auto number = [&](std::size_t column) {
        return platform::NumberOf(At(line.row, column));
    };
    const auto amount = number(columns_.amount);
    const auto quantity = number(columns_.quantity);
    const auto price = number(columns_.price);
    if (!amount || !quantity || !price) return;
    const double discount = number(columns_.discount).value_or(0);
    const double wanted = *quantity * *price * (1 - discount / 100);
    if (!std::isfinite(wanted) || std::fabs(*amount - wanted) <= kCentTolerance) return;
    const auto shown = platform::TwoDecimals::Of(wanted);
    Place here = line.place;
    here.field = "Amount";
    here.value = TextOf(At(line.row, columns_.amount));
    here.text = "Amount er {value}, men antall ganger pris minus rabatt blir " +
                (shown ? shown->CommaText() : "for stort") + ".";
    findings_.Add("K304", here);
}

void LinesCheck::CheckVatCode(const Line& line) {
    const Value& vatCode = At(line.row, columns_.vatCode);
    if (!IsAboveZero(vatCode)) return;
    const VatRateIs rate = vatRates_.Of(vatCode);
    if (rate == VatRateIs::Usable) return;
    Place here = line.place;
    here.field = "VatCode";
    here.value = TextOf(vatCode);
    if (rate == VatRateIs::Fatal) {
        here.severity = Severity::Error;
        here.text =
            "Avgiftskode {value} har ingen brukbar sats i tabellen Tax (−100, eller tom): "
            "overføringen stopper der.";
    }
    findings_.Add("K403", here);
}

void LinesCheck::CheckFileExport(const Line& line) {
    if (sales_.HasOrders()) CheckTexts(line);
    if (sums_ != nullptr) CheckPosting(line);
}

void LinesCheck::CheckTexts(const Line& line) {
    CheckRecordText(At(line.row, columns_.product), "ProductID", line.place, findings_);
    CheckRecordText(At(line.row, columns_.description), "Description", line.place, findings_);
}

void LinesCheck::CheckPosting(const Line& line) {
    const bool isRounding = line.transType == trans_type::kRounding;
    const LineGroup group{
        line.transType.value_or(-1),
        isRounding && platform::Equals(At(line.row, columns_.product), "Avrunding"),
        WholeOf(At(line.row, columns_.account)), WholeOf(At(line.row, columns_.vatCode))};
    sums_->Add(line.sale, group, line.units);
    if (line.IsItem()) {
        if (sums_->Takes(store::sales_type::kReceipt, group)) return;
        Tell("K309", line, "SalesAccount", At(line.row, columns_.account));
    } else if (isRounding) {
        if (line.units == 0 || sums_->Takes(line.sale.type, group)) return;
        Tell("K310", line, "Amount", MoneyText(line.units));
    } else if (sums_->Takes(store::sales_type::kReceipt, group)) {
        line.sale.flags |= sale_flag::kPayments;
    } else {
        CheckOnAccount(line);
    }
}

void LinesCheck::CheckOnAccount(const Line& line) {
    const bool isOnAccount = line.transType == trans_type::kCreditSale ||
                             line.transType == trans_type::kPrepayment ||
                             line.transType == trans_type::kInvoicePayment;
    if (!isOnAccount) return;
    line.sale.flags |= sale_flag::kOnAccount;
    if (line.transType == trans_type::kInvoicePayment) {
        CheckRecordText(At(line.row, columns_.reference), "String1", line.place, findings_);
    }
    const RowView view = line.row.View();
    sums_->AddReceiptLine(line.sale, store::SaleLine(view), line.place);
}

void LinesCheck::Tell(std::string_view code, const Line& line, const char* field,
                      const Value& value) {
    Place here = line.place;
    here.field = field;
    here.value = TextOf(value);
    findings_.Add(code, here);
}

}  // namespace control
