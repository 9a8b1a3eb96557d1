#include "store/data_set.h"

#include <array>
#include <cstdio>

#include "platform/files.h"

namespace store {

namespace {

constexpr const char* kSalesSuffix = "DayEndSales.XML";
constexpr const char* kSalesLinesSuffix = "DayEndSalesLines.XML";

void RenameToFinished(const std::string& fileName, const platform::Clock& clock) {
    platform::MoveFile(fileName, FinishedName(fileName, clock.Now()));
}

}  // namespace

std::string SalesFileName(std::string_view dataSetName) {
    return std::string(dataSetName) + kSalesSuffix;
}

std::string SalesLinesFileName(std::string_view dataSetName) {
    return std::string(dataSetName) + kSalesLinesSuffix;
}

std::string DataSetNameOf(std::string_view displayName) {
    return displayName == kUnnamedDataSet ? std::string() : std::string(displayName);
}

std::string FinishedName(std::string_view fileName, const platform::DateTime& moment) {
    std::array<char, 32> stamp{};
    const int length =
        std::snprintf(stamp.data(), stamp.size(), "%04d%02d%02d%02d%02d", int{moment.year},
                      int{moment.month}, int{moment.day}, int{moment.hour}, int{moment.second});
    return std::string(fileName) + "." +
           std::string(stamp.data(), static_cast<std::size_t>(length)) + ".ferdig";
}

void MarkAsTransferred(std::string_view dataSetName, const platform::Clock& clock) {
    RenameToFinished(SalesFileName(dataSetName), clock);
    RenameToFinished(SalesLinesFileName(dataSetName), clock);
}

}  // namespace store
