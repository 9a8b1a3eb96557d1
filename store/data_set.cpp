#include "store/data_set.h"

#include <algorithm>
#include <utility>

#include "platform/files.h"
#include "platform/text.h"

namespace store {

namespace {

constexpr std::string_view kUnnamed = "<Uten navn>";
constexpr std::string_view kSalesSuffix = "DayEndSales.XML";
constexpr std::string_view kSalesLinesSuffix = "DayEndSalesLines.XML";

std::string PrefixOf(const std::string& fileName, std::string_view suffix) {
    return fileName.substr(0, fileName.size() - suffix.size());
}

// The prefixes of all files of that kind, whatever the case of what follows.
std::vector<std::string> PrefixesOnDisk(std::string_view suffix) {
    std::vector<std::string> prefixes = platform::ListFiles(".", "*" + std::string(suffix));
    for (std::string& name : prefixes)
        name = PrefixOf(name, suffix);
    return prefixes;
}

// The files of that kind that could be the data set's, in any spelling.
std::vector<std::string> FilesIgnoringCase(const std::string& name, std::string_view suffix) {
    const std::string wanted = platform::Upper(name + std::string(suffix));
    std::vector<std::string> files = platform::ListFiles(".", "*" + std::string(suffix));
    std::erase_if(files, [&](const std::string& file) { return platform::Upper(file) != wanted; });
    return files;
}

// Whether a file of that spelling goes with another one of the same spelling, and this data set
// has one of its own.
bool BelongsToItsSpelling(const std::string& prefix, const std::string& name,
                          std::string_view otherSuffix) {
    const std::vector<std::string> others = PrefixesOnDisk(otherSuffix);
    const auto isThere = [&](const std::string& spelling) {
        return std::ranges::find(others, spelling) != others.end();
    };
    return isThere(prefix) && isThere(name);
}

std::optional<std::string> FindFile(const std::string& name, std::string_view suffix,
                                    std::string_view otherSuffix) {
    std::string usual = name + std::string(suffix);
    if (!platform::FileExists(usual)) return std::nullopt;
    if (platform::ResolvePath(usual) == usual) return usual;
    const std::vector<std::string> files = FilesIgnoringCase(name, suffix);
    const auto exact = std::ranges::find_if(
        files, [&](const std::string& file) { return PrefixOf(file, suffix) == name; });
    if (files.empty()) return usual;  // no plain name, which is left to the file system
    if (exact != files.end()) return files.size() == 1 ? usual : *exact;
    if (files.size() > 1 || BelongsToItsSpelling(PrefixOf(files[0], suffix), name, otherSuffix)) {
        return std::nullopt;
    }
    return usual;
}

}  // namespace

DataSet DataSet::OfDisplayName(std::string_view displayName) {
    return DataSet(displayName == kUnnamed ? std::string() : std::string(displayName));
}

std::vector<DataSet> DataSet::Waiting() {
    std::vector<DataSet> waiting;
    for (std::string& prefix : PrefixesOnDisk(kSalesSuffix)) {
        DataSet dataSet(std::move(prefix));
        if (dataSet.FindSalesFile() && dataSet.FindSalesLinesFile())
            waiting.push_back(std::move(dataSet));
    }
    return waiting;
}

std::vector<DataSet> DataSet::WithoutSales() {
    std::vector<DataSet> found;
    for (std::string& prefix : PrefixesOnDisk(kSalesLinesSuffix)) {
        DataSet dataSet(std::move(prefix));
        if (!dataSet.FindSalesFile()) found.push_back(std::move(dataSet));
    }
    return found;
}

std::string DataSet::DisplayName() const {
    return name_.empty() ? std::string(kUnnamed) : name_;
}

std::string DataSet::SalesFile() const {
    return name_ + std::string(kSalesSuffix);
}

std::string DataSet::SalesLinesFile() const {
    return name_ + std::string(kSalesLinesSuffix);
}

std::optional<std::string> DataSet::FindSalesFile() const {
    return FindFile(name_, kSalesSuffix, kSalesLinesSuffix);
}

std::optional<std::string> DataSet::FindSalesLinesFile() const {
    return FindFile(name_, kSalesLinesSuffix, kSalesSuffix);
}

}  // namespace store
