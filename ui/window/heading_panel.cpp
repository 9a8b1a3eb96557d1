#include "ui/window/heading_panel.h"

#include <QApplication>
#include <QEvent>
#include <QFontInfo>
#include <QPainter>

#include "ui/frm_main.h"

namespace ui::window {

namespace {

constexpr double kUsualPoints = 9;
constexpr double kHeadingPoints = 13.5;
constexpr double kInstructionsPoints = 9.75;

// Pixels, as all of the window's measures.
constexpr int kPanelHeight = 89;
constexpr int kPictureSize = 60;
constexpr int kMargin = 8;
constexpr int kBottomMargin = 4;
constexpr int kSpacing = 16;
constexpr int kBesideTexts = kMargin + kSpacing + kPictureSize + kMargin;

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

HeadingPanel::HeadingPanel() : Label2(frmMain::kLabel2), Label3(frmMain::kLabel3) {
    Label2.setObjectName("Label2");
    Label3.setObjectName("Label3");
    Image1.setObjectName("Image1");
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    for (QLabel* label : {&Label2, &Label3}) {
        label->setForegroundRole(QPalette::Text);
        texts_.addWidget(label);
    }
    Label3.setWordWrap(true);
    Label3.setAlignment(Qt::AlignTop);
    texts_.setSpacing(kMargin);
    texts_.setStretch(1, 1);

    row_.setContentsMargins(kMargin, kMargin, kMargin, kBottomMargin);
    row_.setSpacing(kSpacing);
    row_.addLayout(&texts_, 1);
    row_.addWidget(&Image1, 0, Qt::AlignVCenter);
    ApplyFonts();
}

void HeadingPanel::ApplyFonts() {
    Label2.setFont(ScaledFont(kHeadingPoints));
    Label3.setFont(ScaledFont(kInstructionsPoints));
    updateGeometry();
}

int HeadingPanel::UsualHeight(int width) const {
    const int texts =
        Label2.sizeHint().height() + texts_.spacing() + Label3.heightForWidth(width - kBesideTexts);
    return qMax(kPanelHeight, kMargin + texts + kBottomMargin);
}

QSize HeadingPanel::sizeHint() const {
    return {Label2.sizeHint().width() + kBesideTexts, UsualHeight(width())};
}

// Instructions that have no line left are told wherever one points at the panel.
bool HeadingPanel::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) setToolTip(Label3.MissedText());
    return QWidget::event(event);
}

void HeadingPanel::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    updateGeometry();  // the width tells the height
}

}  // namespace ui::window
