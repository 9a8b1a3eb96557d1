#include "fileexport/order_file.h"

#include <cmath>
#include <string_view>
#include <utility>
#include <vector>

#include "app/field_values.h"
#include "platform/error.h"
#include "platform/norwegian.h"
#include "platform/text.h"
#include "store/data_set.h"
#include "store/transaction_types.h"

namespace fileexport {

namespace {

using platform::Recordset;
using platform::TextFile;
using platform::Value;

constexpr std::size_t kReferenceLength = 20;  // characters

// The 47 positions behind the last value of an "L" line.
constexpr const char* kLineEnd =
    "; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ; ;";

struct OrderHead {
    int orderKind = 0;
    int saleClass = 0;
    Value salesDate;  // YYYYMMDD
    Value customerID;
    Value customerName;
    Value selBuy;   // the seller's number
    Value project;  // through NzNumber
    Value id;
    std::string reference;  // cut to its length
    Value stockNo;
};

std::string Trimmed(const Value& value) {
    return std::string(platform::Trim(platform::ToText(value)));
}

// Every position of the import format stands here; the zeros are values that the store lacks.
std::string HeadLine(const OrderHead& head) {
    return "H; ; ;" + std::to_string(head.saleClass) + "; ;0;" + Trimmed(head.customerID) + "; " +
           Trimmed(head.customerName) + "; ; ; ; ; ; ; ; ; ; ; ; ; ; ;" + Trimmed(head.salesDate) +
           "; ; ; ; ; ; ; ; ; ; ; ;" + Trimmed(head.id) + " ; ; ; ; ;" +
           std::to_string(head.orderKind) + "; ; ;0 ;" + Trimmed(head.project) +
           " ;0 ;0 ;0 ;0 ; ; ; ; ; ; ; ; ; " + std::string(platform::Trim(head.reference)) +
           "; ; ; ; ; " + Trimmed(head.selBuy) + "; " + platform::ToText(head.stockNo) +
           "; ; ; ; ;";
}

bool IsOrder(const Value& salesType) {
    using namespace store::sales_type;
    return platform::Equals(salesType, kReceipt) || platform::Equals(salesType, kOrder) ||
           platform::Equals(salesType, kType4);
}

OrderHead HeadOf(const Recordset& sale, const Recordset& options) {
    using namespace store::sales_type;
    const Value salesType = sale.Get("SalesType");
    const bool isType4 = platform::Equals(salesType, kType4);
    OrderHead head;
    head.orderKind = isType4 ? 3 : 1;
    head.saleClass = isType4 || platform::Equals(salesType, kOrder) ? 1 : 4;
    head.reference = platform::Left(platform::ToText(sale.Get("OurRef")), kReferenceLength);
    head.project = app::NzNumber(sale.Get("Project"));
    head.salesDate = sale.Get("SalesDate");
    head.customerID = sale.Get("CustomerID");
    head.customerName = sale.Get("CustomerName");
    head.selBuy = sale.Get("SelBuy");
    head.id = sale.Get("ID");
    head.stockNo = app::NzNumber(options.Get("StockNo"));
    return head;
}

void WriteOrderHeader(TextFile& orderFile, RecordCounter& recordCounter, const OrderHead& head) {
    orderFile.WriteLine(HeadLine(head));
    recordCounter = 1;
}

// Price without VAT, from a price with it; null for a null price.
Value NetPrice(const Value& price, double vatRate) {
    if (price.IsNull()) return {};
    const double gross = platform::ToDouble(price);
    const double divisor = vatRate + 100;
    if (divisor == 0) {
        const bool isZero = gross == 0;
        throw platform::RuntimeError(
            isZero ? platform::error_number::kOverflow : platform::error_number::kDivisionByZero,
            isZero ? "Overflow" : "Division by zero");
    }
    const double net = gross / divisor * 100;
    if (!std::isfinite(net))
        throw platform::RuntimeError(platform::error_number::kOverflow, "Overflow");
    return net;
}

std::string TwoDecimals(const Value& amount) {
    Value formatted = platform::FormatTwoDecimals(amount);
    return std::string(platform::Trim(AmountText(formatted)));
}

std::string OrderLine(const Recordset& line, const Value& netPrice) {
    return "L; ;" + Trimmed(line.Get("ProductID")) + ";" + Trimmed(line.Get("Description")) + "; " +
           TwoDecimals(line.Get("Qty")) + ";" + TwoDecimals(netPrice) + "; " +
           TwoDecimals(line.Get("CostPrice")) + " ; ; ; ; ; ;" + TwoDecimals(line.Get("Discount")) +
           "; ; ; ;;0;0" + kLineEnd;
}

void WriteOrderLine(TextFile& orderFile, RecordCounter& recordCounter,
                    const std::string& encodedLine) {
    orderFile.WriteEncoded(encodedLine);
    ++recordCounter;
}

// The rates that were looked up, so that the Tax table is asked once for each code of a data set.
class VatRates {
  public:
    explicit VatRates(const store::Databases& databases) : databases_(databases) {}

