// A text that is shortened where there is no room for it, and whole again as its tooltip.
#pragma once

#include <QLabel>

namespace ui::window {

class TextLabel : public QLabel {
  public:
    explicit TextLabel(const char* text);

    // Wrapped text asks for no room: whoever wraps it gives it what there is.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return {0, sizeHint().height()}; }
    [[nodiscard]] bool hasHeightForWidth() const override { return false; }

    // The whole text for a tooltip; empty where it can be read in the label.
    [[nodiscard]] QString MissedText() const;

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    [[nodiscard]] QRect Room() const;
    [[nodiscard]] bool Fits(const QString& text) const;
    [[nodiscard]] QString Shortened() const;
    [[nodiscard]] int Flags() const;
};

}  // namespace ui::window
