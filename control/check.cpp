#include "control/check.h"

#include <algorithm>
#include <optional>

#include "control/data_set_check.h"
#include "control/nobody.h"
#include "control/settings_check.h"
#include "platform/held_file.h"
#include "platform/text.h"
#include "store/finished_name.h"
#include "ui/frm_main.h"

namespace control {

namespace {

using store::DataSet;

// A server was ended while it finished the day: the next one goes on.
bool IsFinished(const DataSet& dataSet) {
    const std::optional<std::string> lines = dataSet.FindSalesLinesFile();
    return lines && store::HasFinishedName(platform::HeldFile(*lines), dataSet.SalesLinesFile());
}

// Those of the operator's list, and those that are not in it for want of one of their files.
std::vector<DataSet> Waiting(const app::AppSettings& settings) {
    Nobody nobody;
    ui::frmMain window(settings, nobody);
    window.Load();
    std::vector<DataSet> waiting;
    const auto add = [&](const DataSet& dataSet) {
        if (std::ranges::find(waiting, dataSet) == waiting.end()) waiting.push_back(dataSet);
    };
    for (const ui::ListEntry& entry : window.ListDayEnd)
        add(entry.dataSet);
    for (const DataSet& dataSet : DataSet::WithoutSales()) {
        if (!IsFinished(dataSet)) add(dataSet);
    }
    if (DataSet("").FindSalesFile()) add(DataSet(""));
    return waiting;
}

// Null where no data set bears that name.
const DataSet* Find(const std::vector<DataSet>& dataSets, const std::string& name) {
    const auto exact = std::ranges::find(dataSets, name, &DataSet::DisplayName);
    if (exact != dataSets.end()) return &*exact;
    const auto similar = std::ranges::find_if(dataSets, [&](const DataSet& each) {
        return platform::EqualsIgnoreCase(each.DisplayName(), name);
    });
    return similar != dataSets.end() ? &*similar : nullptr;
}

}  // namespace

CheckResult CheckShop(const Surroundings& surroundings, const std::vector<std::string>& names) {
    CheckResult result;
    Findings findings;
    const Shop shop(surroundings, findings);
    const std::vector<DataSet> waiting = Waiting(surroundings.settings);
    std::vector<DataSet> chosen = names.empty() ? waiting : std::vector<DataSet>();
    for (const std::string& name : names) {
        const DataSet* const dataSet = Find(waiting, name);
        if (dataSet == nullptr) {
            result.unknown.push_back(name);
        } else if (std::ranges::find(chosen, *dataSet) == chosen.end()) {
            chosen.push_back(*dataSet);
        }
    }
    CheckSettings(shop, waiting.size(), findings);
    for (const DataSet& dataSet : chosen) {
        CheckDataSet(dataSet, shop, findings);
        result.checked.push_back(dataSet.DisplayName());
    }
    result.hasErrors = findings.HasErrors();
    result.findings = findings.Take();
    return result;
}

}  // namespace control
