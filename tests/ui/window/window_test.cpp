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

// Every text of the window that can be read only where its control is large enough.
void ExpectNothingCutOff(const ui::MainWindow& window) {
    for (const QLabel* label : window.findChildren<QLabel*>()) {
        const int height =
            label->wordWrap() ? label->heightForWidth(label->width()) : label->sizeHint().height();
        EXPECT_GE(label->height(), height) << label->text().toStdString();
        if (!label->wordWrap()) {
            EXPECT_GE(label->width(), label->sizeHint().width()) << label->text().toStdString();
        }
    }
    for (const QPushButton* button : window.findChildren<QPushButton*>()) {
        EXPECT_GE(button->width(), button->sizeHint().width());
        EXPECT_GE(button->height(), button->sizeHint().height());
    }
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
    const ui::MainWindow& window = Open({"A", "B", "C"});
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
    for (QPushButton* button : window.findChildren<QPushButton*>()) {
        if (button->text() == "&Start") QTest::mouseClick(button, Qt::LeftButton);
    }
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

TEST_F(Window, NoticesAndQuestions) {
    boxes.AddKey(Qt::Key_Return);
    Open({});  // nothing waits: told before there is a window
    struct Case {
        platform::Question question;
        Qt::Key key;
        Answer expected;
        const char* caption;
        const char* buttons;
    };
    const Case cases[] = {
        {{kTitle, "<Uten navn> & co?", Icon::Question, Answer::Yes},
         Qt::Key_Return,
         Answer::Yes,
         kTitle,
         "[Ja]|Nei"},
        {{kTitle, "Er du sikker?", Icon::Exclamation, Answer::No},
         Qt::Key_Enter,
         Answer::No,
         kTitle,
         "Ja|[Nei]"},
        {{std::nullopt, "Skal?", Icon::None, Answer::No},
         Qt::Key_J,
         Answer::Yes,
         "KVDayEndServer",
         "Ja|[Nei]"},
    };
    for (const Case& each : cases) {
        boxes.AddKey(each.key);
        EXPECT_EQ(face.Ask(each.question), each.expected);
        EXPECT_EQ(boxes.seen.back().caption, each.caption);
        EXPECT_EQ(boxes.seen.back().text, each.question.text);
        EXPECT_EQ(boxes.seen.back().buttons, each.buttons);
    }
    boxes.AddKey(Qt::Key_Escape);
    face.Show({kTitle, "Feil", Icon::Exclamation});

    ASSERT_EQ(boxes.seen.size(), 5U);
    EXPECT_EQ(boxes.seen[0].caption, "KVDayEndServer");
    EXPECT_EQ(boxes.seen[0].text, "Ingen filer er klare for overføring.");
    EXPECT_EQ(boxes.seen[0].buttons, "[OK]");
    const QMessageBox::Icon icons[] = {QMessageBox::Information, QMessageBox::Question,
                                       QMessageBox::Warning, QMessageBox::NoIcon,
                                       QMessageBox::Warning};
    for (std::size_t i = 0; i < boxes.seen.size(); ++i)
        EXPECT_EQ(boxes.seen[i].icon, icons[i]);
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

TEST_F(Window, LargerFontsCutNoTextOff) {
    const QFont usual = QApplication::font();
    ui::MainWindow& window = Open({"A"});
    EXPECT_EQ(window.windowTitle(), "Dagsoppgjør på server");
    EXPECT_EQ(DataSets().toolTip(), "Velg filer som skal overføres.");
    for (const double points : {9.0, 11.0, 14.0, 24.0}) {
        QFont font = usual;
        font.setPointSizeF(points);
        QApplication::setFont(font);
        QTest::qWait(20);
        ExpectNothingCutOff(window);
        window.resize(1, 1);
        QTest::qWait(20);
        ExpectNothingCutOff(window);
        EXPECT_GE(window.width(), 553);
    }
    for (QWidget* each : window.findChildren<QWidget*>()) {
        if (each->accessibleName() != "KVDayEndServer") continue;
        EXPECT_EQ(each->grab().toImage().pixelColor(6, 30), QColor(0x23608f)) << "the picture";
    }
    QApplication::setFont(usual);
}
