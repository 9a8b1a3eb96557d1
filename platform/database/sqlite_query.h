// Queries: their rows read whole, and saved again one by one where they are rows of one table.
// Internal to this folder.
#pragma once

#include <memory>
#include <string_view>

#include "platform/database/recordset.h"
#include "platform/database/sqlite_connection.h"

namespace platform {

[[nodiscard]] std::unique_ptr<Recordset> RunQuery(
    const std::shared_ptr<SqliteConnection>& connection, std::string_view sql);

}  // namespace platform
