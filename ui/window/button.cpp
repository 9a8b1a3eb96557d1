#include "ui/window/button.h"

namespace ui::window {

namespace {

constexpr QSize kUsualSize(82, 31);  // pixels

}  // namespace

Button::Button(const QString& text) : QPushButton(text) {
    setAutoDefault(true);  // Enter presses the button that has the focus
    setAccessibleName(QString(text).remove('&'));
}

QSize Button::sizeHint() const {
    return QPushButton::sizeHint().expandedTo(kUsualSize);
}

}  // namespace ui::window
