#include "ui/window/list_box.h"

namespace ui {

ListBox::ListBox() {
    setHorizontalScrollMode(ScrollPerPixel);
    setTextElideMode(Qt::ElideNone);
    setTabKeyNavigation(false);
    // At scales such as 150 % the entries' area is rounded up and would cover the frame.
    setViewportMargins(1, 1, 1, 1);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
}

}  // namespace ui
