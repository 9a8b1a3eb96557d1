#include "store/sale.h"

#include "store/transaction_types.h"

namespace store {

// kept: marks-in-memory. The data-set file stays as it is, and nothing reads the marks.
void MarkAsPosted(platform::database::ClientRecordset& sales, const platform::DateTime& moment) {
    sales.Edit();
    sales.Set("SalesStatus", sales_status::kTransferred);
    sales.Set("DayEndDate", moment);
    sales.Update();
}

}  // namespace store
