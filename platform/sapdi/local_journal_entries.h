// The journal entries of a local company, tables OJDT and JDT1.
#pragma once

#include <memory>

#include "platform/sapdi/business_objects.h"
#include "platform/sapdi/company_session.h"

namespace platform::sapdi {

[[nodiscard]] std::unique_ptr<JournalEntries> NewLocalJournalEntries(
    std::shared_ptr<CompanySession> session);

}  // namespace platform::sapdi
