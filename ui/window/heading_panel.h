// The heading area of the main window: title, instructions and picture.
#pragma once

#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QVBoxLayout>
#include <QWidget>

namespace ui {

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

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void MakeRoomForInstructions();

    QHBoxLayout row_{this};
    QVBoxLayout texts_;
    QLabel heading_;
    QLabel instructions_;
    Picture picture_;
};

}  // namespace ui
