// A database opened as it stands: nothing in its file or beside it changes. Internal to this
// folder.
#pragma once

#include <chrono>
#include <filesystem>
#include <memory>

#include "platform/database/database.h"

namespace platform::database {

[[nodiscard]] std::unique_ptr<Database> OpenForReading(const std::filesystem::path& file,
                                                       std::chrono::milliseconds busyTimeout);

}  // namespace platform::database
