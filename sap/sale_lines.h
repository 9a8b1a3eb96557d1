// The lines of a data set in memory, by sale: read once, viewed many times through filters.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/database/client_recordset.h"
#include "platform/database/filter.h"
#include "platform/recordset_file/persist_connection.h"

namespace sap {

enum class LineKind { Items, ItemsButRounding, Payments, InvoicePayments };

// The filter of the lines of a kind.
[[nodiscard]] const char* FilterOf(LineKind kind);

class SaleLines {
  public:
    // Reads the lines file. Errors as the reader's; 3265 where there is no column SalesID.
    SaleLines(const platform::recordset_file::PersistConnection& persistConnection,
              const std::string& fileName);

    // The lines of that kind with that SalesID. A sale ID that is no number is error 3075.
    [[nodiscard]] std::unique_ptr<platform::database::ClientRecordset> Open(
        LineKind kind, const platform::Value& saleId) const;

  private:
    std::shared_ptr<platform::database::RowSet> rowSet_;
    // By the whole number, or else by the floating-point one.
    using Key = std::pair<std::optional<std::int64_t>, double>;
    [[nodiscard]] static Key KeyOf(const platform::Value& id);

    std::map<Key, std::vector<std::size_t>> placesBySale_;
    std::vector<std::vector<platform::database::FilterTerm>> filters_;  // by LineKind
};

}  // namespace sap
