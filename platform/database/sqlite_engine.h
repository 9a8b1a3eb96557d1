// The embedded database engine: an SQLite 3 file under the name of each database.
// Nothing outside this folder sees the library itself.
#pragma once

#include <chrono>

#include "platform/database/database.h"

namespace platform::database {

class SqliteEngine : public DatabaseEngine {
  public:
    // Reading: every database is opened as it stands, nothing in it or beside it changes, and what
    // would change it is error 3027. One that can not be read so (a write-ahead log, or a journal
    // left by a server that was killed) is read from a copy in the temporary folder.
    enum class Access { Work, Reading };

    // How long a lock of another process is waited for.
    explicit SqliteEngine(std::chrono::milliseconds busyTimeout = std::chrono::seconds(5),
                          Access access = Access::Work)
        : busyTimeout_(busyTimeout), access_(access) {}

    [[nodiscard]] std::unique_ptr<Database> OpenDatabase(std::string_view fileName) override;
    [[nodiscard]] std::unique_ptr<Database> OpenConnection(
        std::string_view connectionString) override;

    // Creates an empty database file and opens it; for the demo shop and tests. An existing file is
    // error 75.
    [[nodiscard]] std::unique_ptr<Database> CreateDatabase(std::string_view fileName);

    // An empty database without a name, which goes with the returned object. What is too much for
    // memory lies in the system's temporary folder.
    [[nodiscard]] std::unique_ptr<Database> CreateTemporary();

  private:
    std::chrono::milliseconds busyTimeout_;
    Access access_;
};

}  // namespace platform::database
