// The pointer's shape over every window of the program, for as long as this object lives.
#pragma once

#include <QApplication>

namespace ui::window {

class OverrideCursor {
  public:
    explicit OverrideCursor(Qt::CursorShape shape) { QApplication::setOverrideCursor(shape); }
    ~OverrideCursor() { QApplication::restoreOverrideCursor(); }
    OverrideCursor(const OverrideCursor&) = delete;
    OverrideCursor& operator=(const OverrideCursor&) = delete;
};

}  // namespace ui::window
