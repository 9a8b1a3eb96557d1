// A push button that is never smaller than the window's arrangement has it.
#pragma once

#include <QPushButton>

namespace ui::window {

class Button : public QPushButton {
  public:
    explicit Button(const QString& text);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }
};

}  // namespace ui::window
