// Writes the batch and voucher records of the voucher file. Knows nothing of what is posted.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/text_file.h"
#include "platform/value.h"

namespace fileexport {

// The values of a @WaVo record, in record order.
struct VoucherRecord {
    platform::Value VoNo;
    platform::Value VoDt;  // YYYYMMDD
    platform::Value VoTp;
    platform::Value Txt;
    platform::Value DbAcCl, DbAcNo, DbTxCd;  // debit: account class, account, VAT code
    platform::Value CrAcCl, CrAcNo, CrTxCd;  // credit
    platform::Value Am;                      // without sign
    platform::Value InvoNo, Ref, AgRef;
    platform::Value Task;
    platform::Value DueDt;
    platform::Value R1, R2, R3, R4, R5, R6;
};

// kept: record-counter. Counts the records since the last header; nothing reads it.
using RecordCounter = std::int32_t;

// Values in double quotes, each trimmed of blanks, separated by one blank.
// kept: quotes-not-escaped. The accounting package knows no escape.
[[nodiscard]] std::string QuotedRecordLine(const std::vector<const platform::Value*>& values);

// The batch record (date as YYYYMMDD, description, suspense switch) and the voucher field list.
void WriteVoucherHeaders(platform::TextFile& voucherFile, RecordCounter& recordCounter,
                         const platform::Value& valDt, const platform::Value& descr,
                         const platform::Value& susp);

// The longest line of a voucher record, in characters; what is longer is cut there.
inline constexpr std::size_t kVoucherLineLimit = 200;

// The line of a record before it is cut.
[[nodiscard]] std::string VoucherLine(const VoucherRecord& record);

// Of a line of more than 200 characters: the first 200, the continuation marker, an empty line.
void WriteVoucherRecord(platform::TextFile& voucherFile, RecordCounter& recordCounter,
                        const VoucherRecord& record);

void CloseVoucherFile(platform::TextFile& voucherFile);

}  // namespace fileexport
