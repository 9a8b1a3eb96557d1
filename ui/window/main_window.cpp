#include "ui/window/main_window.h"

#include <QCoreApplication>
#include <QEvent>
#include <QScreen>

#include "platform/error.h"
#include "ui/window/override_cursor.h"
#include "ui/window/toolkit_text.h"

namespace ui {

namespace {

constexpr int kExitFatal = 3;
constexpr double kCaptionPoints = 8.25;

// Pixels: the smallest window, and the arrangement of its controls in it.
constexpr QSize kWindowSize(553, 402);
constexpr int kDataSetsHeight = 108;
constexpr int kLogHeight = 82;

void NameForScreenReaders(QWidget& control, QLabel& caption) {
    caption.setBuddy(&control);
    control.setAccessibleName(caption.text().remove(':'));
}

}  // namespace

MainWindow::MainWindow(frmMain& contents, RunDriver& driver, platform::Operator& theOperator)
    : contents_(contents),
      driver_(driver),
      operator_(theOperator),
      dataSetsCaption_(frmMain::kLabel4),
      logCaption_(frmMain::kLabel5),
      start_(frmMain::kStartText),
      close_(frmMain::kCloseText) {
    setWindowTitle(frmMain::kCaption);
    setWindowIcon(ProgramIcon());
    SetUpControls();
    ArrangeControls();
    ApplyFonts();
    connect(&start_, &QPushButton::clicked, this, [this] { Start(); });
    connect(&close_, &QPushButton::clicked, this, &QWidget::close);
    for (const std::string& line : contents_.List)
        log_.addItem(ToolkitText(line));
    ShowContents();
    resize(kWindowSize.expandedTo(minimumSizeHint()));
}

void MainWindow::SetUpControls() {
    dataSets_.setSelectionMode(QAbstractItemView::ExtendedSelection);
    dataSets_.setToolTip(frmMain::kFileTooltip);
    NameForScreenReaders(dataSets_, dataSetsCaption_);
    NameForScreenReaders(log_, logCaption_);
    dataSets_.setMinimumHeight(kDataSetsHeight);
    log_.setMinimumHeight(kLogHeight);
}

void MainWindow::ArrangeControls() {
    column_.setContentsMargins(0, 0, 0, 0);
    column_.setSpacing(0);
    column_.addStrut(kWindowSize.width());
    column_.addWidget(&panel_);
    column_.addLayout(&body_, 1);

    body_.setContentsMargins(8, 9, 8, 20);
    body_.setSpacing(0);
    dataSetsCaption_.setIndent(6);
    body_.addWidget(&dataSetsCaption_);
    body_.addSpacing(1);
    body_.addWidget(&dataSets_, 4);
    body_.addSpacing(4);
    body_.addWidget(&logCaption_);
    body_.addSpacing(3);
    body_.addWidget(&log_, 3);
    body_.addSpacing(29);
    body_.addLayout(&buttons_);

    buttons_.setContentsMargins(0, 0, 12, 0);
    buttons_.setSpacing(11);
    buttons_.addStretch();
    buttons_.addWidget(&start_);
    buttons_.addWidget(&close_);

    setTabOrder(&dataSets_, &log_);
    setTabOrder(&log_, &start_);
    setTabOrder(&start_, &close_);
}

void MainWindow::ApplyFonts() {
    panel_.ApplyFonts();
    for (QLabel* caption : {&dataSetsCaption_, &logCaption_}) {
        caption->setFont(ScaledFont(kCaptionPoints, QFont::Bold));
    }
}

void MainWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ApplicationFontChange) ApplyFonts();
}

void MainWindow::ShowStatusLine(std::string_view line) {
    log_.addItem(ToolkitText(line));
    log_.scrollToBottom();
    ShowContents();
}

void MainWindow::ShowContents() {
    if (!ShowsTheDataSets()) RebuildDataSetList();
    for (int row = 0; row < dataSets_.count(); ++row) {
        dataSets_.item(row)->setSelected(
            contents_.ListDayEnd[static_cast<std::size_t>(row)].isSelected);
    }
    repaint();
}

bool MainWindow::ShowsTheDataSets() const {
    if (static_cast<std::size_t>(dataSets_.count()) != contents_.ListDayEnd.size()) return false;
    int row = 0;
    for (const ListEntry& entry : contents_.ListDayEnd) {
        if (dataSets_.item(row++)->text() != ToolkitText(entry.text)) return false;
    }
    return true;
}

void MainWindow::RebuildDataSetList() {
    const int place = dataSets_.currentRow();
    dataSets_.clear();
    for (const ListEntry& entry : contents_.ListDayEnd)
        dataSets_.addItem(ToolkitText(entry.text));
    dataSets_.setCurrentRow(qMin(place, dataSets_.count() - 1), QItemSelectionModel::NoUpdate);
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
        entry.isSelected = dataSets_.item(row++)->isSelected();
    }
}

}  // namespace ui
