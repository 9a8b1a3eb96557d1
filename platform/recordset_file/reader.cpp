#include "platform/recordset_file/reader.h"

#include <expat.h>
#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <exception>
#include <new>
#include <string>
#include <type_traits>
#include <utility>

#include "platform/code_page.h"
#include "platform/descriptor.h"
#include "platform/error.h"
#include "platform/files.h"
#include "platform/recordset_file/document.h"
#include "platform/recordset_file/xml_names.h"
#include "platform/text.h"

namespace platform::recordset_file {

namespace {

constexpr XML_Index kChunkSize = 64L * 1024;

// The longest start tag (a row with all its values), comment or the like, in bytes: what the parser
// must hold at once.
constexpr XML_Index kMaxTokenSize = 16L * 1024 * 1024;

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

struct FreeParser {
    void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};
using Parser = std::unique_ptr<std::remove_pointer_t<XML_Parser>, FreeParser>;

File OpenForReading(std::string_view fileName) {
    Descriptor descriptor;
    const int failure = OpenRegularFile(ResolvePath(fileName), O_RDONLY, descriptor);
    if (failure != 0) throw ErrorFromErrno(failure, "open", fileName);
    File file(::fdopen(descriptor.Get(), "rb"));
    if (!file) throw ErrorFromErrno(errno, "open", fileName);
    (void)descriptor.Release();  // it is the stream's now
    // The chunks go straight into the parser's buffer.
    std::setvbuf(file.get(), nullptr, _IONBF, 0);
    return file;
}

// The code point of the UTF-8 sequence of one character below U+10000.
int CodePoint(std::string_view utf8) {
    const auto byte = [&](std::size_t place) { return static_cast<unsigned char>(utf8[place]); };
    if (utf8.size() == 1) return byte(0);
    if (utf8.size() == 2) return (byte(0) & 0x1F) << 6 | (byte(1) & 0x3F);
    return (byte(0) & 0x0F) << 12 | (byte(1) & 0x3F) << 6 | (byte(2) & 0x3F);
}

int XMLCALL OnUnknownEncoding(void* /*unused*/, const XML_Char* name, XML_Encoding* encoding) {
    try {
        if (!EqualsIgnoreCase(name, "windows-1252")) return XML_STATUS_ERROR;
        for (int code = 0; code < 256; ++code) {
            const char byte = static_cast<char>(code);
            encoding->map[code] = CodePoint(DecodeWindows1252(std::string_view(&byte, 1)));
        }
        return XML_STATUS_OK;
    } catch (...) {
        return XML_STATUS_ERROR;
    }
}

}  // namespace

// Feeds the file to the parser, which stops at the end of the schema and at every current row.
class RecordsetFileReader::Impl {
  public:
    explicit Impl(std::string_view fileName);

    [[nodiscard]] const RecordsetDocument& Document() const { return document_; }
    [[nodiscard]] bool Next(std::vector<Value>& row);
    [[nodiscard]] long BytesRead() const { return bytesFed_; }

  private:
    void ParseOn();
    XML_Status ParseChunk();
    XML_Index NextChunkSize();

    // Runs what an event of the parser calls for: no exception may pass through the parser.
    template <class Action>
    void OnEvent(const Action& action);

    [[nodiscard]] RuntimeError ContentError(const std::string& reason) const;
    [[nodiscard]] RuntimeError ParserError() const;

    static Impl& Self(void* data) { return *static_cast<Impl*>(data); }
    static void XMLCALL OnStart(void* data, const XML_Char* name, const XML_Char** attributes);
    static void XMLCALL OnEnd(void* data, const XML_Char* name);
    static void XMLCALL OnNamespace(void* data, const XML_Char* prefix, const XML_Char* uri);
    static void XMLCALL OnDoctype(void* data, const XML_Char* name, const XML_Char* systemId,
                                  const XML_Char* publicId, int hasInternalSubset);

