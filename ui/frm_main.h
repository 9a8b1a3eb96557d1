// The main window's contents and behaviour without a toolkit: what its controls hold and what
// happens when they are used. A window or a terminal shows it; it knows neither.
#pragma once

#include <string>
#include <vector>

#include "app/app_settings.h"
#include "platform/operator.h"
#include "store/data_set.h"
#include "ui/status_log.h"

namespace ui {

// An entry of the data-set list. The operator sees the data set's display name.
struct ListEntry {
    store::DataSet dataSet;
    bool isSelected = false;
};

// The file list: the names in the current directory that match its pattern, as they were at the
// last refresh.
class FileList {
  public:
    void SetPattern(std::string pattern);  // refreshes
    void Refresh();
    [[nodiscard]] const std::vector<std::string>& Names() const { return names_; }

  private:
    std::string pattern_ = "*DayEnd*.xml";
    std::vector<std::string> names_;
};

class frmMain : public StatusLog {
  public:
    static constexpr const char* kCaption = "Dagsoppgjør på server";
    static constexpr const char* kLabel2 = "Dagsoppgjør på server for Kassovia";
    static constexpr const char* kLabel3 =
        "Listen under viser hvilke filer som ligger klare for oppdatering i regnskapssystemet. "
        "Husk å ta backup av data i regnskapssystemet før overføring.";
    static constexpr const char* kLabel4 = "Datasett som ikke er oppdatert:";
    static constexpr const char* kLabel5 = "Status:";
    static constexpr const char* kStartText = "&Start";
    static constexpr const char* kCloseText = "&Lukk";
    static constexpr const char* kFileTooltip = "Velg filer som skal overføres.";

    frmMain(const app::AppSettings& appSettings, platform::Operator& theOperator);

    // The load handler: takes the pattern of the settings and fills the data-set list.
    void Load();

    void RefreshDataSetList();

    void AppendStatusLine(std::string line) override;

    std::vector<ListEntry> ListDayEnd;  // the waiting data sets
    std::vector<std::string> List;      // the status log
    FileList File;

  private:
    const app::AppSettings& appSettings_;
    platform::Operator& operator_;
};

}  // namespace ui
