#include "control/rules.h"

#include <array>
#include <cstddef>

#include "control/rules_accounts.h"
#include "control/rules_lines.h"
#include "control/rules_register.h"
#include "control/rules_sales.h"
#include "control/rules_shop.h"
#include "platform/text.h"

namespace control {

namespace {

template <std::size_t... Counts>
constexpr auto Joined(const std::array<Rule, Counts>&... parts) {
    std::array<Rule, (Counts + ...)> all{};
    std::size_t place = 0;
    const auto take = [&](const auto& part) {
        for (const Rule& rule : part)
            all[place++] = rule;
    };
    (take(parts), ...);
    return all;
}

constexpr auto kRules = Joined(kShopRules, kSalesRules, kLineRules, kAccountRules, kRegisterRules);

constexpr bool AreInOrder() {
    for (std::size_t i = 1; i < kRules.size(); ++i) {
        if (kRules[i - 1].code >= kRules[i].code) return false;
    }
    return true;
}
static_assert(AreInOrder());

void Replace(std::string& text, std::string_view mark, const std::optional<std::string>& value) {
    const std::string shown = value.value_or("(tom)");
    for (std::size_t at = text.find(mark); at != std::string::npos;
         at = text.find(mark, at + shown.size())) {
        text.replace(at, mark.size(), shown);
    }
}

}  // namespace

std::span<const Rule> Rules() {
    return kRules;
}

const Rule* FindRule(std::string_view code) {
    for (const Rule& rule : kRules) {
        if (platform::EqualsIgnoreCase(rule.code, code)) return &rule;
    }
    return nullptr;
}

std::string_view NorwegianWord(Severity severity) {
    switch (severity) {
        case Severity::Error:
            return "feil";
        case Severity::Warning:
            return "advarsel";
        case Severity::Note:
            break;
    }
    return "merknad";
}

std::string Filled(std::string_view text, const Place& place) {
    std::string filled(text);
    Replace(filled, "{sale}", place.sale);
    Replace(filled, "{field}", place.field);
    Replace(filled, "{value}", place.value);
    return filled;
}

std::string Explanation(const Rule& rule) {
    const auto paragraph = [](std::string_view heading, std::string_view text) {
        return "\n" + std::string(heading) + "\n  " + std::string(text) + "\n";
    };
    return std::string(rule.code) + " (" + std::string(NorwegianWord(rule.severity)) +
           "): " + std::string(rule.title) + "\n" + paragraph("Hvorfor det betyr noe", rule.why) +
           paragraph("Hvordan det oppstår", rule.how) + paragraph("Slik rettes det", rule.mend);
}

}  // namespace control
