// The operator at the window: notices, questions and prompts as boxes, status lines in the log.
#pragma once

#include <QPointer>
#include <string>

#include "platform/operator.h"
#include "ui/window/main_window.h"

class QDialog;

namespace ui::window {

class WindowOperator : public platform::Operator {
  public:
    // From now on boxes stand over this window and status lines show in it, for as long as it
    // lives. Start-up asks before there is one.
    void ConnectTo(MainWindow& window) { window_ = &window; }

    void Show(const platform::Notice& notice) override;
    [[nodiscard]] platform::Answer Ask(const platform::Question& question) override;
    [[nodiscard]] std::string Prompt(const platform::InputRequest& request) override;
    void ShowStatusLine(std::string_view line) override;
    void DayEndCommandStarted(std::string_view commandLine) override;
    void ReportFatal(const platform::RuntimeError& error) override;

  private:
    int Run(QDialog& box);

    QPointer<MainWindow> window_;
};

}  // namespace ui::window
