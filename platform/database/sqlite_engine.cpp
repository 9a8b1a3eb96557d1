#include "platform/database/sqlite_engine.h"

#include <cstdint>
#include <filesystem>
#include <string>

#include "platform/database/sqlite_database.h"
#include "platform/database/sqlite_reading.h"
#include "platform/error.h"
#include "platform/files.h"
#include "platform/text.h"

namespace platform::database {
namespace {

using std::filesystem::path;

[[noreturn]] void ThrowNoSuchDatabase(const std::string& file) {
    throw RuntimeError(error_number::kDatabaseNotFound,
                       "The database file '" + file + "' does not exist.");
}

void RequireDatabaseFile(const path& file) {
    std::error_code error;
    const auto status = std::filesystem::status(file, error);
    if (!std::filesystem::exists(status)) ThrowNoSuchDatabase(file.string());
    if (!std::filesystem::is_regular_file(status)) {
        throw RuntimeError(error_number::kCannotOpenDatabase,
                           "The database '" + file.string() + "' is not a file.");
    }
    // The engine would take a few bytes, or none, for a database without tables.
    constexpr std::uintmax_t kSmallestPage = 512;
    if (std::filesystem::file_size(file, error) < kSmallestPage) {
        throw RuntimeError(error_number::kUnrecognizedDatabase,
                           "The file '" + file.string() + "' is too short for a database.");
    }
}

// Everything behind "Data Source=", as it is the last entry and a file name may hold anything.
std::string_view DataSourceOf(std::string_view connectionString) {
    constexpr std::string_view kDataSource = "Data Source=";
    const std::size_t found = FindIgnoreCase(connectionString, kDataSource);
    if (found == 0) ThrowNoSuchDatabase(std::string(connectionString));
    const std::size_t start = Left(connectionString, found - 1).size() + kDataSource.size();
    return Trim(connectionString.substr(start));
}

}  // namespace

std::unique_ptr<Database> SqliteEngine::OpenDatabase(std::string_view fileName) {
    const path file = ResolvePath(fileName);
    RequireDatabaseFile(file);
    if (access_ == Access::Reading) return OpenForReading(file, busyTimeout_);
    return std::make_unique<SqliteDatabase>(
        std::make_shared<SqliteConnection>(file, SqliteConnection::Mode::Existing, busyTimeout_));
}

std::unique_ptr<Database> SqliteEngine::OpenConnection(std::string_view connectionString) {
    return OpenDatabase(DataSourceOf(connectionString));
}

std::unique_ptr<Database> SqliteEngine::CreateTemporary() {
    return std::make_unique<SqliteDatabase>(
        std::make_shared<SqliteConnection>("", SqliteConnection::Mode::Create, busyTimeout_));
}

std::unique_ptr<Database> SqliteEngine::CreateDatabase(std::string_view fileName) {
    const path file = ResolvePath(fileName);
    if (std::filesystem::exists(file)) {
        throw RuntimeError(error_number::kPathAccess,
                           "The file '" + file.string() + "' exists already.");
    }
    auto connection =
        std::make_shared<SqliteConnection>(file, SqliteConnection::Mode::Create, busyTimeout_);
    connection->Run("PRAGMA user_version = 1");  // writes the header: the file is a database now
    return std::make_unique<SqliteDatabase>(std::move(connection));
}

}  // namespace platform::database
