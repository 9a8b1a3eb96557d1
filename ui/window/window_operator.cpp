#include "ui/window/window_operator.h"

#include <QCloseEvent>
#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>

#include "ui/window/override_cursor.h"
#include "ui/window/toolkit_text.h"

namespace ui::window {

namespace {

using platform::Answer;
using platform::Icon;

// What a box without a title of its own bears.
constexpr const char* kApplicationCaption = "KVDayEndServer";

// The toolkit's own words would be English.
constexpr const char* kYes = "&Ja";
constexpr const char* kNo = "&Nei";
constexpr const char* kOk = "OK";
constexpr const char* kCancel = "Avbryt";

QMessageBox::Icon ToolkitIcon(Icon icon) {
    switch (icon) {
        case Icon::Information:
            return QMessageBox::Information;
        case Icon::Exclamation:
            return QMessageBox::Warning;
        case Icon::Question:
            return QMessageBox::Question;
        case Icon::None:
            break;
    }
    return QMessageBox::NoIcon;
}

void Fill(QMessageBox& box, const std::optional<std::string>& title, std::string_view text) {
    box.setWindowTitle(ToolkitText(title.value_or(kApplicationCaption)));
    box.setTextFormat(Qt::PlainText);  // "<Uten navn>" is no markup
    box.setText(ToolkitText(text));
}

void AddOkButton(QMessageBox& box) {
    box.addButton(QMessageBox::Ok)->setText(kOk);
    box.setDefaultButton(QMessageBox::Ok);
}

// Only its buttons answer a question: neither Esc nor the close box does.
class QuestionBox : public QMessageBox {
  public:
    using QMessageBox::QMessageBox;

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (!event->matches(QKeySequence::Cancel)) QMessageBox::keyPressEvent(event);
    }
    void closeEvent(QCloseEvent* event) override { event->ignore(); }
};

class InputBox : public QDialog {
  public:
    InputBox(const platform::InputRequest& request, QWidget* parent)
        : QDialog(parent), line_(ToolkitText(request.defaultText)) {
        setWindowTitle(ToolkitText(request.title));
        text_.setTextFormat(Qt::PlainText);
        text_.setText(ToolkitText(request.text));
        line_.setAccessibleName(text_.text());
        line_.setMinimumWidth(kLineWidth);
        if (request.isPassword) line_.setEchoMode(QLineEdit::Password);
        line_.selectAll();
        buttons_.addButton(QDialogButtonBox::Ok)->setText(kOk);
        buttons_.addButton(QDialogButtonBox::Cancel)->setText(kCancel);
        column_.addWidget(&text_);
        column_.addWidget(&line_);
        column_.addWidget(&buttons_);
        connect(&buttons_, &QDialogButtonBox::accepted, this, &QDialog::accept);
        connect(&buttons_, &QDialogButtonBox::rejected, this, &QDialog::reject);
    }

    [[nodiscard]] std::string Text() const { return line_.text().toStdString(); }

  private:
    static constexpr int kLineWidth = 300;

    QVBoxLayout column_{this};
    QLabel text_;
    QLineEdit line_;
    QDialogButtonBox buttons_;
};

}  // namespace

void WindowOperator::Show(const platform::Notice& notice) {
    QMessageBox box(window_);
    Fill(box, notice.title, notice.text);
    box.setIcon(ToolkitIcon(notice.icon));
    AddOkButton(box);
    Run(box);
}

Answer WindowOperator::Ask(const platform::Question& question) {
    QuestionBox box(window_);
    Fill(box, question.title, question.text);
    box.setIcon(ToolkitIcon(question.icon));
    box.addButton(QMessageBox::Yes)->setText(kYes);
    box.addButton(QMessageBox::No)->setText(kNo);
    box.setDefaultButton(question.defaultAnswer == Answer::Yes ? QMessageBox::Yes
                                                               : QMessageBox::No);
    return Run(box) == QMessageBox::Yes ? Answer::Yes : Answer::No;
}

std::string WindowOperator::Prompt(const platform::InputRequest& request) {
    InputBox box(request, window_);
    return Run(box) == QDialog::Accepted ? box.Text() : std::string();
}

void WindowOperator::ShowStatusLine(std::string_view line) {
    if (window_) window_->ShowStatusLine(line);
}

// The started program speaks for itself.
void WindowOperator::DayEndCommandStarted(std::string_view /*commandLine*/) {}

void WindowOperator::ReportFatal(const platform::RuntimeError& error) {
    QMessageBox box(window_);
    Fill(box, std::nullopt,
         "Run-time error '" + std::to_string(error.Number()) + "':\n\n" + error.Description());
    box.setIcon(QMessageBox::Critical);
    AddOkButton(box);
    Run(box);
}

int WindowOperator::Run(QDialog& box) {
    // The run waits for the operator now, not the other way round.
    const OverrideCursor usual(Qt::ArrowCursor);
    if (window_) window_->ShowContents();
    const int result = box.exec();
    // What the box covered is painted here, for the run goes on without processing events.
    if (window_) window_->repaint();
    return result;
}

}  // namespace ui::window
