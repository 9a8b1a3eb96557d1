#include "app/commands.h"

#include <chrono>
#include <ostream>

#include "app/app_settings.h"
#include "app/server.h"
#include "control/check.h"
#include "control/findings_json.h"
#include "control/findings_text.h"
#include "control/rules.h"
#include "localcompany/local_company.h"
#include "platform/clock.h"
#include "platform/database/sqlite_engine.h"
#include "platform/error.h"
#include "platform/files.h"
#include "platform/profile_file.h"

namespace app {

namespace {

using platform::database::SqliteEngine;

constexpr int kExitUnknownName = 1;
constexpr int kExitUsage = 2;
constexpr int kExitNeedsAPerson = 4;
constexpr std::chrono::seconds kLockTimeout(5);

AppSettings SettingsOf(const std::string& folder, const platform::Clock& clock) {
    platform::ProfileFiles profileFiles;
    INIClass iniFile(profileFiles);
    AppSettings settings;
    ReadServerSettings(iniFile, folder, settings);
    ReadStoreSettings(iniFile, folder, clock, settings);
    return settings;
}

int Check(const Options& options, const CommandStreams& streams) {
    platform::ChangeDirectory(options.folder);
    const platform::SystemClock clock;
    const AppSettings settings = SettingsOf(options.folder, clock);
    SqliteEngine engine(kLockTimeout, SqliteEngine::Access::Reading);
    localcompany::LocalConnector connector(engine, options.folder);
    const control::Surroundings surroundings{
        settings, engine, [&engine] { return engine.CreateTemporary(); }, connector, clock};
    const control::CheckResult result = control::CheckShop(surroundings, options.names);
    streams.output << (options.json ? control::FindingsJson(result.findings)
                                    : control::FindingsText(result));
    for (const std::string& name : result.unknown)
        streams.errors << "Datasettet venter ikke: " << name << '\n';
    if (!result.unknown.empty()) return kExitUnknownName;
    return result.hasErrors ? kExitNeedsAPerson : 0;
}

int Explain(const Options& options, const CommandStreams& streams) {
    const control::Rule* const rule = control::FindRule(options.code);
    if (rule == nullptr) {
        streams.errors << "Det er ingen kode " << options.code << ".\n";
        return kExitUsage;
    }
    streams.output << (options.json ? control::RuleJson(*rule) : control::Explanation(*rule));
    return 0;
}

}  // namespace

int RunCommand(const Options& options, const CommandStreams& streams, platform::Operator& face) {
    try {
        const int status =
            options.command == Command::Check ? Check(options, streams) : Explain(options, streams);
        streams.output.flush();
        return status;
    } catch (const std::exception&) {
        face.ReportFatal(platform::CurrentError());
        return kExitFatal;
    }
}

}  // namespace app
