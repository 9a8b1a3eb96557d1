// The items of a local company, tables OITM and, for the prices, ITM1.
#pragma once

#include <memory>

#include "localcompany/company_session.h"
#include "platform/sapdi/business_objects.h"

namespace localcompany {

[[nodiscard]] std::unique_ptr<sapdi::Items> NewLocalItems(std::shared_ptr<CompanySession> session);

}  // namespace localcompany
