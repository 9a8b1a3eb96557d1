// The heading area of the main window: title, instructions and picture.
#pragma once

#include <QHBoxLayout>
#include <QIcon>
#include <QVBoxLayout>
#include <QWidget>

#include "ui/window/text_label.h"

namespace ui::window {

// The program's picture, sharp at every scale; it is also the windows' icon.
[[nodiscard]] QIcon ProgramIcon();

// A font of so many points where the system's own has its usual 9; it grows with the system's.
[[nodiscard]] QFont ScaledFont(double points, QFont::Weight weight = QFont::Normal);

class Picture : public QWidget {
  public:
    Picture();

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QIcon icon_;
};

class HeadingPanel : public QWidget {
  public:
    HeadingPanel();

    // Takes up the system's font.
    void ApplyFonts();

    // What a panel so wide needs to show all of its texts.
    [[nodiscard]] int UsualHeight(int width) const;

    [[nodiscard]] QSize sizeHint() const override;

  protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    QHBoxLayout row_{this};
    QVBoxLayout texts_;
    TextLabel Label2;
    TextLabel Label3;
    Picture Image1;
};

}  // namespace ui::window
