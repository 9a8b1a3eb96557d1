#include "ui/window/heading_panel.h"

#include <QApplication>
#include <QFontInfo>
#include <QPainter>

#include "ui/frm_main.h"

namespace ui {

namespace {

constexpr double kUsualPoints = 9;
constexpr double kHeadingPoints = 13.5;
constexpr double kInstructionsPoints = 9.75;

// Pixels, as all of the window's measures.
constexpr int kPanelHeight = 89;
constexpr int kPictureSize = 60;
constexpr int kMargin = 8;
constexpr int kBottomMargin = 4;

}  // namespace

QIcon ProgramIcon() {
    return QIcon(":/KVDayEndServer.svg");
}

QFont ScaledFont(double points, QFont::Weight weight) {
    QFont font = QApplication::font();
    font.setPointSizeF(points * QFontInfo(font).pointSizeF() / kUsualPoints);
    font.setWeight(weight);
    return font;
}

Picture::Picture() : icon_(ProgramIcon()) {
    setFixedSize(kPictureSize, kPictureSize);
    setAccessibleName("KVDayEndServer");
}

void Picture::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    icon_.paint(&painter, rect());
}

HeadingPanel::HeadingPanel() : heading_(frmMain::kLabel2), instructions_(frmMain::kLabel3) {
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    for (QLabel* label : {&heading_, &instructions_}) {
        label->setForegroundRole(QPalette::Text);
        label->setTextFormat(Qt::PlainText);
        texts_.addWidget(label);
    }
    instructions_.setWordWrap(true);
    instructions_.setAlignment(Qt::AlignTop);
    texts_.setSpacing(kMargin);
    texts_.setStretch(1, 1);

    row_.setContentsMargins(kMargin, kMargin, kMargin, kBottomMargin);
    row_.addStrut(kPanelHeight - kMargin - kBottomMargin);
    row_.setSpacing(2 * kMargin);
    row_.addLayout(&texts_, 1);
    row_.addWidget(&picture_, 0, Qt::AlignVCenter);
    ApplyFonts();
}

void HeadingPanel::ApplyFonts() {
    heading_.setFont(ScaledFont(kHeadingPoints));
    instructions_.setFont(ScaledFont(kInstructionsPoints));
    if (isVisible()) MakeRoomForInstructions();
}

void HeadingPanel::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    MakeRoomForInstructions();
}

// A layout takes no heed of the width when it tells how high wrapped text must be at least.
void HeadingPanel::MakeRoomForInstructions() {
    instructions_.setMinimumHeight(instructions_.heightForWidth(instructions_.width()));
}

}  // namespace ui
