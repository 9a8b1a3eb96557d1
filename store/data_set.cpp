#include "store/data_set.h"

#include "platform/files.h"
#include "platform/text.h"

namespace store {

namespace {

constexpr const char* kSalesSuffix = "DayEndSales.XML";
constexpr const char* kSalesLinesSuffix = "DayEndSalesLines.XML";

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

std::string DisplayNameOf(std::string_view dataSetName) {
    return std::string(dataSetName.empty() ? kUnnamedDataSet : dataSetName);
}

std::string FinishedName(std::string_view fileName, const platform::DateTime& moment) {
    using platform::Digits;
    return std::string(fileName) + "." + Digits(moment.year, 4) + Digits(moment.month, 2) +
           Digits(moment.day, 2) + Digits(moment.hour, 2) + Digits(moment.second, 2) + ".ferdig";
}

void MarkAsTransferred(std::string_view dataSetName, const platform::Clock& clock) {
    RenameToFinished(SalesFileName(dataSetName), clock);
    RenameToFinished(SalesLinesFileName(dataSetName), clock);
}

void RenameToFinished(const std::string& fileName, const platform::Clock& clock) {
    platform::MoveFile(fileName, FinishedName(fileName, clock.Now()));
}

}  // namespace store
