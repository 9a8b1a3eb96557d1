// A named session on a database engine, through which database files are opened.
#pragma once

#include <memory>
#include <string_view>

#include "platform/database/database.h"

namespace platform::database {

// The embedded engine knows no users; name, user and password are for an engine that does.
class Workspace {
  public:
    Workspace(DatabaseEngine& engine, std::string_view /*name*/, std::string_view /*user*/,
              std::string_view /*password*/)
        : engine_(engine) {}

    // Shared, for reading and writing. Errors as DatabaseEngine::OpenDatabase.
    [[nodiscard]] std::unique_ptr<Database> OpenDatabase(std::string_view fileName) {
        return engine_.OpenDatabase(fileName);
    }

  private:
    DatabaseEngine& engine_;
};

}  // namespace platform::database
