// A list of one-line texts: long ones scroll, and its frame is whole at every scale.
#pragma once

#include <QListWidget>

namespace ui::window {

class ListBox : public QListWidget {
  public:
    explicit ListBox(int usualHeight = 0);

    // Does nothing where it shows them already; else the current row keeps its place.
    void Show(const QStringList& texts);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  private:
    int usualHeight_;
};

}  // namespace ui::window
