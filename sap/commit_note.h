// Whether SAP holds a day already: noted just before the day is committed, and looked up when a
// data set is transferred whose files a server that was ended in between could not mark any more.
#pragma once

#include <string>

#include "sap/transfer_context.h"

namespace sap {

// Notes the document that the day added last: it is in SAP when the day's transaction is committed,
// and not when it is rolled back. A day without documents is not noted.
void NoteCommit(const TransferContext& context, const std::string& dataSetName);

// The day's files have their finished names.
void ForgetCommit(const std::string& dataSetName);

// Whether this very day was noted and its last document is in SAP. Needs the connection.
[[nodiscard]] bool IsCommitted(const TransferContext& context, const std::string& dataSetName);

}  // namespace sap
