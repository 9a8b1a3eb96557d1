// A named session on a database engine, through which database files are opened.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "platform/database/database.h"

namespace platform {

// The embedded engine knows no users; name, user and password are for an engine that does.
class Workspace {
  public:
    Workspace(DatabaseEngine& engine, std::string name, std::string user, std::string password)
        : engine_(engine),
          name_(std::move(name)),
          user_(std::move(user)),
          password_(std::move(password)) {}

    [[nodiscard]] const std::string& Name() const { return name_; }

    // Shared, for reading and writing. Errors as DatabaseEngine::OpenDatabase.
    [[nodiscard]] std::unique_ptr<Database> OpenDatabase(std::string_view fileName) {
        return engine_.OpenDatabase(fileName);
    }

  private:
    DatabaseEngine& engine_;
    std::string name_;
    std::string user_;
    std::string password_;
};

}  // namespace platform
