#include "control/findings_json.h"

#include <nlohmann/json.hpp>

namespace control {

namespace {

using Json = nlohmann::ordered_json;

const char* TextOf(Severity severity) {
    switch (severity) {
        case Severity::Error:
            return "error";
        case Severity::Warning:
            return "warning";
        case Severity::Note:
            break;
    }
    return "note";
}

template <class Content>
Json OrNull(const std::optional<Content>& content) {
    return content ? Json(*content) : Json(nullptr);
}

// A name or a value may hold bytes that are no UTF-8.
std::string Text(const Json& document) {
    return document.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace

std::string FindingsJson(std::span<const Finding> findings) {
    Json list = Json::array();
    for (const Finding& each : findings) {
        list.push_back({{"code", each.code},
                        {"severity", TextOf(each.severity)},
                        {"dataSet", OrNull(each.dataSet)},
                        {"sale", OrNull(each.sale)},
                        {"line", OrNull(each.line)},
                        {"field", OrNull(each.field)},
                        {"value", OrNull(each.value)},
                        {"text", each.text},
                        {"remedy", each.remedy}});
    }
    Json document;
    document["findings"] = std::move(list);
    return Text(document);
}

std::string RuleJson(const Rule& rule) {
    return Text({{"code", rule.code},
                 {"severity", TextOf(rule.severity)},
                 {"title", rule.title},
                 {"why", rule.why},
                 {"how", rule.how},
                 {"mend", rule.mend}});
}

}  // namespace control
