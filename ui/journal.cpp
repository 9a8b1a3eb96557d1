#include "ui/journal.h"

#include <fcntl.h>
#include <sys/stat.h>

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

// A FIFO may be a journal where somebody reads it: opening it would wait for the reader.
platform::Descriptor OpenJournal(const std::string& fileName) {
    platform::Descriptor file;
    int failure = 0;
    struct stat status {};
    if (stat(fileName.c_str(), &status) == 0 && S_ISFIFO(status.st_mode)) {
        file = platform::Descriptor(open(fileName.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC));
        if (!file.IsOpen() && errno == ENXIO) {
            throw platform::RuntimeError(platform::error_number::kPathAccess,
                                         "Can not open " + fileName + ": nobody reads the FIFO");
        }
        failure = file.IsOpen() ? platform::MakeBlocking(file.Get()) : errno;
    } else {
        failure = platform::OpenRegularFile(fileName, O_WRONLY | O_CREAT | O_APPEND, file);
    }
    if (failure != 0) throw platform::ErrorOfCreating(failure, "open", fileName);
    return file;
}

}  // namespace

// The open file; every event goes to the system at once, as one write.
class Journal::File {
  public:
    File(const std::string& fileName, const platform::Clock& clock)
        : fileName_(fileName), clock_(clock), file_(OpenJournal(fileName)) {}

    void Append(const char* event, const Json& members) {
        Json object = {{"time", platform::IsoDateTime(clock_.Now(), 'T')}, {"event", event}};
        object.update(members);
        const std::string line = object.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n";
        std::string_view rest = line;
        const int failure = platform::WriteAll(file_.Get(), rest);
        if (failure != 0) throw platform::ErrorFromErrno(failure, "write", fileName_);
    }

  private:
    std::string fileName_;
    const platform::Clock& clock_;
    platform::Descriptor file_;
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
