// What a run holds from Start until its last data set is done: the work database, and with the file
// export both import files. Servers of other program folders may name the same ones.
#pragma once

#include <string_view>
#include <vector>

#include "app/app_settings.h"
#include "platform/file_lock.h"

namespace ui {

class RunLocks {
  public:
    // Error 70 where another server holds one of them; then none is held.
    RunLocks(const app::AppSettings& appSettings, bool withImportFiles);

  private:
    void Hold(std::string_view name);

    std::vector<std::filesystem::path> files_;
    std::vector<platform::FileLock> locks_;
};

}  // namespace ui
