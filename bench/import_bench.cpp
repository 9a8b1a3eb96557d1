// A data set on its way into the work database.
#include <benchmark/benchmark.h>

#include "bench/open_shop.h"

namespace {

void Import(benchmark::State& state) {
    const bench::TempShop folder(bench::OneDay(state.range(0) / 4, state.range(0)));
    bench::OpenShop shop;
    for (auto _ : state)
        shop.Import();
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(Import)->Arg(4000)->Arg(64000)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
