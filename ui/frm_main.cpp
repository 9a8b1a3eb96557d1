#include "ui/frm_main.h"

#include <utility>

#include "platform/files.h"
#include "platform/text.h"

namespace ui {

void FileList::SetPattern(std::string pattern) {
    pattern_ = std::move(pattern);
    Refresh();
}

void FileList::Refresh() {
    names_ = platform::ListFiles(".", pattern_);
}

frmMain::frmMain(const app::AppSettings& appSettings, platform::Operator& theOperator)
    : appSettings_(appSettings), operator_(theOperator) {}

void frmMain::Load() {
    File.SetPattern(appSettings_.Pattern);  // kept: pattern-alone-decides. An empty one too.
    RefreshDataSetList();
}

void frmMain::RefreshDataSetList() {
    ListDayEnd.clear();
    if (File.Names().empty()) {
        // kept: boxes-without-a-title. The notices of the run have one.
        operator_.Show(
            {std::nullopt, "Ingen filer er klare for overføring.", platform::Icon::Information});
        return;
    }
    // kept: unnamed-by-its-lines. Its sales file is not looked for, the transfer does that.
    if (platform::FileExists("DayEndSalesLines.xml")) {
        ListDayEnd.push_back({store::DataSet("")});
    }
    std::string lastPrefix;
    for (const std::string& name : File.Names()) {
        const std::size_t position = platform::FindIgnoreCase(name, "DayEndSales.xml");
        if (position == 0) continue;
        std::string prefix = platform::Left(name, position - 1);
        if (prefix.empty() || prefix == lastPrefix) continue;
        ListDayEnd.push_back({store::DataSet::OfDisplayName(prefix)});
        lastPrefix = std::move(prefix);
    }
}

void frmMain::AppendStatusLine(std::string line) {
    List.push_back(std::move(line));
    operator_.ShowStatusLine(List.back());
}

}  // namespace ui
