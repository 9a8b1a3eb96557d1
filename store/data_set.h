// A day-end data set: the pair of files that a prefix names, how the operator sees it, and the
// names that the files get when the set is done.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "platform/clock.h"

namespace store {

class DataSet {
  public:
    // By its name: the prefix of its files, empty for the unnamed data set.
    explicit DataSet(std::string name) : name_(std::move(name)) {}

    // By an entry of the operator's list. What reads like the entry of the unnamed data set is that
    // one, also where files really bear such a prefix.
    [[nodiscard]] static DataSet OfDisplayName(std::string_view displayName);

    [[nodiscard]] const std::string& Name() const { return name_; }
    [[nodiscard]] std::string DisplayName() const;

    [[nodiscard]] std::string SalesFile() const;
    [[nodiscard]] std::string SalesLinesFile() const;

    [[nodiscard]] bool HasSalesFile() const;
    [[nodiscard]] bool HasSalesLinesFile() const;

    // Error 75 (76) unless the files can get other names.
    void RequireRoomForFinishedNames() const;

    // Gives both files their finished names, the sales file first.
    void MarkAsTransferred(const platform::Clock& clock) const;

    friend bool operator==(const DataSet&, const DataSet&) = default;

  private:
    std::string name_;
};

[[nodiscard]] std::string FinishedName(std::string_view fileName, const platform::DateTime& moment);

// A file of the finished name is kept under that name and ".1", or the first number that is free.
void RenameToFinished(const std::string& fileName, const platform::Clock& clock);

}  // namespace store
