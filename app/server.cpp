#include "app/server.h"

#include <optional>

#include "localcompany/local_company.h"
#include "platform/clock.h"
#include "platform/database/sqlite_engine.h"
#include "platform/error.h"
#include "platform/folder_lock.h"
#include "platform/process.h"
#include "platform/profile_file.h"
#include "ui/journal.h"

namespace app {

namespace {

int RunWith(const Options& options, platform::Operator& theOperator, platform::Clock& clock,
            const AfterMain& afterMain) {
    platform::SystemProcessStarter processStarter;
    platform::ProfileFiles profileFiles;
    platform::database::SqliteEngine databaseEngine;
    localcompany::LocalConnector sapConnector(databaseEngine, options.folder);
    std::optional<platform::FolderLock> lock;  // held until the last file of `server` is closed
    StartUp server(options.folder, {theOperator, clock, processStarter, profileFiles,
                                    databaseEngine, sapConnector});
    try {
        // The list changes nothing, so it may be asked for beside a server that works.
        if (!options.list) lock.emplace(options.folder);
        const StartFor purpose = options.list ? StartFor::Listing : StartFor::Work;
        if (server.Main(purpose) == AfterStartUp::EndProgram) return kExitFatal;
        return afterMain(server, theOperator);
    } catch (const std::exception&) {
        theOperator.ReportFatal(platform::CurrentError());
        return kExitFatal;
    }
}

}  // namespace

int RunServer(const Options& options, platform::Operator& face, const AfterMain& afterMain) {
    platform::SystemClock clock;
    if (options.journal.empty()) return RunWith(options, face, clock, afterMain);
    try {
        ui::Journal journal(options.journal, face, clock);
        return RunWith(options, journal, clock, afterMain);
    } catch (const std::exception&) {
        face.ReportFatal(platform::CurrentError());
        return kExitFatal;
    }
}

}  // namespace app
