// The tables of a company's database, made empty. Knows no company.
#pragma once

#include "platform/database/database.h"

namespace localcompany {

void CreateCompanyTables(platform::database::Database& database);

}  // namespace localcompany
