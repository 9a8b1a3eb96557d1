// An operator who is not there: sees nothing, and every question and prompt gets its default.
#pragma once

#include "platform/operator.h"

namespace bench {

class QuietOperator : public platform::Operator {
  public:
    void Show(const platform::Notice& /*notice*/) override {}
    [[nodiscard]] platform::Answer Ask(const platform::Question& question) override {
        return question.defaultAnswer;
    }
    [[nodiscard]] std::string Prompt(const platform::InputRequest& request) override {
        return request.defaultText;
    }
    void ShowStatusLine(std::string_view /*line*/) override {}
    void DayEndCommandStarted(std::string_view /*commandLine*/) override {}
    void ReportFatal(const platform::RuntimeError& /*error*/) override {}
};

}  // namespace bench
