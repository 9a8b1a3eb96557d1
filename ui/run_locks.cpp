#include "ui/run_locks.h"

#include <algorithm>

#include "platform/files.h"
#include "store/databases.h"

namespace ui {

RunLocks::RunLocks(const app::AppSettings& appSettings, bool withImportFiles) {
    const std::string workFile = store::WorkDatabaseFile(appSettings.Datapath);
    if (platform::FileExists(workFile)) Hold(workFile);
    if (!withImportFiles) return;
    Hold(appSettings.EDIFileName);
    Hold(appSettings.VoucherFileName);
}

// One file under both names is held once: a server does not lock itself out.
void RunLocks::Hold(std::string_view name) {
    const std::filesystem::path file = platform::FileToLock(name);
    if (std::ranges::find(files_, file) != files_.end()) return;
    files_.push_back(file);
    locks_.emplace_back(file);
}

}  // namespace ui
