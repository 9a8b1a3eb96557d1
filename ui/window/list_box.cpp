#include "ui/window/list_box.h"

namespace ui::window {

namespace {

constexpr int kFewestRows = 2;

}  // namespace

ListBox::ListBox(int usualHeight) : usualHeight_(usualHeight) {
    setHorizontalScrollMode(ScrollPerPixel);
    setTextElideMode(Qt::ElideNone);
    // Tab leaves the list; the arrow keys move in it.
    setTabKeyNavigation(false);
    // At scales such as 150 % the entries' area is rounded up and would cover the frame.
    setViewportMargins(1, 1, 1, 1);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
}

void ListBox::Show(const QStringList& texts) {
    QStringList shown;
    for (int row = 0; row < count(); ++row)
        shown += item(row)->text();
    if (shown == texts) return;
    const int place = currentRow();
    clear();
    addItems(texts);
    setCurrentRow(qMin(place, count() - 1), QItemSelectionModel::NoUpdate);
}

QSize ListBox::sizeHint() const {
    return {QListWidget::sizeHint().width(), usualHeight_};
}

QSize ListBox::minimumSizeHint() const {
    const QMargins inside = viewportMargins();
    const int frame = 2 * frameWidth() + inside.top() + inside.bottom();
    return {QListWidget::minimumSizeHint().width(),
            kFewestRows * (fontMetrics().lineSpacing() + 1) + frame};
}

}  // namespace ui::window
