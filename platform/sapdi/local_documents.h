// The sales documents of a local company, a pair of tables for each kind.
#pragma once

#include <memory>

#include "platform/sapdi/business_objects.h"
#include "platform/sapdi/company_session.h"

namespace platform::sapdi {

// An empty document; error 5 where the type is no document.
[[nodiscard]] std::unique_ptr<Documents> NewLocalDocuments(std::shared_ptr<CompanySession> session,
                                                           ObjectType type);

}  // namespace platform::sapdi
