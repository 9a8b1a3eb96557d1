#include <QScrollBar>

#include "tests/ui/window/window_fixture.h"

using platform::Answer;
using platform::Icon;
using support::Window;

namespace {

// A shop's day as the file export asks about it.
constexpr const char* kTitle = "Dagsoppgjør for Kassovia";
constexpr const char* kRename = "Skal transaksjonsfilene renames og merkes som overført?";

Qt::CursorShape PointerShape() {
    const QCursor* shape = QApplication::overrideCursor();
    return shape != nullptr ? shape->shape() : Qt::ArrowCursor;
}

}  // namespace

TEST_F(Window, ARunByKeyboardAlone) {
    Open({"Kasse1", "Kasse2", "Kasse3"});
    EXPECT_EQ(Focused(), "Datasett som ikke er oppdatert");
    Press(Qt::Key_Space);
    Press(Qt::Key_Down, Qt::ControlModifier);
    Press(Qt::Key_Down, Qt::ControlModifier);
    Press(Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(Selected(), "Kasse1;Kasse3;");

    std::string order;
    for (int stop = 0; stop < 4; ++stop) {
        order += Focused() + ";";
        Press(Qt::Key_Tab);
    }
    EXPECT_EQ(order, "Datasett som ikke er oppdatert;Status;Start;Lukk;");
    transfer = [this](const std::string& name) {
        EXPECT_EQ(PointerShape(), Qt::WaitCursor);
        EXPECT_EQ(Log().item(Log().count() - 1)->text().toStdString(), contents.List.back());
        EXPECT_EQ(Selected(), name == "Kasse1" ? "Kasse1;Kasse3;" : "Kasse3;");
        if (face.Ask({kTitle, kRename}) == Answer::Yes) {
            std::filesystem::remove(name + "DayEndSales.XML");
        }
    };
    boxes.AddKey(Qt::Key_Return);  // the default
    boxes.AddKey(Qt::Key_N);
    Press(Qt::Key_Tab);
    Press(Qt::Key_Tab);
    Press(Qt::Key_Return);
    EXPECT_EQ(transferred, "Kasse1;Kasse3;");
    EXPECT_EQ(PointerShape(), Qt::ArrowCursor);
    EXPECT_EQ(Log().count(), 4);
    ASSERT_EQ(DataSets().count(), 2) << "the first was renamed";
    EXPECT_EQ(DataSets().item(0)->text(), "Kasse2");
    EXPECT_EQ(Selected(), "");
}

TEST_F(Window, AccessKeysAndTheMouse) {
    const ui::window::MainWindow& window = Open({"A", "B", "C"});
    PressAccessKey(Qt::Key_S);
    EXPECT_EQ(transferred, "") << "nothing is selected";
    Press(Qt::Key_A, Qt::ControlModifier);
    PressAccessKey(Qt::Key_S);
    EXPECT_EQ(transferred, "A;B;C;");

    transferred.clear();
    const auto click = [this](int row, Qt::KeyboardModifiers modifiers) {
        const QRect place = DataSets().visualItemRect(DataSets().item(row));
        QTest::mouseClick(DataSets().viewport(), Qt::LeftButton, modifiers, place.center());
    };
    click(2, Qt::NoModifier);
    click(1, Qt::ShiftModifier);
    click(2, Qt::ControlModifier);
    click(0, Qt::ControlModifier);
    QTest::mouseClick(window.findChild<QPushButton*>("btStart"), Qt::LeftButton);
    EXPECT_EQ(transferred, "A;B;");

    EXPECT_EQ(RunUntilEndAfter(Qt::Key_L), 0);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(Window, EveryStatusLineIsPaintedBeforeTheRunGoesOn) {
    Open({"A"});
    class PaintCount : public QObject {
      public:
        bool eventFilter(QObject* /*watched*/, QEvent* event) override {
            if (event->type() == QEvent::Paint) ++paints;
            return false;
        }
        int paints = 0;
    } log;
    Log().viewport()->installEventFilter(&log);
    bool wereEventsProcessed = false;
    QTimer soon;
    QObject::connect(&soon, &QTimer::timeout, &soon, [&] { wereEventsProcessed = true; });
    transfer = [&](const std::string&) {
        soon.start(0);
        for (int i = 0; i < 30; ++i) {
            const int before = log.paints;
            contents.AppendStatusLine("Linje " + std::to_string(i));
            EXPECT_GT(log.paints, before);
        }
        EXPECT_FALSE(wereEventsProcessed);
        contents.AppendStatusLine(std::string(400, 'x'));
        EXPECT_EQ(Log().verticalScrollBar()->value(), Log().verticalScrollBar()->maximum());
        EXPECT_GT(Log().verticalScrollBar()->value(), 0);
        EXPECT_GT(Log().horizontalScrollBar()->maximum(), Log().viewport()->width());
    };
    Press(Qt::Key_A, Qt::ControlModifier);
    PressAccessKey(Qt::Key_S);
    EXPECT_EQ(transferred, "A;");
    EXPECT_EQ(Log().verticalScrollBar()->value(), Log().verticalScrollBar()->maximum());
}

TEST_F(Window, Notices) {
    boxes.AddKey(Qt::Key_Return);
    Open({});  // nothing waits: told before there is a window
    boxes.AddKey(Qt::Key_Escape);
    face.Show({kTitle, "Feil", Icon::Exclamation});
    ASSERT_EQ(boxes.seen.size(), 2U);
    EXPECT_EQ(boxes.seen[0].caption, "KVDayEndServer");
    EXPECT_EQ(boxes.seen[0].text, "Ingen filer er klare for overføring.");
    EXPECT_EQ(boxes.seen[0].buttons, "[OK]");
    EXPECT_EQ(boxes.seen[0].icon, QMessageBox::Information);
    EXPECT_EQ(boxes.seen[1].icon, QMessageBox::Warning);
}

TEST_F(Window, Questions) {
    Open({"A"});
    struct Case {
        platform::Question question;
        Qt::Key key;
        Answer expected;
        const char* caption;
        const char* buttons;
        QMessageBox::Icon icon;
    };
    const Case cases[] = {{{kTitle, "<Uten navn> & co?", Icon::Question, Answer::Yes},
                           Qt::Key_Return,
                           Answer::Yes,
                           kTitle,
                           "[Ja]|Nei",
                           QMessageBox::Question},
                          {{kTitle, "Er du sikker?", Icon::Exclamation, Answer::No},
                           Qt::Key_Enter,
                           Answer::No,
                           kTitle,
                           "Ja|[Nei]",
                           QMessageBox::Warning},
                          {{std::nullopt, "Skal?", Icon::None, Answer::No},
                           Qt::Key_J,
                           Answer::Yes,
                           "KVDayEndServer",
                           "Ja|[Nei]",
                           QMessageBox::NoIcon}};
    for (const Case& each : cases) {
        boxes.AddKey(each.key);
        EXPECT_EQ(face.Ask(each.question), each.expected);
        EXPECT_EQ(boxes.seen.back().caption, each.caption);
        EXPECT_EQ(boxes.seen.back().text, each.question.text);
        EXPECT_EQ(boxes.seen.back().buttons, each.buttons);
        EXPECT_EQ(boxes.seen.back().icon, each.icon);
    }
    EXPECT_EQ(boxes.seen.size(), 3U);
}

TEST_F(Window, OnlyItsButtonsAnswerAQuestion) {
    Open({"A"});
    boxes.Add([](QWidget& box) {
        box.close();
        QTest::keyClick(box.windowHandle(), Qt::Key_Escape);
        EXPECT_TRUE(box.isVisible());
        for (QPushButton* button : box.findChildren<QPushButton*>()) {
            if (button->text() == "&Nei") QTest::mouseClick(button, Qt::LeftButton);
        }
    });
    EXPECT_EQ(face.Ask({kTitle, kRename}), Answer::No);
}

TEST_F(Window, Prompts) {
    Open({"A"});
    const auto type = [](const char* text, Qt::Key last) {
        return [text, last](QWidget& box) {
            QTest::keyClicks(box.findChild<QLineEdit*>(), text);
            QTest::keyClick(box.windowHandle(), last);
        };
    };
    platform::InputRequest request = {"Pålogging", "Passord for 'Kari & Per'?", "", true};
    boxes.Add(type("hemmelig", Qt::Key_Return));
    EXPECT_EQ(face.Prompt(request), "hemmelig");
    EXPECT_EQ(boxes.seen.back().caption, "Pålogging");
    EXPECT_EQ(boxes.seen.back().text, "Passord for 'Kari & Per'?");
    EXPECT_EQ(boxes.seen.back().buttons, "[OK]|Avbryt");
    EXPECT_EQ(boxes.seen.back().echo, QLineEdit::Password);

    request = {"Konto", "Hvilken?", "1920", false};
    boxes.Add(type("", Qt::Key_Return));
    EXPECT_EQ(face.Prompt(request), "1920");
    EXPECT_EQ(boxes.seen.back().echo, QLineEdit::Normal);
    boxes.Add(type("7", Qt::Key_Return));
    EXPECT_EQ(face.Prompt(request), "7") << "typing replaces the default";
    boxes.Add(type("7", Qt::Key_Escape));
    EXPECT_EQ(face.Prompt(request), "");
}

TEST_F(Window, AnErrorThatNobodyHandledIsReportedAndEndsTheProgram) {
    Open({"A", "B"});
    transfer = [](const std::string&) {
        throw platform::RuntimeError(3021, "Sales: no current record.");
    };
    Press(Qt::Key_A, Qt::ControlModifier);
    boxes.AddKey(Qt::Key_Return);
    EXPECT_EQ(RunUntilEndAfter(Qt::Key_S), 3);
    EXPECT_EQ(transferred, "A;");
    ASSERT_EQ(boxes.seen.size(), 1U);
    EXPECT_EQ(boxes.seen[0].caption, "KVDayEndServer");
    EXPECT_EQ(boxes.seen[0].text, "Run-time error '3021':\n\nSales: no current record.");
    EXPECT_EQ(boxes.seen[0].icon, QMessageBox::Critical);
    EXPECT_EQ(boxes.seen[0].cursor, Qt::ArrowCursor);
}