    std::string fileName_;
    File file_;
    Parser parser_;
    RecordsetDocument document_;
    std::exception_ptr failure_;
    XML_Index bytesFed_ = 0;
    bool lastChunk_ = false;
    bool stopped_ = false;  // the parser waits to be resumed
    bool ended_ = false;
};

RecordsetFileReader::Impl::Impl(std::string_view fileName)
    : fileName_(fileName),
      file_(OpenForReading(fileName)),
      parser_(XML_ParserCreateNS(nullptr, kNameSeparator)) {
    if (!parser_) throw std::bad_alloc();
    XML_SetUserData(parser_.get(), this);
    XML_SetElementHandler(parser_.get(), OnStart, OnEnd);
    XML_SetStartNamespaceDeclHandler(parser_.get(), OnNamespace);
    XML_SetStartDoctypeDeclHandler(parser_.get(), OnDoctype);
    XML_SetUnknownEncodingHandler(parser_.get(), OnUnknownEncoding, nullptr);
    ParseOn();
}

bool RecordsetFileReader::Impl::Next(std::vector<Value>& row) {
    if (!ended_) ParseOn();
    if (!document_.HasRow()) return false;
    document_.TakeRow(row);
    return true;
}

// Until the parser stops or the document ends; afterwards every failure is thrown again.
void RecordsetFileReader::Impl::ParseOn() {
    do {
        if (failure_) std::rethrow_exception(failure_);
        const XML_Status status = stopped_ ? XML_ResumeParser(parser_.get()) : ParseChunk();
        stopped_ = status == XML_STATUS_SUSPENDED;
        if (status == XML_STATUS_ERROR && !failure_) {
            failure_ = std::make_exception_ptr(ParserError());
        }
        ended_ = status == XML_STATUS_OK && lastChunk_;
        if (ended_) OnEvent([&] { document_.Finish(); });
    } while (failure_ || (!stopped_ && !ended_));
}

XML_Status RecordsetFileReader::Impl::ParseChunk() {
    const auto size = static_cast<int>(NextChunkSize());
    void* buffer = XML_GetBuffer(parser_.get(), size);
    if (buffer == nullptr) throw std::bad_alloc();
    const std::size_t count = std::fread(buffer, 1, static_cast<std::size_t>(size), file_.get());
    if (count == 0 && std::ferror(file_.get()) != 0) {
        throw ErrorFromErrno(errno, "read", fileName_);
    }
    bytesFed_ += static_cast<XML_Index>(count);
    lastChunk_ = count == 0;
    return XML_ParseBuffer(parser_.get(), static_cast<int>(count), lastChunk_);
}

// What the parser could not use yet is the beginning of one token. It scans that again with every
// chunk, so the chunks grow with it: the time for a long token stays proportional to its length.
XML_Index RecordsetFileReader::Impl::NextChunkSize() {
    const XML_Index used = XML_GetCurrentByteIndex(parser_.get());
    const XML_Index unused = used < 0 ? 0 : bytesFed_ - used;
    if (unused > kMaxTokenSize) {
        throw ContentError("a value or another piece of the file is longer than 16 MiB.");
    }
    return std::clamp(unused, kChunkSize, std::max(kChunkSize, kMaxTokenSize - unused));
}

template <class Action>
void RecordsetFileReader::Impl::OnEvent(const Action& action) {
    if (failure_) return;
    try {
        action();
    } catch (const RuntimeError& error) {
        failure_ = std::make_exception_ptr(ContentError(error.Description()));
    } catch (...) {
        failure_ = std::current_exception();
    }
    if (failure_) XML_StopParser(parser_.get(), XML_FALSE);
}

void XMLCALL RecordsetFileReader::Impl::OnStart(void* data, const XML_Char* name,
                                                const XML_Char** attributes) {
    Impl& self = Self(data);
    self.OnEvent([&] {
        self.document_.Start(name, attributes);
        if (self.document_.HasRow()) XML_StopParser(self.parser_.get(), XML_TRUE);
    });
}

void XMLCALL RecordsetFileReader::Impl::OnEnd(void* data, const XML_Char* /*name*/) {
    Impl& self = Self(data);
    self.OnEvent([&] {
        const bool stopped = self.document_.HasRow();
        const bool hadSchema = self.document_.HasSchema();
        self.document_.End();
        const bool stop = self.document_.HasRow() || self.document_.HasSchema() != hadSchema;
        if (stop && !stopped) XML_StopParser(self.parser_.get(), XML_TRUE);
    });
}

void XMLCALL RecordsetFileReader::Impl::OnNamespace(void* data, const XML_Char* prefix,
                                                    const XML_Char* uri) {
    Impl& self = Self(data);
    self.OnEvent([&] { self.document_.StartNamespace(prefix, uri); });
}

// The entities of a document type could swell a small file to any size.
void XMLCALL RecordsetFileReader::Impl::OnDoctype(void* data, const XML_Char* /*name*/,
                                                  const XML_Char* /*systemId*/,
                                                  const XML_Char* /*publicId*/,
                                                  int /*hasInternalSubset*/) {
    Self(data).OnEvent([] {
        throw RuntimeError(error_number::kInvalidFileFormat,
                           "a document type (DOCTYPE) is not accepted.");
    });
}

RuntimeError RecordsetFileReader::Impl::ContentError(const std::string& reason) const {
    const XML_Size line = XML_GetCurrentLineNumber(parser_.get());
    return {error_number::kInvalidFileFormat,
            fileName_ + ", line " + std::to_string(line) + document_.Where() + ": " + reason};
}

RuntimeError RecordsetFileReader::Impl::ParserError() const {
    const XML_Error code = XML_GetErrorCode(parser_.get());
    const std::string reason = XML_ErrorString(code);
    const bool cutOff =
        lastChunk_ && (code == XML_ERROR_NO_ELEMENTS || code == XML_ERROR_UNCLOSED_TOKEN ||
                       code == XML_ERROR_PARTIAL_CHAR);
    return ContentError((cutOff ? "the file ends too early: " : "the XML is not well formed: ") +
                        reason + ".");
}

RecordsetFileReader::RecordsetFileReader(std::string_view fileName)
    : impl_(std::make_unique<Impl>(fileName)) {}

RecordsetFileReader::~RecordsetFileReader() = default;

const std::vector<std::string>& RecordsetFileReader::Fields() const {
    return impl_->Document().Fields();
}

bool RecordsetFileReader::Next(std::vector<Value>& row) {
    return impl_->Next(row);
}

long RecordsetFileReader::RecordNumber() const {
    return impl_->Document().RowsTaken();
}

long RecordsetFileReader::BytesRead() const {
    return impl_->BytesRead();
}

}  // namespace platform::recordset_file
