#include "platform/recordset_file/persist_connection.h"

#include <utility>

#include "platform/error.h"
#include "platform/text.h"

namespace platform::recordset_file {

namespace {

constexpr std::string_view kProvider = "Provider=MSPersist";

bool NamesProvider(std::string_view connectionText) {
    std::string_view text = Trim(connectionText);
    if (text.ends_with(';')) text = TrimRight(text.substr(0, text.size() - 1));
    return EqualsIgnoreCase(text, kProvider);
}

}  // namespace

PersistConnection::PersistConnection(std::string connectionText)
    : connectionText_(std::move(connectionText)) {
    if (NamesProvider(connectionText_)) return;
    throw RuntimeError(error_number::kInvalidArgument, "Can not connect with \"" + connectionText_ +
                                                           "\": only \"" + std::string(kProvider) +
                                                           ";\" opens recordset files");
}

std::unique_ptr<database::ClientRecordset> PersistConnection::OpenRecordset(
    std::string_view fileName) const {
    return std::make_unique<database::ClientRecordset>(LoadRows(fileName));
}

std::unique_ptr<ForwardRecordset> PersistConnection::OpenForwardOnly(
    std::string_view fileName) const {
    return std::make_unique<ForwardRecordset>(fileName);
}

std::shared_ptr<database::RowSet> PersistConnection::LoadRows(std::string_view fileName) const {
    RecordsetFileReader reader(fileName);
    auto rowSet = std::make_shared<database::RowSet>();
    rowSet->source = fileName;
    rowSet->fields = reader.Fields();
    database::Row row;
    while (reader.Next(row))
        rowSet->rows.push_back(std::move(row));
    return rowSet;
}

}  // namespace platform::recordset_file
