// The journal: an operator that passes everything on to another and records what was shown, asked
// and answered, one JSON object a line.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/clock.h"
#include "platform/operator.h"

namespace ui {

class Journal : public platform::Operator {
  public:
    // Appends to the file. A file that can not be opened is error 70, 75 or 76; an event that can
    // not be written is error 57 or 61.
    Journal(const std::string& fileName, platform::Operator& next, const platform::Clock& clock);
    ~Journal() override;

    void Show(const platform::Notice& notice) override;
    [[nodiscard]] platform::Answer Ask(const platform::Question& question) override;
    [[nodiscard]] std::string Prompt(const platform::InputRequest& request) override;
    void ShowStatusLine(std::string_view line) override;
    void DayEndCommandStarted(std::string_view commandLine) override;
    void ReportFatal(const platform::RuntimeError& error) override;

  private:
    class File;
    std::unique_ptr<File> file_;
    platform::Operator& next_;
};

}  // namespace ui
