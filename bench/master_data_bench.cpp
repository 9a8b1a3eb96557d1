// Changed products: written into the voucher file and reset in the store database.
#include <benchmark/benchmark.h>

#include "bench/open_shop.h"

namespace {

void ChangedProducts(benchmark::State& state) {
    demo::ShopOptions options;
    options.changedProducts = state.range(0);
    const bench::TempShop folder(options);
    bench::OpenShop shop;
    for (auto _ : state) {
        state.PauseTiming();
        shop.databases.StoreDatabase->Execute("UPDATE Products SET Status = 2");
        shop.databases.StoreDatabase->Execute("UPDATE PriceMatrix SET Status = 2");
        state.ResumeTiming();
        shop.WriteMasterData();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(ChangedProducts)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
