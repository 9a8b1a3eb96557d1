// What a check reads: the settings, the databases, and the outside that is handed in. It changes
// nothing of it: the engine opens databases for reading alone.
#pragma once

#include <functional>
#include <memory>

#include "app/app_settings.h"
#include "control/findings.h"
#include "platform/clock.h"
#include "platform/database/database.h"
#include "platform/sapdi/company.h"
#include "store/databases.h"
#include "store/options.h"

namespace control {

struct Surroundings {
    const app::AppSettings& settings;
    platform::database::DatabaseEngine& readingEngine;
    // An empty database that belongs to nobody and goes with the object.
    std::function<std::unique_ptr<platform::database::Database>()> makeScratch;
    platform::sapdi::Connector& sapConnector;
    const platform::Clock& clock;
};

class Shop {
  public:
    // Opens what there is of the databases; what there is not is K006, or K005.
    Shop(const Surroundings& surroundings, Findings& findings);

    [[nodiscard]] const Surroundings& Outside() const { return surroundings_; }
    [[nodiscard]] const app::AppSettings& Settings() const { return surroundings_.settings; }
    [[nodiscard]] const store::Databases& Databases() const { return databases_; }
    [[nodiscard]] store::Options Options() const { return store::Options(databases_.OptionsTable); }

    [[nodiscard]] bool UsesSap() const;
    [[nodiscard]] bool HasOptions() const { return hasOptions_; }  // the row

    // The work table of that name, for its columns; null where there is none.
    [[nodiscard]] std::unique_ptr<platform::database::TableAppender> WorkTable(
        const char* name) const;

  private:
    void OpenStore(Findings& findings);
    void OpenWork(Findings& findings);
    void ReadOptions(Findings& findings);

    const Surroundings& surroundings_;
    store::Databases databases_;
    bool hasOptions_ = false;
};

}  // namespace control
