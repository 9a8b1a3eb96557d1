#include "store/master_data.h"

#include "store/transaction_types.h"

namespace store {

void ResetStatus(platform::database::ClientRecordset& rows) {
    rows.Edit();
    rows.Set("Status", master_status::kNothingToDo);
    rows.Update();
}

}  // namespace store
