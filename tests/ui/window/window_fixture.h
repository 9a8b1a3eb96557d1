// The operator window over a small shop, without a screen, used as a person would: keys and mouse
// clicks arrive as events, boxes that open are recorded and answered.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "tests/support/ui/test_shop.h"
#include "ui/window/window_operator.h"

namespace support {

// What stood on a box when it opened.
struct SeenBox {
    std::string caption;
    std::string text;
    std::string buttons;  // "Ja|[Nei]", the default in brackets
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QLineEdit::EchoMode echo = QLineEdit::Normal;
    Qt::CursorShape cursor = Qt::WaitCursor;
};

// Answers the boxes in the order in which they open; a box that no answer waits for is closed by
// force and fails the test, so do answers left over.
class BoxAnswers {
  public:
    using Answer = std::function<void(QWidget& box)>;

    BoxAnswers();
    ~BoxAnswers();

    void Add(Answer answer) { answers_.push_back(std::move(answer)); }
    void AddKey(Qt::Key key);

    std::vector<SeenBox> seen;

  private:
    void Look();

    std::deque<Answer> answers_;
    QTimer timer_;
    QPointer<QDialog> answered_;
};

class NoProcesses : public platform::ProcessStarter {
  public:
    bool Start(std::string_view /*commandLine*/) override { return false; }
};

class Window : public testing::Test {
  protected:
    Window();

    // What the next data sets do instead of being transferred.
    std::function<void(const std::string& name)> transfer = [](const std::string&) {};

    // Shows the window on these data sets, with the focus in the list.
    ui::window::MainWindow& Open(const std::vector<const char*>& dataSets);

    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(window_->windowHandle(), key, modifiers);
    }
    // An access key presses its button like a person: it is down for a moment.
    void PressAccessKey(Qt::Key key) {
        Press(key, Qt::AltModifier);
        QTest::qWait(kButtonIsDown);
    }
    // The program's exit status when this access key is pressed and it then ends by itself.
    [[nodiscard]] int RunUntilEndAfter(Qt::Key accessKey);

    [[nodiscard]] QListWidget& DataSets() const {
        return *window_->findChild<QListWidget*>("ListDayEnd");
    }
    [[nodiscard]] QListWidget& Log() const { return *window_->findChild<QListWidget*>("List"); }
    [[nodiscard]] std::string Focused() const;
    [[nodiscard]] std::string Selected() const;

    static constexpr int kButtonIsDown = 150;  // milliseconds

    TestShop shop;
    BoxAnswers boxes;
    ui::window::WindowOperator face;
    ui::frmMain contents{shop.settings, face};
    std::string transferred;

  private:
    NoProcesses noProcesses_;
    ui::RunDriver driver_;
    std::unique_ptr<ui::window::MainWindow> window_;
};

}  // namespace support
