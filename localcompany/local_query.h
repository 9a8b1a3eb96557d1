// Queries on the database of a local company.
#pragma once

#include <memory>

#include "localcompany/company_session.h"
#include "platform/sapdi/business_objects.h"

namespace localcompany {

[[nodiscard]] std::unique_ptr<sapdi::Query> NewLocalQuery(std::shared_ptr<CompanySession> session);

}  // namespace localcompany
