#include "control/findings.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <utility>

#include "control/rules.h"
#include "platform/text.h"

namespace control {

namespace {

constexpr std::size_t kLongestValue = 200;  // characters

const Rule& RuleOf(std::string_view code) {
    if (const Rule* rule = FindRule(code)) return *rule;
    throw std::logic_error("there is no rule " + std::string(code));
}

// A value of a hostile file may be as long as the file.
std::optional<std::string> Shortened(const std::optional<std::string>& value) {
    if (!value || value->size() <= kLongestValue) return value;
    std::string shortened = platform::Left(*value, kLongestValue);
    if (shortened.size() < value->size()) shortened += "…";
    return shortened;
}

std::string Number(std::size_t count) {
    return std::to_string(count);
}

}  // namespace

void Findings::Begin(std::optional<std::string> dataSet) {
    Finish();
    dataSet_ = std::move(dataSet);
}

void Findings::Add(std::string_view code, const Place& place) {
    const Rule& rule = RuleOf(code);
    const Severity severity = place.severity.value_or(rule.severity);
    hasErrors_ = hasErrors_ || severity == Severity::Error;
    OfOneCode& found = current_[rule.code];
    ++found.count;
    found.worst = std::min(found.worst, severity);
    if (found.first.size() == kMostOfOneCode) return;
    Place shown = place;
    shown.value = Shortened(place.value);
    const std::string_view text = place.text.empty() ? rule.what : std::string_view(place.text);
    found.first.push_back({rule.code, severity, dataSet_, shown.sale, shown.line, shown.field,
                           shown.value, Filled(text, shown), Filled(rule.remedy, shown)});
}

void Findings::Finish() {
    for (auto& [code, found] : current_) {
        std::move(found.first.begin(), found.first.end(), std::back_inserter(finished_));
        if (found.count <= kMostOfOneCode) continue;
        const std::string count = Number(found.count);
        finished_.push_back({code, found.worst, dataSet_, std::nullopt, std::nullopt, std::nullopt,
                             count,
                             "I alt " + count + " slike funn i datasettet; de første " +
                                 Number(kMostOfOneCode) + " er vist.",
                             "Når så mange er like, er årsaken som regel felles: rett den ved "
                             "kilden."});
    }
    current_.clear();
}

std::vector<Finding> Findings::Take() {
    Finish();
    return std::move(finished_);
}

}  // namespace control
