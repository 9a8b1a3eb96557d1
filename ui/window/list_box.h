// A list of one-line texts: long ones scroll, and its frame is whole at every scale.
#pragma once

#include <QListWidget>

namespace ui {

class ListBox : public QListWidget {
  public:
    ListBox();
};

}  // namespace ui
