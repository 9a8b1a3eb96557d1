#include "store/master_data.h"

#include "platform/comparison.h"
#include "store/transaction_types.h"

namespace store {

namespace {

using platform::Value;
using platform::database::ClientRecordset;
using platform::database::SinceRead;

void SetStatus(ClientRecordset& rows, int status) {
    rows.Edit();
    rows.Set("Status", status);
    rows.Update();
}

// It exists where it was sent to, and can not be sent there as new again.
void MarkAsChangedIfNew(ClientRecordset& rows) {
    if (platform::Equals(rows.Get("Status"), master_status::kNew)) {
        SetStatus(rows, master_status::kChanged);
    }
}

}  // namespace

void ResetStatus(ClientRecordset& rows) {
    SetStatus(rows, master_status::kNothingToDo);
}

void MarkAsSent(platform::database::Database& storeDatabase, ClientRecordset& rows) {
    const auto transaction = storeDatabase.BeginTransaction();
    const Value sent = rows.Get("ID");
    const SinceRead since = rows.Refresh();
    if (since == SinceRead::Unchanged) ResetStatus(rows);
    // Another one in the place of a row that is gone was never sent.
    if (since == SinceRead::Changed && platform::Equals(rows.Get("ID"), sent)) {
        MarkAsChangedIfNew(rows);
    }
    transaction->Commit();
}

}  // namespace store
