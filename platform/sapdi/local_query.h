// Queries on the database of a local company.
#pragma once

#include <memory>

#include "platform/sapdi/business_objects.h"
#include "platform/sapdi/company_session.h"

namespace platform::sapdi {

[[nodiscard]] std::unique_ptr<Query> NewLocalQuery(std::shared_ptr<CompanySession> session);

}  // namespace platform::sapdi
