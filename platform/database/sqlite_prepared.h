// A statement of the embedded engine that is run with values. Internal to this folder.
#pragma once

#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "platform/database/database.h"
#include "platform/database/sqlite_connection.h"

namespace platform::database {

class SqlitePrepared : public PreparedStatement {
  public:
    SqlitePrepared(std::shared_ptr<SqliteConnection> connection, std::string_view sql);

    std::vector<Row> Run(std::span<const Value> values) override;

  private:
    void ReadColumnTypes();

    std::shared_ptr<SqliteConnection> connection_;
    Statement statement_;
    std::vector<FieldType> types_;  // of the columns of its rows
};

}  // namespace platform::database
