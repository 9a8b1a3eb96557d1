#include "fileexport/record_writer.h"

#include "platform/norwegian.h"
#include "platform/text.h"

namespace fileexport {

using platform::TextFile;
using platform::Value;

namespace {

constexpr const char* kBatchFields = "@WaBnd (ValDt, Descr, Susp)";
constexpr const char* kVoucherFields =
    "@WaVo (VoNo, VoDt, VoTp, Txt, DbAcCl, DbAcNo, DbTxCd, CrAcCl, CrAcNo, CrTxCd, Am, InvoNo, "
    "Ref, AgRef, Task, DueDt, R1, R2, R3, R4, R5, R6)";
constexpr const char* kContinuation = " \\";

}  // namespace

std::string QuotedRecordLine(const std::vector<const Value*>& values) {
    std::string line;
    for (const Value* value : values) {
        if (!line.empty()) line += ' ';
        line += '"';
        line += platform::Trim(platform::ToText(*value));
        line += '"';
    }
    return line;
}

void WriteVoucherHeaders(TextFile& voucherFile, RecordCounter& recordCounter, const Value& valDt,
                         const Value& descr, const Value& susp) {
    recordCounter = 1;
    voucherFile.WriteLine(kBatchFields);
    voucherFile.WriteLine(QuotedRecordLine({&valDt, &descr, &susp}));
    voucherFile.WriteLine("");
    voucherFile.WriteLine(kVoucherFields);
    voucherFile.WriteLine("");
}

std::string VoucherLine(const VoucherRecord& record) {
    const VoucherRecord& r = record;
    return QuotedRecordLine({&r.VoNo,   &r.VoDt,   &r.VoTp,   &r.Txt,    &r.DbAcCl, &r.DbAcNo,
                             &r.DbTxCd, &r.CrAcCl, &r.CrAcNo, &r.CrTxCd, &r.Am,     &r.InvoNo,
                             &r.Ref,    &r.AgRef,  &r.Task,   &r.DueDt,  &r.R1,     &r.R2,
                             &r.R3,     &r.R4,     &r.R5,     &r.R6});
}

void WriteVoucherRecord(TextFile& voucherFile, RecordCounter& recordCounter,
                        const VoucherRecord& record) {
    const std::string line = VoucherLine(record);
    if (platform::Length(line) > kVoucherLineLimit) {
        voucherFile.WriteLine(platform::Left(line, kVoucherLineLimit) + kContinuation);
        // kept: cut-at-200. The continuation is empty, whatever the line has lost.
        voucherFile.WriteLine("");
    } else {
        voucherFile.WriteLine(line);
    }
    ++recordCounter;
}

void CloseVoucherFile(TextFile& voucherFile) {
    voucherFile.Close();
}

}  // namespace fileexport
