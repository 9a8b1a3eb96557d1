// The persisted recordsets: read row by row, and as a recordset that is walked and filtered.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <vector>

#include "bench/open_shop.h"
#include "platform/recordset_file/persist_connection.h"
#include "platform/recordset_file/reader.h"
#include "store/data_set.h"

namespace {

constexpr std::int64_t kLines = 40000;

bench::TempShop ShopWithLines() {
    return bench::TempShop(bench::OneDay(kLines / 4, kLines));
}

void Reader(benchmark::State& state) {
    const bench::TempShop folder = ShopWithLines();
    const std::string file = store::SalesLinesFileName(bench::kDataSet);
    std::vector<platform::Value> row;
    for (auto _ : state) {
        platform::RecordsetFileReader reader(file);
        while (reader.Next(row))
            benchmark::DoNotOptimize(row.data());
    }
    state.SetItemsProcessed(state.iterations() * kLines);
    state.SetBytesProcessed(state.iterations() *
                            static_cast<std::int64_t>(std::filesystem::file_size(file)));
}
BENCHMARK(Reader)->Unit(benchmark::kMillisecond);

void LoadRecordset(benchmark::State& state) {
    const bench::TempShop folder = ShopWithLines();
    const platform::PersistConnection connection("Provider=MSPersist;");
    for (auto _ : state)
        benchmark::DoNotOptimize(
            connection.OpenRecordset(store::SalesLinesFileName(bench::kDataSet)));
    state.SetItemsProcessed(state.iterations() * kLines);
}
BENCHMARK(LoadRecordset)->Unit(benchmark::kMillisecond);

void WalkRecordset(benchmark::State& state) {
    const bench::TempShop folder = ShopWithLines();
    const platform::PersistConnection connection("Provider=MSPersist;");
    const auto lines = connection.OpenRecordset(store::SalesLinesFileName(bench::kDataSet));
    for (auto _ : state) {
        for (lines->MoveFirst(); !lines->IsEof(); lines->MoveNext())
            benchmark::DoNotOptimize(lines->Get("Amount"));
    }
    state.SetItemsProcessed(state.iterations() * kLines);
}
BENCHMARK(WalkRecordset)->Unit(benchmark::kMillisecond);

void FilterRecordset(benchmark::State& state) {
    const bench::TempShop folder = ShopWithLines();
    const platform::PersistConnection connection("Provider=MSPersist;");
    const auto lines = connection.OpenRecordset(store::SalesLinesFileName(bench::kDataSet));
    for (auto _ : state) {
        lines->SetFilter("TransType >= 1 and TransType <= 2 and ProductID <> 'Avrunding'");
        benchmark::DoNotOptimize(lines->RecordCount());
    }
    state.SetItemsProcessed(state.iterations() * kLines);
}
BENCHMARK(FilterRecordset)->Unit(benchmark::kMillisecond);

}  // namespace
