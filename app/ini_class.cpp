#include "app/ini_class.h"

#include "platform/error.h"
#include "platform/text.h"

namespace app {

namespace {

constexpr int kValueBufferSize = 255;  // kept: value-of-254. The last is the end.
constexpr int kListBufferSize = 32767;

std::string_view UpToNul(std::string_view buffer) {
    return buffer.substr(0, buffer.find('\0'));
}

// The texts of a list in which each is ended by a NUL.
std::vector<std::string> TextsOf(std::string_view list) {
    std::vector<std::string> texts;
    for (std::size_t end = list.find('\0'); end != std::string_view::npos; end = list.find('\0')) {
        texts.emplace_back(list.substr(0, end));
        list.remove_prefix(end + 1);
    }
    return texts;
}

}  // namespace

const std::string& TextArray::operator()(int index) const {
    return texts_[PlaceOf(index)];
}

void TextArray::GrowTo(int upperBound) {
    if (upperBound > UpperBound())
        texts_.resize(static_cast<std::size_t>(upperBound - lowerBound_) + 1);
}

void TextArray::Set(int index, std::string text) {
    texts_[PlaceOf(index)] = std::move(text);
}

std::size_t TextArray::PlaceOf(int index) const {
    if (index < LowerBound() || index > UpperBound()) {
        throw platform::RuntimeError(platform::error_number::kIndexOutOfRange,
                                     "Subscript out of range: " + std::to_string(index) +
                                         " is not in " + std::to_string(LowerBound()) + " to " +
                                         std::to_string(UpperBound()));
    }
    return static_cast<std::size_t>(index - lowerBound_);
}

INIClass::INIClass(platform::ProfileFunctions& profileFunctions)
    : profileFunctions_(profileFunctions) {}

bool INIClass::ReadValue(std::string_view psSection, std::string_view psKey, std::string& psValue) {
    if (!HasFileName()) return false;
    std::string buffer;
    const int count =
        profileFunctions_.GetString(psSection, psKey, "", buffer, kValueBufferSize, fileName_);
    if (count == 0) {
        CaptureLastError();
        return false;
    }
    psValue = UpToNul(buffer);
    return true;
}

bool INIClass::ReadSection(std::string_view psSection, TextArray& psKeys, TextArray& psValues) {
    if (!HasFileName()) return false;
    std::string buffer;
    if (profileFunctions_.GetSection(psSection, buffer, kListBufferSize, fileName_) == 0) {
        CaptureLastError();
        return false;
    }
    psKeys = TextArray({""});
    psValues = TextArray({""});
    int i = 0;
    for (const std::string& entry : TextsOf(buffer)) {
        psKeys.GrowTo(i);
        psValues.GrowTo(i);
        const std::size_t mark = entry.find('=');
        if (mark == std::string::npos) {
            throw platform::RuntimeError(
                platform::error_number::kInvalidArgument,
                "Invalid procedure call or argument: no \"=\" in the entry \"" + entry +
                    "\" of section " + std::string(psSection) + " in " + fileName_);
        }
        psKeys.Set(i, entry.substr(0, mark));
        psValues.Set(i, entry.substr(mark + 1));
        ++i;
    }
    return true;
}

bool INIClass::WriteValue(std::string_view psSection, std::string_view psKey,
                          std::string_view psValue) {
    if (!HasFileName()) return false;
    if (profileFunctions_.WriteString(psSection, psKey, psValue, fileName_)) return true;
    CaptureLastError();
    return false;
}

bool INIClass::WriteSection(std::string_view psSection, const TextArray& psKeys,
                            const TextArray& psValues) {
    if (!HasFileName()) return false;
    if (psKeys.UpperBound() != psValues.UpperBound()) {
        lastErrorDescription_ = "Key array and Value array must be of the same size";
        return false;
    }
    std::string entries;
    for (int i = psKeys.LowerBound(); i <= psKeys.UpperBound(); ++i) {
        entries += psKeys(i) + "=" + psValues(i) + '\0';
    }
    if (profileFunctions_.WriteSection(psSection, entries, fileName_)) return true;
    CaptureLastError();
    return false;
}

bool INIClass::Enum_SectionNames(TextArray& psSectionNames) {
    if (!HasFileName()) return false;
    std::string buffer;
    if (profileFunctions_.GetSectionNames(buffer, kListBufferSize, fileName_) == 0) {
        CaptureLastError();
        return false;
    }
    psSectionNames = TextArray(TextsOf(buffer));
    return true;
}

bool INIClass::HasFileName() {
    if (!fileName_.empty()) return true;
    lastErrorDescription_ = "No filename specified";
    return false;
}

void INIClass::CaptureLastError() {
    lastErrorNumber_ = profileFunctions_.LastError();
    if (lastErrorNumber_ == 0) {
        lastErrorDescription_ = "An unknown error has occured";  // kept: occured
        return;
    }
    const std::string message = profileFunctions_.MessageText(lastErrorNumber_);
    lastErrorDescription_ = UpToNul(platform::Left(message, kValueBufferSize));
}

}  // namespace app
