// The window's controls: how tools see them, and that they hold together at every size.
#include <QAccessible>
#include <QHelpEvent>
#include <map>

#include "tests/ui/window/window_fixture.h"

using support::Window;

namespace {

QString ToolTipAt(QWidget& widget) {
    QHelpEvent pointing(QEvent::ToolTip, QPoint(1, 1), widget.mapToGlobal(QPoint(1, 1)));
    QApplication::sendEvent(&widget, &pointing);
    return widget.toolTip();
}

void UseFontOf(double points) {
    QFont font = QApplication::font();
    font.setPointSizeF(points);
    QApplication::setFont(font);
    QTest::qWait(20);
}

// What tools see from `seen` on down, by the names of the objects.
void Collect(QAccessibleInterface* seen, std::map<std::string, QAccessibleInterface*>& objects) {
    if (seen->object() == nullptr) return;  // an entry of a list
    objects[seen->object()->objectName().toStdString()] = seen;
    for (int i = 0; i < seen->childCount(); ++i)
        Collect(seen->child(i), objects);
}

// Where a text can be read at once there is no tooltip.
void ExpectNothingCutOff(const ui::window::MainWindow& window) {
    for (const char* name : {"Label2", "Label3", "Label4", "Label5"}) {
        auto& label = *window.findChild<QLabel*>(name);
        const int height =
            label.wordWrap() ? label.heightForWidth(label.width()) : label.sizeHint().height();
        EXPECT_GE(label.height(), height) << name;
        EXPECT_GE(label.width(), label.sizeHint().width()) << name;
        EXPECT_EQ(ToolTipAt(label), "") << name;
    }
}

// Every control is inside the window and none lies over another; the buttons are whole.
void ExpectEveryControlUsable(const ui::window::MainWindow& window) {
    QRegion taken;
    for (const char* name : {"Label2", "Label3", "Image1", "Label4", "ListDayEnd", "Label5", "List",
                             "btStart", "btClose"}) {
        const auto& control = *window.findChild<QWidget*>(name);
        const QRect place(control.mapTo(&window, QPoint()), control.size());
        EXPECT_TRUE(window.rect().contains(place)) << name;
        EXPECT_FALSE(taken.intersects(place)) << name;
        taken += place;
    }
    for (const QPushButton* button : window.findChildren<QPushButton*>()) {
        EXPECT_GE(button->width(), button->sizeHint().width());
        EXPECT_GE(button->height(), button->sizeHint().height());
    }
}

class Controls : public Window {
  protected:
    ~Controls() override { QApplication::setFont(usualFont_); }

  private:
    const QFont usualFont_ = QApplication::font();
};

}  // namespace

TEST_F(Controls, AreSeenByTheirNames) {
    std::map<std::string, QAccessibleInterface*> objects;
    Collect(QAccessible::queryAccessibleInterface(&Open({"Kasse1", "Kasse2"})), objects);
    struct Case {
        const char* objectName;
        const char* spoken;
        QAccessible::Role role;
    };
    const Case cases[] = {
        {"frmMain", "Dagsoppgjør på server", QAccessible::Client},
        {"Picture1", "", QAccessible::Client},
        {"Label2", "Dagsoppgjør på server for Kassovia", QAccessible::StaticText},
        {"Label3", ui::frmMain::kLabel3, QAccessible::StaticText},
        {"Image1", "KVDayEndServer", QAccessible::Client},
        {"Label4", "Datasett som ikke er oppdatert:", QAccessible::StaticText},
        {"ListDayEnd", "Datasett som ikke er oppdatert", QAccessible::List},
        {"Label5", "Status:", QAccessible::StaticText},
        {"List", "Status", QAccessible::List},
        {"btStart", "Start", QAccessible::PushButton},
        {"btClose", "Lukk", QAccessible::PushButton},
        {"File", "", QAccessible::List},
    };
    for (const Case& each : cases) {
        ASSERT_TRUE(objects.contains(each.objectName)) << each.objectName;
        const QAccessibleInterface& seen = *objects[each.objectName];
        EXPECT_EQ(seen.text(QAccessible::Name).toStdString(), each.spoken) << each.objectName;
        EXPECT_EQ(seen.role(), each.role) << each.objectName;
        EXPECT_EQ(seen.state().invisible, each.objectName == std::string("File"));
    }
    EXPECT_EQ(objects["ListDayEnd"]->child(1)->text(QAccessible::Name), "Kasse2");
}

TEST_F(Controls, FileHoldsTheFilesBehindTheDataSets) {
    const ui::window::MainWindow& window = Open({"Kasse1", "Kasse2"});
    const auto& file = *window.findChild<QListWidget*>("File");
    ASSERT_EQ(file.count(), 2);
    EXPECT_EQ(file.item(0)->text(), "Kasse1DayEndSales.XML");
    EXPECT_EQ(file.toolTip(), "Velg filer som skal overføres.");
    transfer = [](const std::string& name) {
        std::filesystem::rename(name + "DayEndSales.XML", "Kasse3DayEndSales.XML");
    };
    Press(Qt::Key_Space);
    PressAccessKey(Qt::Key_S);
    ASSERT_EQ(file.count(), 2);
    EXPECT_EQ(file.item(0)->text(), "Kasse2DayEndSales.XML");
    EXPECT_EQ(DataSets().item(1)->text(), "Kasse3");
}

TEST_F(Controls, LargerFontsCutNoTextOff) {
    ui::window::MainWindow& window = Open({"A"});
    EXPECT_EQ(window.windowTitle(), "Dagsoppgjør på server");
    EXPECT_EQ(DataSets().toolTip(), "Velg filer som skal overføres.");
    for (const double points : {9.0, 11.0, 14.0, 16.0}) {
        UseFontOf(points);
        ExpectNothingCutOff(window);
        ExpectEveryControlUsable(window);
        EXPECT_GE(window.width(), 553);
        EXPECT_GE(window.height(), 402);
        EXPECT_GE(DataSets().height(), 108);
        EXPECT_GE(Log().height(), 82);
    }
    const QImage picture = window.findChild<QWidget*>("Image1")->grab().toImage();
    EXPECT_EQ(picture.pixelColor(6, 30), QColor(0x23608f));
}

// At 200 % such a screen is a quarter as large; what is left over is the frame's.
TEST_F(Controls, FitAScreenOf1024By768At200Percent) {
    ui::window::MainWindow& window = Open({"A", "B", "C", "D", "E", "F"});
    for (const double points : {9.0, 11.0, 14.0, 16.0}) {
        UseFontOf(points);
        for (const QSize size : {QSize(504, 344), QSize(1, 1), QSize(320, 344)}) {
            window.resize(size);
            QTest::qWait(20);
            EXPECT_LE(window.width(), 504) << points;
            EXPECT_LE(window.height(), 344) << points;
            ExpectEveryControlUsable(window);
            for (const QListWidget* list : {&DataSets(), &Log()}) {
                EXPECT_GE(list->viewport()->height(), 2 * DataSets().sizeHintForRow(0)) << points;
            }
        }
    }
    QWidget& panel = *window.findChild<QWidget*>("Picture1");
    EXPECT_TRUE(ToolTipAt(panel).contains(ui::frmMain::kLabel3));
    EXPECT_TRUE(ToolTipAt(*window.findChild<QLabel*>("Label2")).contains(ui::frmMain::kLabel2));
}
