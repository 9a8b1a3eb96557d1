#include "fileexport/order_file.h"

#include <string>
#include <utility>
#include <vector>

#include "fileexport/order_record.h"
#include "platform/error.h"
#include "platform/norwegian.h"
#include "store/sale.h"
#include "store/sale_line.h"

namespace fileexport {

namespace {

using platform::TextFile;
using platform::Value;

void WriteOrderHeader(TextFile& orderFile, RecordCounter& recordCounter,
                      const std::string& headLine) {
    orderFile.WriteLine(headLine);
    recordCounter = 1;
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

// The "L" lines of a data set: formatted under the first head, repeated under the others.
class OrderLines {
  public:
    explicit OrderLines(const OrderSources& sources)
        : sources_(sources), vatRates_(sources.databases) {}

    void Write(TextFile& orderFile, RecordCounter& recordCounter) {
        if (!areFormatted_) return WriteFirst(orderFile, recordCounter);
        orderFile.WriteEncoded(encodedLines_);
        recordCounter += count_;
    }

  private:
    void WriteFirst(TextFile& orderFile, RecordCounter& recordCounter) {
        platform::recordset_file::ForwardRecordset& lines = sources_.lines;
        for (; !lines.IsEof(); lines.MoveNext()) {
            const std::string line =
                platform::AtPlace(lines.Place(), [&] { return Encoded(store::SaleLine(lines)); });
            WriteOrderLine(orderFile, recordCounter, line);
            encodedLines_ += line;
            ++count_;
        }
        areFormatted_ = true;
    }

    std::string Encoded(const store::SaleLine& line) {
        const Value price = line.Price();
        const double vatRate = vatRates_.Of(line.VatCode());
        return platform::EncodeLine(OrderLine(line, NetPrice(price, vatRate)));
    }

    const OrderSources& sources_;
    VatRates vatRates_;
    std::string encodedLines_;
    bool areFormatted_ = false;
    RecordCounter count_ = 0;
};

}  // namespace

// kept: all-lines-under-every-head. Those of the whole data set, not only of the head's own sale.
void WriteOrderFileBody(TextFile& orderFile, RecordCounter& recordCounter,
                        const OrderSources& sources) {
    sources.options.Refresh();
    OrderLines lines(sources);
    platform::database::ClientRecordset& sales = sources.sales;
    for (sales.MoveFirst(); !sales.IsEof(); sales.MoveNext()) {
        const store::Sale sale(sales);
        if (!IsOrder(sale.SalesType())) continue;
        WriteOrderHeader(orderFile, recordCounter, HeadLine(sale, sources.options));
        lines.Write(orderFile, recordCounter);
    }
}

double VatRate(platform::database::TableRecordset& taxTable, const Value& vatCode) {
    taxTable.SetIndex("PrimaryKey");
    taxTable.Seek(vatCode);
    if (taxTable.NoMatch()) return 0;  // kept: unknown-vat-code. Nobody is told.
    return platform::AtPlace("Tax.Rate of VAT code " + platform::ToText(vatCode),
                             [&] { return platform::ToDouble(taxTable.Get("Rate")); });
}

}  // namespace fileexport
