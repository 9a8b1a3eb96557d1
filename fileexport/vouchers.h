// The day's postings: sales, cash rounding, means of payment, and what moves on customers'
// accounts, all under the store's next voucher number.
#pragma once

#include "fileexport/record_writer.h"
#include "platform/clock.h"
#include "platform/text_file.h"
#include "store/databases.h"
#include "ui/run_state.h"

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

class Vouchers {
  public:
    Vouchers(platform::TextFile& voucherFile, RecordCounter& recordCounter,
             const store::Databases& databases, ui::RunState& runState,
             const platform::Clock& clock);

    // The whole voucher phase: reads the work database and the loaded sales, marks the loaded sales
    // as transferred and advances the voucher number, which stays advanced whatever follows.
    void Write();

  private:
    void WriteBatch();
    void WriteSalesPostings();
    void WriteRoundingPostings();
    void WritePaymentPostings();
    void WriteReceiptPostings();
    void WriteReceipt(platform::Recordset& sale);
    void WriteReceiptLine(const platform::Recordset& sale, const platform::Recordset& line);
    void MarkSale(platform::Recordset& sale);
    void AdvanceVoucherNo();

    [[nodiscard]] platform::Recordset& OpenOnWorkConnection(std::string_view query);
    void WritePosting(const Posting& posting);
    [[nodiscard]] std::int32_t OptionAccount(const std::string& field) const;
    [[nodiscard]] platform::Value Option(std::string_view field) const;

    platform::TextFile& voucherFile_;
    RecordCounter& recordCounter_;
    const store::Databases& databases_;
    ui::RunState& runState_;
    const platform::Clock& clock_;
};

}  // namespace fileexport
