// The connection through which data-set files are opened as recordsets.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/database/client_recordset.h"
#include "platform/recordset_file/forward_recordset.h"

namespace platform::recordset_file {

class PersistConnection {
  public:
    explicit PersistConnection(std::string connectionText);  // "Provider=MSPersist;"

    // The whole file as a recordset; changes stay in memory. Errors as RecordsetFileReader.
    [[nodiscard]] std::unique_ptr<database::ClientRecordset> OpenRecordset(
        std::string_view fileName) const;

    // The same for one walk from the first row to the last, in constant memory.
    [[nodiscard]] std::unique_ptr<ForwardRecordset> OpenForwardOnly(
        std::string_view fileName) const;

    // The file's rows, for several views of the same rows.
    [[nodiscard]] std::shared_ptr<database::RowSet> LoadRows(std::string_view fileName) const;

  private:
    std::string connectionText_;
};

}  // namespace platform::recordset_file
