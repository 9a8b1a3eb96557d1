// The sales documents of a local company, a pair of tables for each kind.
#pragma once

#include <memory>

#include "localcompany/company_session.h"
#include "platform/sapdi/business_objects.h"

namespace localcompany {

// An empty document; error 5 where the type is no document.
[[nodiscard]] std::unique_ptr<sapdi::Documents> NewLocalDocuments(
    std::shared_ptr<CompanySession> session, sapdi::ObjectType type);

}  // namespace localcompany
