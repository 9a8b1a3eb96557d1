// Records of the voucher file.
#include <benchmark/benchmark.h>

#include "fileexport/record_writer.h"
#include "platform/temp_folder.h"

namespace {

constexpr int kRecords = 10000;

fileexport::VoucherRecord TypicalRecord() {
    fileexport::VoucherRecord record;
    record.VoNo = 4711;
    record.VoDt = 20051116;
    record.VoTp = 11;
    record.Txt = "Kredittsalg på konto";
    record.DbAcCl = record.CrAcCl = 0;
    record.DbAcNo = record.DbTxCd = 0;
    record.CrAcNo = 3000;
    record.CrTxCd = 3;
    record.Am = 1234.5;
    record.InvoNo = "BONG100001";
    record.Ref = record.AgRef = "";
    record.Task = record.DueDt = 0;
    record.R1 = 7;
    record.R2 = record.R3 = record.R4 = record.R5 = record.R6 = 0;
    return record;
}

void VoucherRecords(benchmark::State& state) {
    const platform::TempFolder folder;
    const fileexport::VoucherRecord record = TypicalRecord();
    platform::TextFiles textFiles;
    fileexport::RecordCounter counter = 0;
    for (auto _ : state) {
        const auto file = textFiles.OpenForOutput((folder.Path() / "bilag.txt").string());
        for (int i = 0; i < kRecords; ++i)
            fileexport::WriteVoucherRecord(*file, counter, record);
        fileexport::CloseVoucherFile(*file);
    }
    state.SetItemsProcessed(state.iterations() * kRecords);
}
BENCHMARK(VoucherRecords)->Unit(benchmark::kMillisecond);

}  // namespace
