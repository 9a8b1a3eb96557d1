// The lines of a data set in memory, by sale: read once, viewed many times through filters.
#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/database/client_recordset.h"
#include "platform/recordset_file/persist_connection.h"

namespace sap {

inline constexpr const char* kItemLines = "TransType >= 1 and TransType <= 2";

class SaleLines {
  public:
    // Reads the lines file. Errors as the reader's; 3265 where there is no column SalesID.
    SaleLines(const platform::PersistConnection& persistConnection, const std::string& fileName);

    // The lines that `filter` + " and SalesID = " + the sale's ID takes, as if the file had been
    // opened with that filter. A sale ID that is no number is error 3075.
    [[nodiscard]] std::unique_ptr<platform::Recordset> Open(const std::string& filter,
                                                            const platform::Value& saleId) const;

  private:
    std::shared_ptr<platform::RowSet> rowSet_;
    std::unordered_map<double, std::vector<std::size_t>> placesBySale_;
};

}  // namespace sap
