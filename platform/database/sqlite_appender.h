// Adds rows to a table through one prepared statement. Internal to this folder.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/database/database.h"
#include "platform/database/sqlite_connection.h"

namespace platform::database {

class SqliteAppender : public TableAppender {
  public:
    SqliteAppender(std::shared_ptr<SqliteConnection> connection, std::string_view table);

    [[nodiscard]] int FieldCount() const override;
    [[nodiscard]] const std::string& FieldName(int position) const override;
    void Set(int position, const Value& value) override;
    [[nodiscard]] bool KeepsNumber(int position, const Value& value) const override;
    void Save() override;

  private:
    std::shared_ptr<SqliteConnection> connection_;
    std::shared_ptr<const TableInfo> table_;
    Statement insert_;
    // The texts of the new row until it is saved; their room is used again for the next row.
    std::vector<std::string> texts_;
};

}  // namespace platform::database
