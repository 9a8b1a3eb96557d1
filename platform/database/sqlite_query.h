// Queries: their rows read whole, and saved again one by one where they are rows of one table.
// Internal to this folder.
#pragma once

#include <memory>
#include <span>
#include <string_view>

#include "platform/database/client_recordset.h"
#include "platform/database/sqlite_connection.h"

namespace platform::database {

[[nodiscard]] std::unique_ptr<ClientRecordset> RunQuery(
    const std::shared_ptr<SqliteConnection>& connection, std::string_view sql,
    std::span<const Value> values);

}  // namespace platform::database
