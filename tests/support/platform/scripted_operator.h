// An operator with a script: gives the answers in order, keeps what it was shown, and fails on a
// question that the test did not expect and on answers left over.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "platform/operator.h"

namespace support {

class ScriptedOperator : public platform::Operator {
  public:
    ~ScriptedOperator() override {
        EXPECT_TRUE(answers.empty()) << answers.size() << " answers were not asked for";
        EXPECT_TRUE(inputs.empty()) << inputs.size() << " inputs were not asked for";
    }

    void Show(const platform::Notice& notice) override {
        shown.push_back(notice.text);
        if (whileShown) whileShown();
        const bool hasTitle = notice.title.has_value();
        boxes += notice.icon == platform::Icon::Exclamation   ? (hasTitle ? "!T " : "! ")
                 : notice.icon == platform::Icon::Information ? (hasTitle ? "iT " : "i ")
                                                              : (hasTitle ? "T " : "- ");
    }

    [[nodiscard]] platform::Answer Ask(const platform::Question& question) override {
        asked.push_back(question);
        if (whileAsked) whileAsked();
        return Take(answers, question.text, question.defaultAnswer);
    }

    [[nodiscard]] std::string Prompt(const platform::InputRequest& request) override {
        prompted.push_back(request);
        return Take(inputs, request.text, std::string());
    }

    void ShowStatusLine(std::string_view line) override { status.emplace_back(line); }
    void DayEndCommandStarted(std::string_view line) override { commands.emplace_back(line); }
    void ReportFatal(const platform::RuntimeError& error) override {
        fatal.push_back(error.Number());
    }

    std::deque<platform::Answer> answers;
    std::deque<std::string> inputs;
    std::function<void()> whileAsked;  // what others do while a question stands
    std::function<void()> whileShown;  // likewise a box

    std::vector<std::string> shown;
    std::string boxes;  // of each notice its icon, and T where it has a title of its own
    std::vector<platform::Question> asked;
    std::vector<platform::InputRequest> prompted;
    std::vector<std::string> status;
    std::vector<std::string> commands;
    std::vector<int> fatal;

  private:
    template <class T>
    static T Take(std::deque<T>& script, const std::string& text, T otherwise) {
        if (script.empty()) {
            ADD_FAILURE() << "not expected: " << text;
            return otherwise;
        }
        T next = script.front();
        script.pop_front();
        return next;
    }
};

}  // namespace support
