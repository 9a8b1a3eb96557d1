// The local company: an SQLite file that stands in for an SAP Business One company, with the checks
// and tables of the real one that the transfer relies on.
#pragma once

#include <memory>
#include <string>

#include "platform/database/database.h"
#include "platform/sapdi/company.h"

namespace localcompany {

namespace database = platform::database;
namespace sapdi = platform::sapdi;

// Reaches the company when the server is empty, "(local)" or an existing folder: the file
// `CompanyDB` + ".company" in that folder (the program folder for the first two). The engine
// outlives it.
class LocalConnector : public sapdi::Connector {
  public:
    LocalConnector(database::DatabaseEngine& engine, std::string programFolder);
    [[nodiscard]] std::unique_ptr<sapdi::Company> CreateCompany() override;

  private:
    database::DatabaseEngine& engine_;
    std::string programFolder_;
};

}  // namespace localcompany
