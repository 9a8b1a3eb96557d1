// The body of the order file: the lines formatted once, and all of them under every head.
#include <benchmark/benchmark.h>

#include <filesystem>

#include "bench/open_shop.h"

namespace {

void OrderFile(benchmark::State& state) {
    const bench::TempShop folder(bench::OneDay(state.range(0), state.range(1)));
    bench::OpenShop shop;
    for (auto _ : state)
        shop.WriteOrderFile();
    state.SetItemsProcessed(state.iterations() * state.range(0) * state.range(1));
    const auto size = std::filesystem::file_size("order.bench");
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(size));
}
BENCHMARK(OrderFile)
    ->Args({1, 10000})   // formatting
    ->Args({400, 4000})  // repeating
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

}  // namespace
