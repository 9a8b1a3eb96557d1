// The operator window: shows frmMain's contents and presses its Start. Knows nothing of what a run
// does; while one goes on no events are processed.
#pragma once

#include <QHBoxLayout>
#include <QVBoxLayout>
#include <QWidget>
#include <string_view>

#include "platform/operator.h"
#include "ui/frm_main.h"
#include "ui/run_driver.h"
#include "ui/window/button.h"
#include "ui/window/heading_panel.h"
#include "ui/window/list_box.h"
#include "ui/window/text_label.h"

namespace ui::window {

class MainWindow : public QWidget {
  public:
    // An error of a run is reported to the operator and ends the event loop with status 3.
    MainWindow(frmMain& contents, RunDriver& driver, platform::Operator& theOperator);

    // Appends to the log and paints the window at once.
    void ShowStatusLine(std::string_view line);

    // Shows the data sets and which of them are selected, as the contents have them, at once.
    void ShowContents();

  protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void NameControls();
    void SetUpControls();
    void ArrangeControls();
    void ApplyFonts();
    [[nodiscard]] QSize FittingSize() const;
    [[nodiscard]] int UsualHeight(int width) const;
    void Start() noexcept;
    void TakeSelection();

    frmMain& contents_;
    RunDriver& driver_;
    platform::Operator& operator_;

    QVBoxLayout column_{this};
    QVBoxLayout body_;
    QHBoxLayout buttons_;
    // By their names in the running window.
    HeadingPanel Picture1;
    TextLabel Label4;
    ListBox ListDayEnd;
    TextLabel Label5;
    ListBox List;
    Button btStart;
    Button btClose;
    ListBox File;  // hidden: the files behind the data sets, for tools that look into the window
};

}  // namespace ui::window
