#include "ui/window/text_label.h"

#include <QEvent>
#include <QPainter>
#include <QStyle>

namespace ui::window {

namespace {

constexpr QChar kEllipsis(0x2026);

}  // namespace

TextLabel::TextLabel(const char* text) : QLabel(text) {
    setTextFormat(Qt::PlainText);
}

QSize TextLabel::sizeHint() const {
    return wordWrap() ? QSize(0, 0) : QLabel::sizeHint();
}

bool TextLabel::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) setToolTip(MissedText());
    return QLabel::event(event);
}

// A paragraph wraps; as plain text the tooltip could be wider than the screen.
QString TextLabel::MissedText() const {
    return Fits(text()) ? QString() : "<p>" + text().toHtmlEscaped() + "</p>";
}

void TextLabel::paintEvent(QPaintEvent* event) {
    if (Fits(text())) return QLabel::paintEvent(event);
    QPainter painter(this);
    style()->drawItemText(&painter, Room(), Flags(), palette(), isEnabled(), Shortened(),
                          foregroundRole());
}

QRect TextLabel::Room() const {
    return contentsRect().adjusted(qMax(indent(), 0), 0, 0, 0);
}

bool TextLabel::Fits(const QString& text) const {
    const QRect room = Room();
    if (!wordWrap()) return fontMetrics().horizontalAdvance(text) <= room.width();
    const QRect unlimited(0, 0, room.width(), QWIDGETSIZE_MAX);
    return fontMetrics().boundingRect(unlimited, Flags(), text).height() <= room.height();
}

QString TextLabel::Shortened() const {
    QString words = text();
    while (!Fits(words + kEllipsis)) {
        if (words.isEmpty()) return {};
        words.truncate(words.lastIndexOf(' '));
    }
    return words + kEllipsis;
}

int TextLabel::Flags() const {
    return static_cast<int>(alignment()) | (wordWrap() ? Qt::TextWordWrap : Qt::TextSingleLine);
}

}  // namespace ui::window
