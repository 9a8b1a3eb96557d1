// The one exception type of the system and the run-time error numbers that it carries.
// Knows nothing of databases, files or XML: each of those layers turns its foreign codes into this.
#pragma once

#include <exception>
#include <string>
#include <string_view>
#include <utility>

namespace platform {

// Numbers of run-time errors, as the original platform and its database engine give them.
namespace error_number {
inline constexpr int kInvalidArgument = 5;
inline constexpr int kOverflow = 6;
inline constexpr int kOutOfMemory = 7;
inline constexpr int kIndexOutOfRange = 9;
inline constexpr int kDivisionByZero = 11;
inline constexpr int kTypeMismatch = 13;
inline constexpr int kInternalError = 51;
inline constexpr int kFileNotFound = 53;
inline constexpr int kFileAlreadyOpen = 55;
inline constexpr int kDeviceIo = 57;
inline constexpr int kDiskFull = 61;
inline constexpr int kPermissionDenied = 70;
inline constexpr int kPathAccess = 75;
inline constexpr int kPathNotFound = 76;
inline constexpr int kObjectNotSet = 91;
inline constexpr int kInvalidUseOfNull = 94;
inline constexpr int kInvalidFileFormat = 321;
inline constexpr int kNoSuchIndex = 3015;
inline constexpr int kUpdateWithoutEdit = 3020;
inline constexpr int kNoCurrentRecord = 3021;
inline constexpr int kDuplicateKey = 3022;
inline constexpr int kDatabaseNotFound = 3024;
inline constexpr int kReadOnly = 3027;
inline constexpr int kDatabaseInUse = 3045;
inline constexpr int kCannotOpenDatabase = 3051;
inline constexpr int kSyntaxError = 3075;
inline constexpr int kNoSuchTable = 3078;
inline constexpr int kFieldNotFound = 3265;
inline constexpr int kFieldRequired = 3314;
inline constexpr int kUnrecognizedDatabase = 3343;
inline constexpr int kDataTypeConversion = 3421;
inline constexpr int kObjectClosed = 3704;
}  // namespace error_number

// A failure that nobody has handled yet: a number (error_number) and an English description that
// names what is wrong and, where they are known, the file, the record and the column.
class RuntimeError : public std::exception {
  public:
    RuntimeError(int number, std::string description);

    [[nodiscard]] int Number() const { return number_; }
    [[nodiscard]] const std::string& Description() const { return description_; }
    [[nodiscard]] const char* what() const noexcept override { return description_.c_str(); }

    // The same failure with the place in front: "Data set Kasse1, record 17: " + description.
    [[nodiscard]] RuntimeError At(std::string_view place) const;

  private:
    int number_;
    std::string description_;
};

// Runs `action`; an error that leaves it is named with the place where it happened.
template <class Action>
decltype(auto) AtPlace(const std::string& place, Action&& action) {
    try {
        return std::forward<Action>(action)();
    } catch (const RuntimeError& error) {
        throw error.At(place);
    }
}

// The exception that is being handled, whatever it is, as a RuntimeError: 7 for a lack of memory,
// 51 for what no other number fits.
[[nodiscard]] RuntimeError CurrentError();

// Stands where an errno value does: what is there is a FIFO, a device, a folder or the like.
inline constexpr int kNoRegularFile = -1;

// The failure of a call on a file, as error 53, 57, 61, 70, 75 or 76; `verb` is what was tried.
[[nodiscard]] RuntimeError ErrorFromErrno(int errnoValue, std::string_view verb,
                                          std::string_view path);

}  // namespace platform
