#include "ui/journal.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <nlohmann/json.hpp>
#include <optional>

#include "platform/date_text.h"
#include "platform/descriptor.h"

namespace ui {

namespace {

using platform::Answer;
using platform::Icon;
using Json = nlohmann::ordered_json;

const char* TextOf(Icon icon) {
    switch (icon) {
        case Icon::Information:
            return "information";
        case Icon::Exclamation:
            return "exclamation";
        case Icon::Question:
            return "question";
        case Icon::None:
            break;
    }
    return "none";
}

const char* TextOf(Answer answer) {
    return answer == Answer::Yes ? "yes" : "no";
}

Json TitleOf(const std::optional<std::string>& title) {
    return title ? Json(*title) : Json(nullptr);
}

}  // namespace

// The open file; every event goes to the system at once, as one write.
class Journal::File {
  public:
    File(const std::string& fileName, const platform::Clock& clock)
        : fileName_(fileName),
          clock_(clock),
          descriptor_(open(fileName.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666)) {
        if (descriptor_ < 0) throw platform::ErrorOfCreating(errno, "open", fileName_);
    }
    ~File() { close(descriptor_); }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    void Append(const char* event, const Json& members) {
        Json object = {{"time", platform::IsoDateTime(clock_.Now(), 'T')}, {"event", event}};
        object.update(members);
        const std::string line = object.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n";
        for (std::size_t written = 0; written < line.size();) {
            const ssize_t count = write(descriptor_, line.data() + written, line.size() - written);
            if (count < 0 && errno == EINTR) continue;
            if (count < 0) throw platform::ErrorFromErrno(errno, "write", fileName_);
            written += static_cast<std::size_t>(count);
        }
    }

  private:
    std::string fileName_;
    const platform::Clock& clock_;
    int descriptor_;
};

Journal::Journal(const std::string& fileName, platform::Operator& next,
                 const platform::Clock& clock)
    : file_(std::make_unique<File>(fileName, clock)), next_(next) {}

Journal::~Journal() = default;

void Journal::Show(const platform::Notice& notice) {
    file_->Append(
        "message",
        {{"title", TitleOf(notice.title)}, {"text", notice.text}, {"icon", TextOf(notice.icon)}});
    next_.Show(notice);
}

Answer Journal::Ask(const platform::Question& question) {
    const Answer answer = next_.Ask(question);
    file_->Append("question", {{"title", TitleOf(question.title)},
                               {"text", question.text},
                               {"icon", TextOf(question.icon)},
                               {"default", TextOf(question.defaultAnswer)},
                               {"answer", TextOf(answer)}});
    return answer;
}

std::string Journal::Prompt(const platform::InputRequest& request) {
    std::string answer = next_.Prompt(request);
    file_->Append("prompt", {{"title", request.title},
                             {"text", request.text},
                             {"default", request.defaultText},
                             {"answer", request.isPassword ? "***" : answer}});
    return answer;
}

void Journal::ShowStatusLine(std::string_view line) {
    file_->Append("status", {{"text", line}});
    next_.ShowStatusLine(line);
}

void Journal::DayEndCommandStarted(std::string_view commandLine) {
    file_->Append("command", {{"text", commandLine}});
    next_.DayEndCommandStarted(commandLine);
}

void Journal::ReportFatal(const platform::RuntimeError& error) {
    // The report must reach the operator even where the journal is what failed.
    try {
        file_->Append("fatal", {{"number", error.Number()}, {"text", error.Description()}});
    } catch (const platform::RuntimeError&) {
        next_.ReportFatal(error);
        return;
    }
    next_.ReportFatal(error);
}

}  // namespace ui
