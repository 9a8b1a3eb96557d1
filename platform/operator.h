// The person at the server: what the system shows, asks and prompts for. An interface, because a
// window, a terminal, nobody at all and a test's script stand behind it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/error.h"

namespace platform {

enum class Icon { None, Information, Exclamation, Question };
enum class Answer { Yes = 6, No = 7 };

// A box with an OK button. Without a title of its own it bears the application's caption.
struct Notice {
    std::optional<std::string> title;
    std::string text;
    Icon icon = Icon::None;
};

struct Question {
    std::optional<std::string> title;
    std::string text;
    Icon icon = Icon::Question;
    Answer defaultAnswer = Answer::Yes;
};

struct InputRequest {
    std::string title;
    std::string text;
    std::string defaultText;
    bool isPassword = false;
};

class Operator {
  public:
    virtual ~Operator() = default;

    virtual void Show(const Notice& notice) = 0;
    [[nodiscard]] virtual Answer Ask(const Question& question) = 0;

    [[nodiscard]] virtual std::string Prompt(const InputRequest& request) = 0;  // empty: cancelled

    virtual void ShowStatusLine(std::string_view line) = 0;
    virtual void DayEndCommandStarted(std::string_view commandLine) = 0;
    virtual void ReportFatal(const RuntimeError& error) = 0;
};

}  // namespace platform
