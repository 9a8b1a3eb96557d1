#include "demo/data_set_files.h"

#include <string_view>
#include <vector>

#include "demo/rows.h"
#include "platform/recordset_file/writer.h"
#include "store/schema.h"

namespace demo {

namespace {

using platform::Value;

constexpr int kOpenSale = 0;

Value TextOrNull(std::string_view text) {
    return text.empty() ? Value() : Value(text);
}

// In the order of store::SalesColumns, as the import copies by position.
std::vector<Value> SaleRow(const Shop& shop, const Receipt& receipt, std::int64_t id) {
    const Customer* customer = receipt.customer;
    return {id,
            receipt.salesType,
            kOpenSale,
            shop.date,
            Value(),
            customer == nullptr ? Value() : Value(customer->id),
            customer == nullptr ? Value() : Value(customer->name),
            TextOrNull(receipt.project),
            shop.sellers[receipt.seller - 1],
            customer == nullptr ? Value() : Value(customer->contact),
            static_cast<std::int64_t>(receipt.seller)};
}

// The same row is filled again and again, as there may be a million of them.
class LineRow {
  public:
    explicit LineRow(const Shop& shop) : row_(store::SalesLinesColumns().size()) {
        row_[2] = shop.date;
    }

    const std::vector<Value>& Fill(std::int64_t saleId, std::int64_t lineNo,
                                   const ReceiptLine& line) {
        row_[0] = saleId;
        row_[1] = lineNo;
        row_[3] = line.kind;
        SetText(4, line.productId);
        SetText(5, line.description);
        // From thousandths to pieces or kilograms; amounts from øre to kroner.
        row_[6] = static_cast<double>(line.quantity) / 1000.0;
        row_[7] = Kroner(line.price);
        row_[8] = static_cast<double>(line.discount);
        row_[9] = Kroner(line.costPrice);
        row_[10] = Kroner(line.amount);
        row_[11] = line.vatCode;
        row_[12] = line.salesAccount;
        SetText(13, line.text);
        return row_;
    }

  private:
    void SetText(std::size_t column, std::string_view text) {
        if (text.empty()) {
            row_[column] = Value();
        } else {
            row_[column].AssignText(text);
        }
    }

    std::vector<Value> row_;
};

}  // namespace

void WriteDataSet(const std::filesystem::path& folder, const Shop& shop, const DataSet& dataSet,
                  std::uint64_t seed) {
    platform::recordset_file::RecordsetFileWriter sales(
        (folder / (dataSet.plan.name + "DayEndSales.XML")).string(), store::SalesColumns());
    platform::recordset_file::RecordsetFileWriter lines(
        (folder / (dataSet.plan.name + "DayEndSalesLines.XML")).string(),
        store::SalesLinesColumns());
    Day day(shop, dataSet.plan, seed);
    LineRow lineRow(shop);
    std::int64_t id = dataSet.firstSaleId;
    while (day.HasMore()) {
        const Receipt receipt = day.Next();
        sales.Write(SaleRow(shop, receipt, id));
        std::int64_t lineNo = 0;
        for (const ReceiptLine& line : receipt.lines)
            lines.Write(lineRow.Fill(id, ++lineNo, line));
        ++id;
    }
    sales.Finish();
    lines.Finish();
}

}  // namespace demo