    double Of(const Value& vatCode) {
        for (const auto& [code, rate] : known_) {
            if (code == vatCode) return rate;
        }
        const double rate = VatRate(*databases_.TaxTable, vatCode);
        known_.emplace_back(vatCode, rate);
        return rate;
    }

  private:
    const store::Databases& databases_;
    std::vector<std::pair<Value, double>> known_;
};

// The "L" lines of a data set, which are the same under every head: formatted under the first one,
// then repeated.
class OrderLines {
  public:
    OrderLines(std::string fileName, ui::RunState& runState, const store::Databases& databases)
        : fileName_(std::move(fileName)), runState_(runState), vatRates_(databases) {}

    void Write(TextFile& orderFile, RecordCounter& recordCounter) {
        if (!areFormatted_) return WriteFirst(orderFile, recordCounter);
        orderFile.WriteEncoded(encodedLines_);
        recordCounter += count_;
    }

  private:
    void WriteFirst(TextFile& orderFile, RecordCounter& recordCounter) {
        runState_.SalesLinesRecordset = runState_.PersistConnection->OpenForwardOnly(fileName_);
        Recordset& lines = *runState_.SalesLinesRecordset;
        for (; !lines.IsEof(); lines.MoveNext()) {
            const std::string line =
                platform::AtPlace(fileName_ + ", record " + std::to_string(count_ + 1),
                                  [&] { return Encoded(lines); });
            WriteOrderLine(orderFile, recordCounter, line);
            encodedLines_ += line;
            ++count_;
        }
        lines.Close();
        areFormatted_ = true;
    }

    std::string Encoded(const Recordset& line) {
        const Value price = line.Get("Price");
        const double vatRate = vatRates_.Of(line.Get("VatCode"));
        return platform::EncodeLine(OrderLine(line, NetPrice(price, vatRate)));
    }

    std::string fileName_;
    ui::RunState& runState_;
    VatRates vatRates_;
    std::string encodedLines_;
    bool areFormatted_ = false;
    RecordCounter count_ = 0;
};

}  // namespace

void WriteOrderFileBody(TextFile& orderFile, RecordCounter& recordCounter,
                        const std::string& dataSetName, ui::RunState& runState,
                        const store::Databases& databases) {
    OrderLines lines(store::SalesLinesFileName(dataSetName), runState, databases);
    Recordset& sales = *runState.SalesRecordset;
    for (sales.MoveFirst(); !sales.IsEof(); sales.MoveNext()) {
        if (!IsOrder(sales.Get("SalesType"))) continue;
        WriteOrderHeader(orderFile, recordCounter, HeadOf(sales, *databases.OptionsTable));
        lines.Write(orderFile, recordCounter);
    }
}

double VatRate(platform::TableRecordset& taxTable, const Value& vatCode) {
    taxTable.SetIndex("PrimaryKey");
    taxTable.Seek(vatCode);
    if (taxTable.NoMatch()) return 0;
    return platform::AtPlace("Tax.Rate of VAT code " + platform::ToText(vatCode),
                             [&] { return platform::ToDouble(taxTable.Get("Rate")); });
}

}  // namespace fileexport
