// A day-end data set: the pair of files that a prefix names, and how the operator sees it.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace store {

class DataSet {
  public:
    // By its name: the prefix of its files, empty for the unnamed data set.
    explicit DataSet(std::string name) : name_(std::move(name)) {}

    // By an entry of the operator's list. What reads like the entry of the unnamed data set is that
    // one, also where files really bear such a prefix.
    [[nodiscard]] static DataSet OfDisplayName(std::string_view displayName);

    // Those of which both files are in the folder, by the names of their sales files.
    [[nodiscard]] static std::vector<DataSet> Waiting();

    // Those of which the lines file alone is there.
    [[nodiscard]] static std::vector<DataSet> WithoutSales();

    [[nodiscard]] const std::string& Name() const { return name_; }
    [[nodiscard]] std::string DisplayName() const;

    // What the files are called, whatever the case on disk.
    [[nodiscard]] std::string SalesFile() const;
    [[nodiscard]] std::string SalesLinesFile() const;

    // The names under which the files are to be opened; nothing where there is none. Names that
    // differ in case only are different data sets: a file in another spelling is this one's only
    // where it is the only one of its kind and does not belong to a data set of that spelling.
    [[nodiscard]] std::optional<std::string> FindSalesFile() const;
    [[nodiscard]] std::optional<std::string> FindSalesLinesFile() const;

    friend bool operator==(const DataSet&, const DataSet&) = default;

  private:
    std::string name_;
};

}  // namespace store
