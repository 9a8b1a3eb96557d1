#include "ui/window/main_window.h"

#include <QCoreApplication>
#include <QEvent>
#include <QScreen>
#include <memory>

#include "platform/error.h"
#include "ui/window/override_cursor.h"
#include "ui/window/toolkit_text.h"

namespace ui::window {

namespace {

constexpr int kExitFatal = 3;
constexpr double kCaptionPoints = 8.25;

// Pixels: the usual window, and the arrangement of its controls in it.
constexpr QSize kUsualSize(553, 402);
constexpr int kDataSetsHeight = 108;
constexpr int kLogHeight = 82;

// Pixels: a smaller screen gets a smaller window, but for what its frame may take.
constexpr int kSmallestWidth = 320;
constexpr QSize kFrame(8, 40);
constexpr int kSmallestGap = 8;

void NameForScreenReaders(QWidget& control, QLabel& caption) {
    caption.setBuddy(&control);
    control.setAccessibleName(caption.text().remove(':'));
}

// A gap that gives way where the window is small; the layout owns it.
void AddGap(QBoxLayout& column, int height) {
    column.addSpacing(kSmallestGap);
    column.addSpacerItem(std::make_unique<QSpacerItem>(0, height - kSmallestGap,
                                                       QSizePolicy::Minimum, QSizePolicy::Preferred)
                             .release());
}

}  // namespace

MainWindow::MainWindow(frmMain& contents, RunDriver& driver, platform::Operator& theOperator)
    : contents_(contents),
      driver_(driver),
      operator_(theOperator),
      Label4(frmMain::kLabel4),
      ListDayEnd(kDataSetsHeight),
      Label5(frmMain::kLabel5),
      List(kLogHeight),
      btStart(frmMain::kStartText),
      btClose(frmMain::kCloseText) {
    setWindowTitle(frmMain::kCaption);
    setWindowIcon(ProgramIcon());
    NameControls();
    SetUpControls();
    ArrangeControls();
    ApplyFonts();
    connect(&btStart, &QPushButton::clicked, this, [this] { Start(); });
    connect(&btClose, &QPushButton::clicked, this, &QWidget::close);
    for (const std::string& line : contents_.List)
        List.addItem(ToolkitText(line));
    ShowContents();
    resize(FittingSize());
}

// By these names tools that see or steer the running window find its controls.
void MainWindow::NameControls() {
    setObjectName("frmMain");
    Picture1.setObjectName("Picture1");
    Label4.setObjectName("Label4");
    ListDayEnd.setObjectName("ListDayEnd");
    Label5.setObjectName("Label5");
    List.setObjectName("List");
    btStart.setObjectName("btStart");
    btClose.setObjectName("btClose");
    File.setObjectName("File");
}

void MainWindow::SetUpControls() {
    ListDayEnd.setSelectionMode(QAbstractItemView::ExtendedSelection);
    ListDayEnd.setToolTip(frmMain::kFileTooltip);
    NameForScreenReaders(ListDayEnd, Label4);
    NameForScreenReaders(List, Label5);
    File.setToolTip(frmMain::kFileTooltip);
    File.setFocusPolicy(Qt::NoFocus);
}

void MainWindow::ArrangeControls() {
    column_.setContentsMargins(0, 0, 0, 0);
    column_.setSpacing(0);
    column_.addStrut(kSmallestWidth);
    column_.addWidget(&Picture1);
    column_.addLayout(&body_, 1);

    body_.setContentsMargins(8, 9, 8, 0);
    body_.setSpacing(0);
    Label4.setIndent(6);
    body_.addWidget(&Label4);
    body_.addSpacing(1);
    body_.addWidget(&ListDayEnd, 4);
    body_.addSpacing(4);
    body_.addWidget(&Label5);
    body_.addSpacing(3);
    body_.addWidget(&List, 3);
    AddGap(body_, 29);
    body_.addLayout(&buttons_);
    AddGap(body_, 20);

    buttons_.setContentsMargins(0, 0, 12, 0);
    buttons_.setSpacing(11);
    buttons_.addStretch();
    buttons_.addWidget(&btStart);
    buttons_.addWidget(&btClose);

    File.setParent(this);
    File.hide();

    setTabOrder(&ListDayEnd, &List);
    setTabOrder(&List, &btStart);
    setTabOrder(&btStart, &btClose);
}

void MainWindow::ApplyFonts() {
    Picture1.ApplyFonts();
    for (QLabel* caption : {&Label4, &Label5}) {
        caption->setFont(ScaledFont(kCaptionPoints, QFont::Bold));
    }
}

// So large that every text is whole, as far as the screen goes.
QSize MainWindow::FittingSize() const {
    const int width = qMax(kUsualSize.width(), sizeHint().width());
    return QSize(width, qMax(kUsualSize.height(), UsualHeight(width)))
        .boundedTo(screen()->availableGeometry().size() - kFrame);
}

int MainWindow::UsualHeight(int width) const {
    return Picture1.UsualHeight(width) + body_.sizeHint().height();
}

// At the usual height the lists have theirs, which four to three would miss by a pixel.
void MainWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    const bool isTall = height() > UsualHeight(width());
    ListDayEnd.setMaximumHeight(isTall ? QWIDGETSIZE_MAX : kDataSetsHeight);
}

void MainWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() != QEvent::FontChange) return;  // the controls have theirs before
    ApplyFonts();
    column_.activate();  // until then it knows the sizes of the old ones
    resize(size().expandedTo(FittingSize()));
}

void MainWindow::ShowStatusLine(std::string_view line) {
    List.addItem(ToolkitText(line));
    List.scrollToBottom();
    ShowContents();
}

void MainWindow::ShowContents() {
    QStringList names;
    for (const ListEntry& entry : contents_.ListDayEnd)
        names += ToolkitText(entry.dataSet.DisplayName());
    ListDayEnd.Show(names);
    int row = 0;
    for (const ListEntry& entry : contents_.ListDayEnd)
        ListDayEnd.item(row++)->setSelected(entry.isSelected);
    QStringList files;
    for (const std::string& file : contents_.File.Names())
        files += ToolkitText(file);
    File.Show(files);
    repaint();
}

// No error may unwind through the toolkit.
void MainWindow::Start() noexcept {
    TakeSelection();
    try {
        const OverrideCursor busy(Qt::WaitCursor);
        driver_.StartDayEnd();
        ShowContents();
    } catch (const std::exception&) {
        operator_.ReportFatal(platform::CurrentError());
        QCoreApplication::exit(kExitFatal);
    }
}

void MainWindow::TakeSelection() {
    int row = 0;
    for (ListEntry& entry : contents_.ListDayEnd) {
        entry.isSelected = ListDayEnd.item(row++)->isSelected();
    }
}

}  // namespace ui::window
