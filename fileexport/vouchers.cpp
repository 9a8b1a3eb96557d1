#include "fileexport/vouchers.h"

#include "app/field_values.h"
#include "platform/database/query_number.h"
#include "platform/error.h"
#include "platform/norwegian.h"

namespace fileexport {

using platform::Value;
using platform::database::Recordset;
using store::Sale;
using store::SaleLine;

namespace {

constexpr const char* kLinesOfSaleQuery =
    "SELECT * FROM SalesLines WHERE SalesID = ? ORDER BY LineNo";

}  // namespace

Vouchers::Vouchers(platform::TextFile& voucherFile, RecordCounter& recordCounter,
                   const VoucherSources& sources)
    : voucherFile_(voucherFile), recordCounter_(recordCounter), sources_(sources) {}

void Vouchers::Write() {
    sources_.options.Refresh();
    WriteBatch();
    WriteSalesPostings();
    WriteRoundingPostings();
    WritePaymentPostings();
    WriteReceiptPostings();
    sources_.SalesLinesRecordset.Release();
    voucherFile_.Sync();  // a number that no voucher has would be missed in the books
    sources_.options.AdvanceNextVoucherNo();  // kept: number-always-advances. For no record too.
}

void Vouchers::WriteBatch() {
    WriteVoucherHeaders(voucherFile_, recordCounter_, app::DateToYmd(sources_.clock.Now()),
                        "Overføring fra butikkdata", "1");
}

void Vouchers::WriteSalesPostings() {
    WriteSums(SalesQueryOf(sources_.options), PostingOfSales);
}

void Vouchers::WriteRoundingPostings() {
    WriteSums(kRoundingQuery, PostingOfRounding);
}

void Vouchers::WritePaymentPostings() {
    WriteSums(kPaymentQuery, PostingOfPayment);
}

// kept: unlike-scopes. Of sales of every status and of every type above 0.
void Vouchers::WriteReceiptPostings() {
    const auto index = sources_.workDatabase.IndexWhileInScope("SalesLines", "SalesID, LineNo");
    platform::database::ClientRecordset& sales = sources_.sales;
    for (sales.MoveFirst(); !sales.IsEof(); sales.MoveNext()) {
        platform::AtPlace("Sale " + platform::ToText(Sale(sales).ID()), [&] {
            WriteReceipt();
            store::MarkAsPosted(sales, sources_.clock.Now());
        });
    }
}

void Vouchers::WriteReceipt() {
    if (HasReceiptPostings(Sale(sources_.sales).SalesType())) WriteReceiptLines();
    // kept: closed-twice. Also where no lines were opened: at a sale of type 0 or less this closes
    // what is closed already, and error 3704 ends the export.
    sources_.SalesLinesRecordset->Close();
}

void Vouchers::WriteReceiptLines() {
    const Sale sale(sources_.sales);
    Recordset& lines = OpenOnWorkDatabase(kLinesOfSaleQuery,
                                          {platform::database::QueryNumber(sale.ID(), "Sales.ID")});
    for (; !lines.IsEof(); lines.MoveNext())
        WritePosting(PostingOfReceiptLine(sale, SaleLine(lines), sources_.options));
}

void Vouchers::WriteSums(const char* query, PostingOfSum& postingOf) {
    Recordset& sums = OpenOnWorkDatabase(query);
    for (; !sums.IsEof(); sums.MoveNext())
        WritePosting(postingOf(DailySum(sums), sources_.options));
    sums.Close();
}

Recordset& Vouchers::OpenOnWorkDatabase(std::string_view query,
                                        std::initializer_list<Value> values) {
    sources_.SalesLinesRecordset = sources_.workDatabase.OpenQuery(query, values);
    return *sources_.SalesLinesRecordset;
}

void Vouchers::WritePosting(const std::optional<Posting>& posting) {
    if (!posting) return;
    WriteVoucherRecord(voucherFile_, recordCounter_, RecordOf(*posting, sources_.options));
}

}  // namespace fileexport
