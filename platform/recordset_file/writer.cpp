#include "platform/recordset_file/writer.h"

#include <cerrno>
#include <set>
#include <utility>

#include "platform/descriptor.h"
#include "platform/error.h"
#include "platform/files.h"
#include "platform/recordset_file/value_text.h"
#include "platform/recordset_file/xml_names.h"
#include "platform/text.h"

namespace platform::recordset_file {

namespace {

constexpr std::size_t kBufferSize = 256UL * 1024;

struct TypeText {
    ColumnType type;
    std::string_view datatype;
};

// Text is not among them: its length is the column's own.
constexpr TypeText kTypeTexts[] = {
    {ColumnType::SmallInt, "dt:type='i2' dt:maxLength='2' rs:precision='5'"},
    {ColumnType::Integer, "dt:type='int' dt:maxLength='4' rs:precision='10'"},
    {ColumnType::Double, "dt:type='float' dt:maxLength='8' rs:precision='15'"},
    {ColumnType::Currency,
     "dt:type='number' rs:dbtype='currency' dt:maxLength='8' rs:precision='19'"},
    {ColumnType::Boolean, "dt:type='boolean' dt:maxLength='2'"},
    {ColumnType::Date, "dt:type='dateTime' rs:dbtype='variantdate' dt:maxLength='16'"},
};

bool IsAttributeName(std::string_view name) {
    const auto isLetter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
    if (name.empty() || !isLetter(name.front())) return false;
    for (const char c : name) {
        if (!isLetter(c) && !(c >= '0' && c <= '9') && c != '_') return false;
    }
    return true;
}

// The names of the attributes: the column's own where it can be one and is the first of its name,
// else c and its place, lengthened where a column really bears that name.
std::vector<std::string> AliasesOf(const std::vector<RecordsetColumn>& columns) {
    std::vector<std::string> aliases(columns.size());
    std::set<std::string> taken;
    for (std::size_t place = 0; place < columns.size(); ++place) {
        const std::string& name = columns[place].name;
        if (IsAttributeName(name) && taken.insert(Upper(name)).second) aliases[place] = name;
    }
    for (std::size_t place = 0; place < columns.size(); ++place) {
        if (!aliases[place].empty()) continue;
        aliases[place] = 'c' + std::to_string(place);
        while (!taken.insert(Upper(aliases[place])).second)
            aliases[place] += '_';
    }
    return aliases;
}

void AppendDatatype(const RecordsetColumn& column, std::string& out) {
    out += "\t\t\t<s:datatype ";
    if (column.type == ColumnType::Text) {
        out += "dt:type='string' dt:maxLength='" + std::to_string(column.maxLength) + "'";
    }
    for (const TypeText& text : kTypeTexts) {
        if (text.type == column.type) out.append(text.datatype).append(" rs:fixedlength='true'");
    }
    if (!column.nullable) out += " rs:maybenull='false'";
    out += "/>\r\n";
}

void AppendNamespace(std::string_view start, std::string_view uri, std::string_view end,
                     std::string& out) {
    out.append(start).append("='").append(uri).append("'").append(end).append("\r\n");
}

constexpr std::string_view kSchemaStart =
    "<s:Schema id='RowsetSchema'>\r\n"
    "\t<s:ElementType name='row' content='eltOnly'>\r\n";
constexpr std::string_view kSchemaEnd =
    "\t\t<s:extends type='rs:rowbase'/>\r\n"
    "\t</s:ElementType>\r\n"
    "</s:Schema>\r\n"
    "<rs:data>\r\n";
constexpr std::string_view kEnd = "</rs:data>\r\n</xml>";

}  // namespace

class RecordsetFileWriter::Impl {
  public:
    Impl(std::string_view fileName, std::vector<RecordsetColumn> columns);

    void Write(const std::vector<Value>& row);
    void Finish();

  private:
    struct CloseFile {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };

    void AppendSchema();
    void AppendColumn(std::size_t place);
    void AppendRow(const std::vector<Value>& row);
    void RequireOpen() const;
    void Flush();
    [[nodiscard]] RuntimeError RefusedValue(std::size_t place, std::string_view reason) const;

