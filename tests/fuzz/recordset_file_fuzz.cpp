// Persisted recordsets. The input is the file.

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "platform/recordset_file/reader.h"
#include "platform/recordset_file/writer.h"
#include "tests/fuzz/fuzz_target.h"
#include "tests/support/platform/temp_folder.h"

using namespace platform;
using namespace platform::recordset_file;
using fuzz::Require;

namespace {

struct Content {
    std::vector<std::string> fields;
    std::vector<std::vector<Value>> rows;
};

// Reads all that there is. A failure is error 321, names the file and the line, and stays.
bool IsAccepted(const std::string& file, Content& content) {
    const auto failure = fuzz::ErrorOf([&] {
        RecordsetFileReader reader(file);
        content.fields = reader.Fields();
        std::vector<Value> row;
        const auto next = [&] { return reader.Next(row); };
        bool hasRow = false;
        while (true) {
            if (const auto error = fuzz::ErrorOf([&] { hasRow = next(); })) {
                const auto again = fuzz::ErrorOf([&] { (void)next(); });
                Require(again && again->Description() == error->Description(),
                        "after a failure there are no more rows");
                throw RuntimeError(*error);
            }
            if (!hasRow) break;
            content.rows.push_back(row);
            Require(row.size() == content.fields.size(), "a row has one value for each field");
            Require(reader.RecordNumber() == static_cast<long>(content.rows.size()),
                    "the rows are counted");
        }
        Require(!next(), "behind the last row there is none");
    });
    if (!failure) return true;
    Require(failure->Number() == error_number::kInvalidFileFormat, "bad content is error 321");
    Require(failure->Description().starts_with(file + ", line "), "which names file and line");
    return false;
}

// What a row holds does not depend on what its variable held before.
void CheckFreshRows(const std::string& file, const Content& content) {
    RecordsetFileReader reader(file);
    for (const std::vector<Value>& row : content.rows) {
        std::vector<Value> fresh;
        Require(reader.Next(fresh) && fresh == row, "a row is the same in fresh room");
    }
}

bool FitsInteger(std::int64_t whole) {
    return whole >= std::numeric_limits<std::int32_t>::min() &&
           whole <= std::numeric_limits<std::int32_t>::max();
}

// A column of the writer that holds this value; nothing for whole numbers that it has no type for.
std::optional<ColumnType> TypeFor(const Value& value) {
    if (value.AsBoolean()) return ColumnType::Boolean;
    if (value.AsFloating()) return ColumnType::Double;
    if (value.AsDate()) return ColumnType::Date;
    if (value.AsText()) return ColumnType::Text;
    if (FitsInteger(*value.AsWhole())) return ColumnType::Integer;
    return std::nullopt;
}

// The type for all values of a column. Those of ui8 may be of two, which the writer does not know.
std::optional<ColumnType> TypeOfColumn(const Content& content, std::size_t field) {
    std::optional<ColumnType> type;
    for (const std::vector<Value>& row : content.rows) {
        if (row[field].IsNull()) continue;
        const std::optional<ColumnType> needed = TypeFor(row[field]);
        if (!needed || (type && type != needed)) return std::nullopt;
        type = needed;
    }
    return type ? type : ColumnType::Text;
}

std::vector<RecordsetColumn> ColumnsFor(Content& content) {
    std::vector<RecordsetColumn> columns;
    for (std::size_t field = 0; field < content.fields.size(); ++field) {
        const std::optional<ColumnType> type = TypeOfColumn(content, field);
        for (std::vector<Value>& row : content.rows) {
            if (!type) row[field] = Value();
        }
        columns.push_back({content.fields[field], type.value_or(ColumnType::Text),
                           std::numeric_limits<int>::max()});
    }
    return columns;
}

// What the reader accepts, the writer can write, and it comes back as it was.
void CheckWriting(const std::string& file, Content content) {
    if (content.fields.empty()) return;  // hidden columns alone
    RecordsetFileWriter writer(file, ColumnsFor(content));
    for (const std::vector<Value>& row : content.rows)
        writer.Write(row);
    writer.Finish();
    Content back;
    Require(IsAccepted(file, back), "a file that was written is read");
    Require(back.fields == content.fields, "its fields are those that were read before");
    Require(back.rows == content.rows, "its rows are those that were read before");
}

// Half a file is never taken for a whole one. In front of the last end of an element the root is
// open yet, or a comment behind it.
void CheckCutting(const support::TempFolder& folder, std::string_view bytes) {
    const std::size_t end = bytes.rfind("</");
    if (end == std::string_view::npos) return;  // in UTF-16
    for (const std::size_t size : {end, end / 2}) {
        folder.Write("cut.xml", bytes.substr(0, size));
        Content content;
        Require(!IsAccepted(folder.File("cut.xml"), content), "a file that is cut off is refused");
    }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const support::TempFolder folder;
    const std::string_view bytes = fuzz::TextOf(data, size);
    folder.Write("in.xml", bytes);
    Content content;
    if (!IsAccepted(folder.File("in.xml"), content)) return 0;
    CheckFreshRows(folder.File("in.xml"), content);
    CheckWriting(folder.File("out.xml"), std::move(content));
    CheckCutting(folder, bytes);
    return 0;
}
