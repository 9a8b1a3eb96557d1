#include "store/data_set.h"

#include "platform/files.h"
#include "platform/text.h"

namespace store {

namespace {

constexpr const char* kUnnamed = "<Uten navn>";
constexpr const char* kSalesSuffix = "DayEndSales.XML";
constexpr const char* kSalesLinesSuffix = "DayEndSalesLines.XML";

}  // namespace

DataSet DataSet::OfDisplayName(std::string_view displayName) {
    return DataSet(displayName == kUnnamed ? std::string() : std::string(displayName));
}

std::string DataSet::DisplayName() const {
    return name_.empty() ? kUnnamed : name_;
}

std::string DataSet::SalesFile() const {
    return name_ + kSalesSuffix;
}

std::string DataSet::SalesLinesFile() const {
    return name_ + kSalesLinesSuffix;
}

bool DataSet::HasSalesFile() const {
    return platform::FileExists(SalesFile());
}

bool DataSet::HasSalesLinesFile() const {
    return platform::FileExists(SalesLinesFile());
}

void DataSet::RequireRoomForFinishedNames() const {
    platform::RequireWritableFolderOf(SalesFile());
}

// kept: two-looks-at-the-clock. The stamps of a day's two files may differ by a second.
void DataSet::MarkAsTransferred(const platform::Clock& clock) const {
    RenameToFinished(SalesFile(), clock);
    RenameToFinished(SalesLinesFile(), clock);
}

// kept: stamp-without-minutes. Year, month, day, hour and seconds: the shop's other tools parse it.
std::string FinishedName(std::string_view fileName, const platform::DateTime& moment) {
    using platform::Digits;
    return std::string(fileName) + "." + Digits(moment.year, 4) + Digits(moment.month, 2) +
           Digits(moment.day, 2) + Digits(moment.hour, 2) + Digits(moment.second, 2) + ".ferdig";
}

void RenameToFinished(const std::string& fileName, const platform::Clock& clock) {
    const std::string finished = FinishedName(fileName, clock.Now());
    platform::KeepAside(finished);
    platform::MoveFile(fileName, finished);
}

}  // namespace store