    std::string fileName_;
    std::vector<RecordsetColumn> columns_;
    std::vector<std::string> aliases_;
    std::unique_ptr<std::FILE, CloseFile> file_;
    std::string buffer_;
    long records_ = 0;
};

RecordsetFileWriter::Impl::Impl(std::string_view fileName, std::vector<RecordsetColumn> columns)
    : fileName_(fileName), columns_(std::move(columns)), aliases_(AliasesOf(columns_)) {
    AppendSchema();
    file_.reset(std::fopen(ResolvePath(fileName).c_str(), "wb"));
    if (!file_) throw ErrorOfCreating(errno, "create", ResolvePath(fileName));
    // Rows are collected in a buffer of our own.
    std::setvbuf(file_.get(), nullptr, _IONBF, 0);
    Flush();
}

void RecordsetFileWriter::Impl::AppendSchema() {
    AppendNamespace("<xml xmlns:s", xml_space::kSchema, "", buffer_);
    AppendNamespace("\txmlns:dt", xml_space::kDataType, "", buffer_);
    AppendNamespace("\txmlns:rs", xml_space::kRowset, "", buffer_);
    AppendNamespace("\txmlns:z", xml_space::kRow, ">", buffer_);
    buffer_ += kSchemaStart;
    for (std::size_t place = 0; place < columns_.size(); ++place)
        AppendColumn(place);
    buffer_ += kSchemaEnd;
}

void RecordsetFileWriter::Impl::AppendColumn(std::size_t place) {
    const RecordsetColumn& column = columns_[place];
    buffer_ += "\t\t<s:AttributeType name='" + aliases_[place] + "'";
    if (aliases_[place] != column.name) {
        buffer_ += " rs:name='";
        const Refusal refusal = AppendAttributeText(column.name, buffer_);
        if (refusal) {
            throw RuntimeError(error_number::kTypeMismatch, fileName_ + ": the name of column " +
                                                                std::to_string(place + 1) + " " +
                                                                std::string(*refusal) + ".");
        }
        buffer_ += "'";
    }
    buffer_ += " rs:number='" + std::to_string(place + 1) + "'";
    if (column.nullable) buffer_ += " rs:nullable='true'";
    buffer_ += ">\r\n";
    AppendDatatype(column, buffer_);
    buffer_ += "\t\t</s:AttributeType>\r\n";
}

void RecordsetFileWriter::Impl::Write(const std::vector<Value>& row) {
    RequireOpen();
    if (row.size() != columns_.size()) {
        throw RuntimeError(error_number::kInvalidArgument,
                           fileName_ + ", record " + std::to_string(records_ + 1) + ": " +
                               std::to_string(row.size()) + " values for " +
                               std::to_string(columns_.size()) + " columns.");
    }
    const std::size_t start = buffer_.size();
    try {
        AppendRow(row);
    } catch (...) {
        // A refused row leaves nothing behind: the caller may go on with another.
        buffer_.resize(start);
        throw;
    }
    ++records_;
    if (buffer_.size() >= kBufferSize) Flush();
}

void RecordsetFileWriter::Impl::AppendRow(const std::vector<Value>& row) {
    buffer_ += "\t<z:row";
    for (std::size_t place = 0; place < row.size(); ++place) {
        const RecordsetColumn& column = columns_[place];
        if (row[place].IsNull()) {
            if (!column.nullable) throw RefusedValue(place, "can not be null");
            continue;
        }
        buffer_.append(" ").append(aliases_[place]).append("='");
        const Refusal refusal = AppendValue(row[place], column, buffer_);
        if (refusal) throw RefusedValue(place, *refusal);
        buffer_ += '\'';
    }
    buffer_ += "/>\r\n";
}

RuntimeError RecordsetFileWriter::Impl::RefusedValue(std::size_t place,
                                                     std::string_view reason) const {
    return {error_number::kTypeMismatch, fileName_ + ", record " + std::to_string(records_ + 1) +
                                             ", column " + columns_[place].name + ": the value " +
                                             std::string(reason) + "."};
}

void RecordsetFileWriter::Impl::RequireOpen() const {
    if (!file_) throw RuntimeError(error_number::kObjectClosed, fileName_ + " is closed.");
}

void RecordsetFileWriter::Impl::Flush() {
    const std::size_t written = std::fwrite(buffer_.data(), 1, buffer_.size(), file_.get());
    if (written != buffer_.size()) throw ErrorFromErrno(errno, "write", fileName_);
    buffer_.clear();
}

void RecordsetFileWriter::Impl::Finish() {
    RequireOpen();
    buffer_ += kEnd;
    Flush();
    if (std::fclose(file_.release()) != 0) throw ErrorFromErrno(errno, "write", fileName_);
}

RecordsetFileWriter::RecordsetFileWriter(std::string_view fileName,
                                         std::vector<RecordsetColumn> columns)
    : impl_(std::make_unique<Impl>(fileName, std::move(columns))) {}

RecordsetFileWriter::~RecordsetFileWriter() = default;

void RecordsetFileWriter::Write(const std::vector<Value>& row) {
    impl_->Write(row);
}

void RecordsetFileWriter::Finish() {
    impl_->Finish();
}

}  // namespace platform::recordset_file
