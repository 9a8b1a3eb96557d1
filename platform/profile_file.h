// Profile files (sections of `key=value` lines) with the results of the platform's profile
// functions: counts of characters, NUL-separated lists, a code for the last error.
// Text is UTF-8 here and Windows-1252 in the file.
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace platform {

class ProfileText;

// Sections and keys are found without regard to case, the first of two equal ones counts; blanks
// around names, keys and values do not belong to them; one pair of enclosing quotation marks is
// taken off a value; lines that start with `;` are comments.
// Every function answers with a count of characters (0: failure or nothing there) or true/false;
// the buffer holds just the counted characters. A list longer than the buffer is cut to
// bufferSize - 2 of them. The outcome is in LastError(): 0, 2 (file, section or key not found),
// 3 (path not found), 5 (access denied), 112 (disk full) or 31 (anything else).
// Only a name that is a FIFO's or a device's is RuntimeError 75.
class ProfileFunctions {
  public:
    virtual ~ProfileFunctions() = default;

    // One value, or `defaultText` where there is none, cut to bufferSize - 1 characters.
    virtual int GetString(std::string_view section, std::string_view key,
                          std::string_view defaultText, std::string& buffer, int bufferSize,
                          std::string_view fileName) = 0;

    // All entries of a section as "key=value", each ended by a NUL; the count is without the final
    // NUL of the list. A line without `=` is delivered as it stands.
    virtual int GetSection(std::string_view section, std::string& buffer, int bufferSize,
                           std::string_view fileName) = 0;

    // The names of all sections, each ended by a NUL.
    virtual int GetSectionNames(std::string& buffer, int bufferSize, std::string_view fileName) = 0;

    // Sets one value, or replaces all entries of a section ("key=value" texts, each ended by a
    // NUL). File, section and key are made where they are missing; every other line stays as it is,
    // byte for byte. The new content takes the file's place in one step.
    virtual bool WriteString(std::string_view section, std::string_view key, std::string_view value,
                             std::string_view fileName) = 0;
    virtual bool WriteSection(std::string_view section, std::string_view entries,
                              std::string_view fileName) = 0;

    [[nodiscard]] virtual int LastError() const = 0;

    [[nodiscard]] virtual std::string MessageText(int code) const = 0;  // empty: no such code
};

class ProfileFiles : public ProfileFunctions {
  public:
    int GetString(std::string_view section, std::string_view key, std::string_view defaultText,
                  std::string& buffer, int bufferSize, std::string_view fileName) override;
    int GetSection(std::string_view section, std::string& buffer, int bufferSize,
                   std::string_view fileName) override;
    int GetSectionNames(std::string& buffer, int bufferSize, std::string_view fileName) override;
    bool WriteString(std::string_view section, std::string_view key, std::string_view value,
                     std::string_view fileName) override;
    bool WriteSection(std::string_view section, std::string_view entries,
                      std::string_view fileName) override;
    [[nodiscard]] int LastError() const override { return lastError_; }
    [[nodiscard]] std::string MessageText(int code) const override;

  private:
    [[nodiscard]] std::unique_ptr<ProfileText> Load(std::string_view fileName);

    int lastError_ = 0;
};

}  // namespace platform
