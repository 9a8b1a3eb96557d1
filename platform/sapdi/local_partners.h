// The business partners of a local company, table OCRD.
#pragma once

#include <memory>

#include "platform/sapdi/business_objects.h"
#include "platform/sapdi/company_session.h"

namespace platform::sapdi {

[[nodiscard]] std::unique_ptr<BusinessPartners> NewLocalPartners(
    std::shared_ptr<CompanySession> session);

}  // namespace platform::sapdi
