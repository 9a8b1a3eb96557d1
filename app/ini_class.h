// One profile file as an object: reads and writes values and sections, and keeps a readable
// description of the last failure. Knows no setting of the system.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/profile_file.h"

namespace app {

// An array of texts with a lower bound of its own, as the section operations exchange them.
class TextArray {
  public:
    TextArray() = default;
    explicit TextArray(std::vector<std::string> texts, int lowerBound = 0)
        : texts_(std::move(texts)), lowerBound_(lowerBound) {}

    [[nodiscard]] int LowerBound() const { return lowerBound_; }
    [[nodiscard]] int UpperBound() const {
        return lowerBound_ + static_cast<int>(texts_.size()) - 1;
    }
    [[nodiscard]] const std::string& operator()(int index) const;  // error 9

    void GrowTo(int upperBound);            // keeps the contents
    void Set(int index, std::string text);  // error 9

    friend bool operator==(const TextArray&, const TextArray&) = default;

  private:
    [[nodiscard]] std::size_t PlaceOf(int index) const;

    std::vector<std::string> texts_;
    int lowerBound_ = 0;
};

// No operation raises an error of its own but for a section entry without "=" (error 5) and arrays
// whose bounds do not meet (error 9); each reports failure by its result and LastErrorDescription.
class INIClass {
  public:
    explicit INIClass(platform::ProfileFunctions& profileFunctions);

    [[nodiscard]] const std::string& FileName() const { return fileName_; }
    void FileName(std::string_view New_FileName) { fileName_ = New_FileName; }

    [[nodiscard]] const std::string& LastErrorDescription() const { return lastErrorDescription_; }

    // At most 254 characters. A missing or empty value leaves `psValue` as it was and gives false.
    bool ReadValue(std::string_view psSection, std::string_view psKey, std::string& psValue);

    // kept: ini-operations. The server calls none of those that follow.
    // The keys and values of a section in the order of the file, from index 0.
    bool ReadSection(std::string_view psSection, TextArray& psKeys, TextArray& psValues);

    bool WriteValue(std::string_view psSection, std::string_view psKey, std::string_view psValue);

    // Replaces the section. Only the upper bounds of the two arrays are compared.
    bool WriteSection(std::string_view psSection, const TextArray& psKeys,
                      const TextArray& psValues);

    bool Enum_SectionNames(TextArray& psSectionNames);

    // The code of the last platform call that failed; 0 when none did.
    [[nodiscard]] int LastErrorNumber() const { return lastErrorNumber_; }

  private:
    [[nodiscard]] bool HasFileName();
    void CaptureLastError();

    std::string fileName_;
    int lastErrorNumber_ = 0;
    std::string lastErrorDescription_;
    platform::ProfileFunctions& profileFunctions_;
};

}  // namespace app
