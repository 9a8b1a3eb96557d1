// The items of a local company, tables OITM and, for the prices, ITM1.
#pragma once

#include <memory>

#include "platform/sapdi/business_objects.h"
#include "platform/sapdi/company_session.h"

namespace platform::sapdi {

[[nodiscard]] std::unique_ptr<Items> NewLocalItems(std::shared_ptr<CompanySession> session);

}  // namespace platform::sapdi
