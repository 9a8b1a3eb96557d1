// What becomes of the day's sums and of the lines on customers' accounts: postings, and the voucher
// record of a posting. Pure: reads what it is given, writes and marks nothing.
#pragma once

#include <cstdint>
#include <optional>

#include "fileexport/daily_sums.h"
#include "fileexport/record_writer.h"
#include "store/options.h"
#include "store/sale.h"
#include "store/sale_line.h"

namespace fileexport {

// What a posting says beyond the values that all have in common.
struct Posting {
    platform::Value date;  // YYYYMMDD
    int voucherType = 0;
    platform::Value text;
    std::int32_t account = 0;
    platform::Value vatCode = 0;
    platform::Value amount;  // signed: above 0 is credit, 0 and below debit
    platform::Value invoiceNo = "";
    platform::Value agreementRef = "";
};

// The posting of a sum of the named query; nothing where none is written. An account that is no
// number is error 13, a null one 94, one of more than 32 bits 6: the field is named.
[[nodiscard]] std::optional<Posting> PostingOfSales(const DailySum& sum,
                                                    const store::Options& options);
[[nodiscard]] std::optional<Posting> PostingOfRounding(const DailySum& sum,
                                                       const store::Options& options);
[[nodiscard]] std::optional<Posting> PostingOfPayment(const DailySum& sum,
                                                      const store::Options& options);

// The posting of a line that moves money on the customer's account. Errors as above.
[[nodiscard]] std::optional<Posting> PostingOfReceiptLine(const store::Sale& sale,
                                                          const store::SaleLine& line,
                                                          const store::Options& options);

// The query of the sales' sums: kReceiptSalesQuery or kReceiptAndOrderSalesQuery.
[[nodiscard]] const char* SalesQueryOf(const store::Options& options);

// Whether sales of that type have their lines posted one by one; one that has not ends the export.
[[nodiscard]] bool HasReceiptPostings(const platform::Value& salesType);

// The record under the store's next voucher number.
[[nodiscard]] VoucherRecord RecordOf(const Posting& posting, const store::Options& options);

}  // namespace fileexport
