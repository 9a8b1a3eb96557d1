// The operator window: shows frmMain's contents and presses its Start. Knows nothing of what a run
// does; while one goes on no events are processed.
#pragma once

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <QWidget>
#include <string_view>

#include "platform/operator.h"
#include "ui/frm_main.h"
#include "ui/run_driver.h"
#include "ui/window/button.h"
#include "ui/window/heading_panel.h"
#include "ui/window/list_box.h"

namespace ui {

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

  private:
    void SetUpControls();
    void ArrangeControls();
    void ApplyFonts();
    void Start() noexcept;
    void TakeSelection();
    void RebuildDataSetList();
    [[nodiscard]] bool ShowsTheDataSets() const;

    frmMain& contents_;
    RunDriver& driver_;
    platform::Operator& operator_;

    QVBoxLayout column_{this};
    QVBoxLayout body_;
    QHBoxLayout buttons_;
    HeadingPanel panel_;
    QLabel dataSetsCaption_;
    ListBox dataSets_;
    QLabel logCaption_;
    ListBox log_;
    Button start_;
    Button close_;
};

}  // namespace ui
