// One file of a data set, walked once and held against the work table into which it is imported:
// that it can be read, that it has the columns, that each value fits. Knows nothing of what the
// values mean.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "control/shop.h"
#include "platform/database/recordset.h"

namespace control {

// A row by the names of its columns.
class RowView : public platform::database::Record {
  public:
    RowView(const std::vector<std::string>& names, const std::vector<platform::Value>& values)
        : names_(names), values_(values) {}

    [[nodiscard]] platform::Value Get(std::string_view field) const override;

  private:
    const std::vector<std::string>& names_;
    const std::vector<platform::Value>& values_;
};

struct FileRow {
    const std::vector<std::string>& names;
    const std::vector<platform::Value>& values;
    bool isRefused;  // the work table does not take it

    [[nodiscard]] RowView View() const { return {names, values}; }
};

class DayFile {
  public:
    // `table` is the work table, `saleColumn` the column that names the sale in its rows.
    DayFile(const Shop& shop, Findings& findings, std::string fileName, const char* table,
            const char* saleColumn);

    // True when the file was read to its end and has every column: what it says of the day is all.
    // `begin` gets the names of the columns, by their place in the work table where it has one.
    bool Walk(const std::function<void(const std::vector<std::string>& names)>& begin,
              const std::function<void(const FileRow& row)>& take);

    // The import would stop at a row.
    [[nodiscard]] bool HasRefusals() const { return hasRefusals_; }

  private:
    bool TakeColumns(const std::vector<std::string>& fields);
    [[nodiscard]] bool IsRefused(const std::vector<platform::Value>& row);
    void TellFault(const platform::RuntimeError& error);
    [[nodiscard]] Place PlaceOf(const std::vector<platform::Value>& row) const;

    Findings& findings_;
    std::string fileName_;
    const char* saleColumn_;
    std::unique_ptr<platform::database::TableAppender> workTable_;  // null: not known
    std::vector<std::string> names_;
    bool hasRefusals_ = false;
};

// The place of a column, or kNoColumn.
inline constexpr std::size_t kNoColumn = static_cast<std::size_t>(-1);
[[nodiscard]] std::size_t ColumnPlace(const std::vector<std::string>& names, std::string_view name);

// The value at that place; null where there is none.
[[nodiscard]] const platform::Value& ValueAt(const std::vector<platform::Value>& row,
                                             std::size_t place);

}  // namespace control
