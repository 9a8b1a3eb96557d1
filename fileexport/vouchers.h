// The day's vouchers: sales, cash rounding, means of payment, and what moves on customers'
// accounts, all under the store's next voucher number.
#pragma once

#include <optional>
#include <string_view>

#include "fileexport/posting.h"
#include "fileexport/record_writer.h"
#include "platform/clock.h"
#include "platform/database/database.h"
#include "platform/object_variable.h"
#include "platform/text_file.h"
#include "store/options.h"

namespace fileexport {

struct VoucherSources {
    platform::database::Database& workDatabase;  // holds the imported data set
    platform::database::ClientRecordset& sales;  // the loaded sales
    store::Options options;
    const platform::Clock& clock;

    // Holds the results of the phase one after another.
    platform::ObjectVariable<platform::database::Recordset>& SalesLinesRecordset;
};

class Vouchers {
  public:
    Vouchers(platform::TextFile& voucherFile, RecordCounter& recordCounter,
             const VoucherSources& sources);

    // The whole phase. The voucher number stays advanced whatever follows.
    void Write();

  private:
    void WriteBatch();
    void WriteSalesPostings();
    void WriteRoundingPostings();
    void WritePaymentPostings();
    void WriteReceiptPostings();
    void WriteReceipt();
    void WriteReceiptLines();

    using PostingOfSum = std::optional<Posting>(const DailySum&, const store::Options&);
    void WriteSums(const char* query, PostingOfSum& postingOf);
    [[nodiscard]] platform::database::Recordset& OpenOnWorkDatabase(
        std::string_view query, std::initializer_list<platform::Value> values = {});
    void WritePosting(const std::optional<Posting>& posting);

    platform::TextFile& voucherFile_;
    RecordCounter& recordCounter_;
    VoucherSources sources_;
};

}  // namespace fileexport
