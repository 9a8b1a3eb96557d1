// The business partners of a local company, table OCRD.
#pragma once

#include <memory>

#include "localcompany/company_session.h"
#include "platform/sapdi/business_objects.h"

namespace localcompany {

[[nodiscard]] std::unique_ptr<sapdi::BusinessPartners> NewLocalPartners(
    std::shared_ptr<CompanySession> session);

}  // namespace localcompany
