#include "control/reason.h"

#include <regex>

namespace control {

namespace {

namespace error_number = platform::error_number;

struct NumberedReason {
    int number;
    const char* text;
};

constexpr NumberedReason kReasons[] = {
    {error_number::kFileNotFound, "filen finnes ikke"},
    {error_number::kDeviceIo, "filen kan ikke leses fra disken"},
    {error_number::kPermissionDenied, "programmet har ikke tilgang til filen"},
    {error_number::kPathAccess, "det er ingen vanlig fil"},
    {error_number::kPathNotFound, "mappen finnes ikke"},
    {error_number::kNoSuchIndex, "tabellen er der, men nøkkelen er borte"},
    {error_number::kDatabaseNotFound, "filen finnes ikke"},
    {error_number::kReadOnly, "radene kan ikke skilles fra hverandre"},
    {error_number::kDatabaseInUse, "et annet program holder filen låst"},
    {error_number::kCannotOpenDatabase, "filen kan ikke åpnes"},
    {error_number::kNoSuchTable, "den finnes ikke i databasen"},
    {error_number::kFieldNotFound, "den mangler en kolonne"},
    {error_number::kUnrecognizedDatabase, "filen er ingen database, eller er skadet"},
};

// The reader's own words stand first, an operator's behind.
struct ReaderReason {
    std::string_view start;
    const char* text;
};

constexpr ReaderReason kReaderReasons[] = {
    {"the file ends too early", "filen slutter for tidlig, den er kuttet av"},
    {"the XML is not well formed", "innholdet er ikke gyldig XML"},
    {"a document type", "filen har en DOCTYPE, som ikke er tillatt"},
    {"the schema", "beskrivelsen av kolonnene kan ikke brukes"},
};

std::string NorwegianReason(const std::string& reason) {
    for (const ReaderReason& known : kReaderReasons) {
        if (std::string_view(reason).starts_with(known.start)) return known.text;
    }
    return "innholdet kan ikke brukes (" + reason + ")";
}

}  // namespace

std::string ReasonOf(const platform::RuntimeError& error) {
    for (const NumberedReason& reason : kReasons) {
        if (reason.number == error.Number()) return reason.text;
    }
    return error.Description();
}

ReaderFault FaultOf(const platform::RuntimeError& error, std::string_view fileName) {
    if (error.Number() != error_number::kInvalidFileFormat) return {{}, {}, {}, ReasonOf(error)};
    std::string rest = error.Description();
    if (rest.starts_with(fileName)) rest.erase(0, fileName.size());
    // No value is matched whole: one may be 16 MB long.
    static constexpr std::size_t kLongest = 2000;
    if (rest.size() > kLongest) rest.resize(kLongest);
    const std::regex place(
        R"x(^, line (\d+)(?:, record \d+)?(?:, column ([^:]+))?: (?:"([^"]*)" )?([^]*)$)x");
    std::smatch match;
    if (!std::regex_match(rest, match, place)) return {{}, {}, {}, NorwegianReason(rest)};
    ReaderFault fault;
    fault.fileLine = std::stoll(match[1]);
    if (match[2].matched) fault.column = match[2];
    fault.value = match[3];
    fault.reason = NorwegianReason(match[4]);
    return fault;
}

}  // namespace control
