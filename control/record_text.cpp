#include "control/record_text.h"

#include <algorithm>

#include "platform/code_page.h"

namespace control {

namespace {

constexpr std::string_view kSeparators = ";\"\r\n";

// The code page puts a question mark in the place of what it lacks.
bool LosesCharacters(const std::string& text) {
    const bool isAscii = std::ranges::all_of(
        text, [](char each) { return static_cast<unsigned char>(each) < 0x80; });
    if (isAscii) return false;
    return std::ranges::count(platform::EncodeWindows1252(text), '?') !=
           std::ranges::count(text, '?');
}

}  // namespace

void CheckRecordText(const platform::Value& text, const char* field, const Place& place,
                     Findings& findings) {
    const std::string* value = text.AsText();
    if (value == nullptr) return;
    Place here = place;
    const auto tell = [&](std::string_view code) {
        here.field = field;
        here.value = *value;
        findings.Add(code, here);
    };
    if (value->find_first_of(kSeparators) != std::string::npos) tell("K306");
    if (LosesCharacters(*value)) tell("K308");
}

}  // namespace control
