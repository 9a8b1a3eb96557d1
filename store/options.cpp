#include "store/options.h"

#include "platform/norwegian.h"

namespace store {

void Options::AdvanceNextVoucherNo() const {
    platform::database::TableRecordset& row = *table_;
    row.Edit();
    const platform::Value voucherNo = row.Get("NextVoucherNo");
    row.Set("NextVoucherNo", voucherNo.IsNull()
                                 ? platform::Value()
                                 : platform::Value(platform::ToDouble(voucherNo) + 1));
    row.Update();
}

}  // namespace store
