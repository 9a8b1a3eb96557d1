#include "tests/ui/window/window_fixture.h"

namespace support {

namespace {

// One application for the whole program, made after main began and gone before it ends.
class Application : public testing::Environment {
  public:
    void SetUp() override { application_ = std::make_unique<QApplication>(count_, arguments_); }
    void TearDown() override { application_.reset(); }

  private:
    int count_ = 1;
    char name_[12] = "test_window";
    char* arguments_[2] = {name_, nullptr};
    std::unique_ptr<QApplication> application_;
};

const testing::Environment* const kApplication =
    testing::AddGlobalTestEnvironment(std::make_unique<Application>().release());

std::string ButtonsOf(const QWidget& box) {
    std::string texts;
    for (const QPushButton* button : box.findChildren<QPushButton*>()) {
        const std::string text = button->text().remove('&').toStdString();
        texts += (texts.empty() ? "" : "|") + (button->isDefault() ? "[" + text + "]" : text);
    }
    return texts;
}

SeenBox Seen(const QWidget& box) {
    SeenBox seen;
    seen.caption = box.windowTitle().toStdString();
    seen.buttons = ButtonsOf(box);
    if (const auto* message = qobject_cast<const QMessageBox*>(&box)) {
        seen.text = message->text().toStdString();
        seen.icon = message->icon();
    } else {
        seen.text = box.findChild<QLabel*>()->text().toStdString();
        seen.echo = box.findChild<QLineEdit*>()->echoMode();
    }
    if (QApplication::overrideCursor() != nullptr) {
        seen.cursor = QApplication::overrideCursor()->shape();
    }
    return seen;
}

}  // namespace

BoxAnswers::BoxAnswers() {
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Look(); });
    timer_.start(1);
}

BoxAnswers::~BoxAnswers() {
    EXPECT_TRUE(answers_.empty()) << answers_.size() << " boxes did not open";
}

void BoxAnswers::AddKey(Qt::Key key) {
    Add([key](QWidget& box) { QTest::keyClick(box.windowHandle(), key); });
}

void BoxAnswers::Look() {
    auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (box == nullptr || box == answered_ || !box->isActiveWindow()) return;
    answered_ = box;
    seen.push_back(Seen(*box));
    if (answers_.empty()) {
        ADD_FAILURE() << "not expected: " << seen.back().text;
        box->done(0);
    } else {
        const Answer answer = std::move(answers_.front());
        answers_.pop_front();
        answer(*box);
    }
}

Window::Window()
    : driver_(shop.settings, contents, shop.runState,
              {[this](const store::DataSet& dataSet) {
                   transferred += dataSet.Name() + ";";
                   transfer(dataSet.Name());
                   return false;
               },
               nullptr},
              face, shop.clock, noProcesses_) {}

ui::window::MainWindow& Window::Open(const std::vector<const char*>& dataSets) {
    for (const char* name : dataSets) {
        shop.folder.Write(std::string(name) + "DayEndSales.XML", "");
    }
    contents.Load();
    window_ = std::make_unique<ui::window::MainWindow>(contents, driver_, face);
    face.ConnectTo(*window_);
    window_->show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window_.get()));
    return *window_;
}

int Window::RunUntilEndAfter(Qt::Key accessKey) {
    QTimer soon;
    soon.setSingleShot(true);
    QObject::connect(&soon, &QTimer::timeout, &soon, [&] { Press(accessKey, Qt::AltModifier); });
    soon.start(0);
    return QApplication::exec();
}

std::string Window::Focused() const {
    const QWidget* focused = QApplication::focusWidget();
    return focused != nullptr ? focused->accessibleName().toStdString() : "";
}

std::string Window::Selected() const {
    std::string names;
    for (int row = 0; row < DataSets().count(); ++row) {
        if (DataSets().item(row)->isSelected()) {
            names += DataSets().item(row)->text().toStdString() + ";";
        }
    }
    return names;
}

}  // namespace support
