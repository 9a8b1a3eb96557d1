// The embedded database engine: an SQLite 3 file under the name of each database.
// Nothing outside this folder sees the library itself.
#pragma once

#include <chrono>

#include "platform/database/database.h"

namespace platform::database {

class SqliteEngine : public DatabaseEngine {
  public:
    // How long a lock of another process is waited for.
    explicit SqliteEngine(std::chrono::milliseconds busyTimeout = std::chrono::seconds(5))
        : busyTimeout_(busyTimeout) {}

    [[nodiscard]] std::unique_ptr<Database> OpenDatabase(std::string_view fileName) override;
    [[nodiscard]] std::unique_ptr<Database> OpenConnection(
        std::string_view connectionString) override;

    // Creates an empty database file and opens it; for the demo shop and tests. An existing file is
    // error 75.
    [[nodiscard]] std::unique_ptr<Database> CreateDatabase(std::string_view fileName);

  private:
    std::chrono::milliseconds busyTimeout_;
};

}  // namespace platform::database
