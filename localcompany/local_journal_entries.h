// The journal entries of a local company, tables OJDT and JDT1.
#pragma once

#include <memory>

#include "localcompany/company_session.h"
#include "platform/sapdi/business_objects.h"

namespace localcompany {

[[nodiscard]] std::unique_ptr<sapdi::JournalEntries> NewLocalJournalEntries(
    std::shared_ptr<CompanySession> session);

}  // namespace localcompany
