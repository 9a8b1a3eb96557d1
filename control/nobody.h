// The operator where nobody is asked: what is shown is for a run, a check tells its findings.
#pragma once

#include "platform/operator.h"

namespace control {

class Nobody : public platform::Operator {
  public:
    void Show(const platform::Notice&) override {}
    [[nodiscard]] platform::Answer Ask(const platform::Question& question) override {
        return question.defaultAnswer;
    }
    [[nodiscard]] std::string Prompt(const platform::InputRequest& request) override {
        return request.defaultText;
    }
    void ShowStatusLine(std::string_view) override {}
    void DayEndCommandStarted(std::string_view) override {}
    void ReportFatal(const platform::RuntimeError&) override {}
};

}  // namespace control
