// Partners and items in the tables of a local company. Knows no rules but those about the code.
#pragma once

#include <string>
#include <string_view>

#include "localcompany/codes.h"
#include "localcompany/company_session.h"
#include "platform/sapdi/master_record.h"

namespace localcompany {

// A new row; what was never set is null. Error -2035 where the code exists, -5002 where it is
// blank.
void InsertRecord(CompanySession& session, const CodeTable& table,
                  const sapdi::MasterRecord& record);

// Changes what was set. Gives the code as the company has it; error -5002 where it is blank, -2028
// where the company does not have it.
std::string UpdateRecord(CompanySession& session, const CodeTable& table,
                         const sapdi::MasterRecord& record);

// False, with the record as it was, where the company does not have the code.
bool LoadRecord(CompanySession& session, const CodeTable& table, std::string_view code,
                sapdi::MasterRecord& record);

}  // namespace localcompany
