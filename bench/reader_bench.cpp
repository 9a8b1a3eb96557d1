// The persisted recordsets: read row by row, and as a recordset that is walked and filtered.
#include <benchmark/benchmark.h>

#include <numeric>

#include <filesystem>
#include <vector>

#include "bench/open_shop.h"
#include "platform/database/filter.h"
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
    const std::string file = store::DataSet(bench::kDataSet).SalesLinesFile();
    std::vector<platform::Value> row;
    for (auto _ : state) {
        platform::recordset_file::RecordsetFileReader reader(file);
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
    const platform::recordset_file::PersistConnection connection("Provider=MSPersist;");
    for (auto _ : state)
        benchmark::DoNotOptimize(
            connection.OpenRecordset(store::DataSet(bench::kDataSet).SalesLinesFile()));
    state.SetItemsProcessed(state.iterations() * kLines);
}
BENCHMARK(LoadRecordset)->Unit(benchmark::kMillisecond);

void WalkRecordset(benchmark::State& state) {
    const bench::TempShop folder = ShopWithLines();
    const platform::recordset_file::PersistConnection connection("Provider=MSPersist;");
    const auto lines = connection.OpenRecordset(store::DataSet(bench::kDataSet).SalesLinesFile());
    for (auto _ : state) {
        for (lines->MoveFirst(); !lines->IsEof(); lines->MoveNext())
            benchmark::DoNotOptimize(lines->Get("Amount"));
    }
    state.SetItemsProcessed(state.iterations() * kLines);
}
BENCHMARK(WalkRecordset)->Unit(benchmark::kMillisecond);

void FilterRows(benchmark::State& state) {
    const bench::TempShop folder = ShopWithLines();
    const platform::recordset_file::PersistConnection connection("Provider=MSPersist;");
    const auto lines = connection.LoadRows(store::DataSet(bench::kDataSet).SalesLinesFile());
    std::vector<std::size_t> places(lines->rows.size());
    std::iota(places.begin(), places.end(), std::size_t{0});
    const auto terms = platform::database::ParseFilter(
        "TransType >= 1 and TransType <= 2 and ProductID <> 'Avrunding'");
    for (auto _ : state)
        benchmark::DoNotOptimize(platform::database::PlacesThatPass(terms, *lines, places));
    state.SetItemsProcessed(state.iterations() * kLines);
}
BENCHMARK(FilterRows)->Unit(benchmark::kMillisecond);

}  // namespace
