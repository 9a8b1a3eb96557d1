#include "store/import.h"

#include <cstdint>
#include <optional>
#include <vector>

#include "platform/error.h"
#include "platform/norwegian.h"
#include "platform/recordset_file/read_ahead.h"
#include "platform/text.h"

namespace store {

namespace {

using platform::RuntimeError;
using platform::Value;
using platform::database::TableAppender;
using platform::recordset_file::ReadAhead;

struct ImportedTable {
    const char* name;
    const char* deletion;
    const char* receiptNumber;  // its column
};

constexpr ImportedTable kSales = {"Sales", "DELETE * FROM Sales", "ID"};
constexpr ImportedTable kSalesLines = {"SalesLines", "DELETE * FROM SalesLines", "SalesID"};

// A long number that its column rounds would be the number of another receipt, which then got its
// lines.
void RequireReceiptNumber(const Value& number, const TableAppender& table, int position) {
    constexpr std::int64_t kLong = 1'000'000'000'000'000;  // 16 digits
    const std::optional<std::int64_t> whole = platform::WholeNumberOf(number);
    const bool isLong = whole && (*whole >= kLong || *whole <= -kLong);
    if (!isLong || table.KeepsNumber(position, number)) return;
    throw RuntimeError(platform::error_number::kDataTypeConversion,
                       "The column " + table.FieldName(position) + " can not hold the number " +
                           platform::ToText(number) + " of a receipt to its last digit.");
}

// kept: import-by-position. What the columns are called in the file does not count.
void AppendRow(const std::vector<Value>& row, const char* receiptNumber, TableAppender& table) {
    for (int i = 0; i < table.FieldCount(); ++i) {
        if (static_cast<std::size_t>(i) >= row.size()) {
            throw RuntimeError(platform::error_number::kFieldNotFound,
                               "Item not found: the file has no column " + std::to_string(i + 1) +
                                   " for " + table.FieldName(i));
        }
        const Value& value = row[static_cast<std::size_t>(i)];
        if (platform::EqualsIgnoreCase(table.FieldName(i), receiptNumber)) {
            RequireReceiptNumber(value, table, i);
        }
        table.Set(i, value);
    }
    table.Save();
}

// Copies the rows up to the first one that the table refuses, whose error is the answer. The file
// is read to its end in any case: a malformed file outweighs a refused row.
std::optional<RuntimeError> CopyRows(ReadAhead& file, const char* receiptNumber,
                                     TableAppender& table) {
    std::optional<RuntimeError> refusal;
    std::vector<Value> row;
    while (file.Next(row)) {
        if (refusal) continue;
        try {
            AppendRow(row, receiptNumber, table);
        } catch (const RuntimeError& error) {
            refusal = error.At(file.Place());
        }
    }
    return refusal;
}

void ImportFile(const std::string& fileName, const ImportedTable& table,
                platform::database::Database& workConnection) {
    ReadAhead file(fileName);
    // One transaction from the emptying on: a file that turns out malformed leaves the old rows.
    const auto transaction = workConnection.BeginTransaction();
    workConnection.Execute(table.deletion);
    const auto appender = workConnection.OpenAppender(table.name);
    const std::optional<RuntimeError> refusal = CopyRows(file, table.receiptNumber, *appender);
    transaction->Commit();
    if (refusal) throw RuntimeError(*refusal);
}

}  // namespace

void ImportDataSet(const WaitingFiles& files, platform::database::Database& workConnection) {
    ImportFile(files.SalesFile(), kSales, workConnection);
    ImportFile(files.SalesLinesFile(), kSalesLines, workConnection);
}

}  // namespace store
