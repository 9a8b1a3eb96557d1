#include "control/findings_text.h"

#include <algorithm>
#include <optional>

#include "control/rules.h"
#include "platform/text.h"

namespace control {

namespace {

constexpr const char* kShopHeading = "Butikken";

std::string Heading(const std::optional<std::string>& dataSet) {
    return dataSet ? "Datasett " + *dataSet : kShopHeading;
}

std::string PlaceText(const Finding& finding) {
    std::string place;
    if (finding.sale) place = "bong " + *finding.sale;
    if (finding.line)
        place += (place.empty() ? "linje " : ", linje ") + std::to_string(*finding.line);
    return place.empty() ? place : " (" + place + ")";
}

std::string FindingText(const Finding& finding) {
    return "  " + std::string(finding.code) + " " + std::string(NorwegianWord(finding.severity)) +
           PlaceText(finding) + ": " + finding.text + "\n       " + finding.remedy + "\n";
}

std::string Counted(long count, const char* one, const char* several) {
    return std::to_string(count) + " " + (count == 1 ? one : several);
}

// Of the shown ones; what is told by a number is one of them.
std::string Summary(const CheckResult& result) {
    const auto count = [&](Severity severity) {
        return static_cast<long>(std::ranges::count(result.findings, severity, &Finding::severity));
    };
    return Counted(count(Severity::Error), "feil", "feil") + ", " +
           Counted(count(Severity::Warning), "advarsel", "advarsler") + ", " +
           Counted(count(Severity::Note), "merknad", "merknader") + " vist.";
}

}  // namespace

std::string FindingsText(const CheckResult& result) {
    std::string text;
    const Finding* before = nullptr;
    for (const Finding& finding : result.findings) {
        const bool isNewPart = before == nullptr || before->dataSet != finding.dataSet;
        if (isNewPart) {
            text += (before == nullptr ? "" : "\n") + Heading(finding.dataSet) + "\n";
        }
        text += FindingText(finding);
        before = &finding;
    }
    if (!result.findings.empty()) text += "\n";
    for (const std::string& name : result.checked) {
        const bool isClean = std::ranges::none_of(
            result.findings, [&](const Finding& each) { return each.dataSet == name; });
        if (isClean) text += Heading(name) + ": ingenting å bemerke.\n";
    }
    if (result.checked.empty() && result.unknown.empty()) text += "Ingen datasett venter.\n";
    if (result.findings.empty()) return text;
    return text + Summary(result) + " Mer om en kode: kvdayend explain " +
           std::string(result.findings.front().code) + "\n";
}

}  // namespace control
