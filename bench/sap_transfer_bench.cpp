// A day of receipts on its way into the local company.
#include <benchmark/benchmark.h>

#include <memory>

#include "app/start_up.h"
#include "bench/open_shop.h"
#include "localcompany/local_company.h"
#include "platform/database/sqlite_engine.h"
#include "platform/process.h"
#include "platform/profile_file.h"

namespace {

// The whole program without a face.
void TransferAll() {
    bench::QuietOperator theOperator;
    platform::SystemClock clock;
    platform::SystemProcessStarter processStarter;
    platform::ProfileFiles profileFiles;
    platform::database::SqliteEngine engine;
    const std::string folder = std::filesystem::current_path().string();
    localcompany::LocalConnector connector(engine, folder);
    app::StartUp server(folder,
                        {theOperator, clock, processStarter, profileFiles, engine, connector});
    if (server.Main() != app::AfterStartUp::Run) throw std::runtime_error("no start-up");
    for (ui::ListEntry& entry : server.Window().ListDayEnd)
        entry.isSelected = true;
    server.Driver().StartDayEnd();
    if (server.Driver().AnyDataSetHadErrors()) throw std::runtime_error("a data set had errors");
}

void SapTransfer(benchmark::State& state) {
    demo::ShopOptions options = bench::OneDay(state.range(0), 3 * state.range(0));
    options.sap = true;
    for (auto _ : state) {
        state.PauseTiming();
        auto folder = std::make_unique<bench::TempShop>(options);
        state.ResumeTiming();
        TransferAll();
        state.PauseTiming();
        folder.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(SapTransfer)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
