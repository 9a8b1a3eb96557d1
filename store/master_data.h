// The store's master data by the names of its columns, and the mark of a change that waits.
#pragma once

#include "platform/database/client_recordset.h"
#include "platform/database/database.h"
#include "platform/value.h"

namespace store {

class Customer {
  public:
    explicit Customer(const platform::database::Record& record) : record_(record) {}

    [[nodiscard]] platform::Value ID() const { return record_.Get("ID"); }
    [[nodiscard]] platform::Value Name() const { return record_.Get("Name"); }
    [[nodiscard]] platform::Value Address1() const { return record_.Get("Address1"); }
    [[nodiscard]] platform::Value Address2() const { return record_.Get("Address2"); }
    [[nodiscard]] platform::Value Address3() const { return record_.Get("Address3"); }
    [[nodiscard]] platform::Value Address4() const { return record_.Get("Address4"); }
    [[nodiscard]] platform::Value PostalCode() const { return record_.Get("PostalCode"); }
    [[nodiscard]] platform::Value PostalAddress() const { return record_.Get("PostalAddress"); }
    [[nodiscard]] platform::Value Phone() const { return record_.Get("Phone"); }
    [[nodiscard]] platform::Value Fax() const { return record_.Get("Fax"); }
    [[nodiscard]] platform::Value CustPrGr() const { return record_.Get("CustPrGr"); }
    [[nodiscard]] platform::Value CustPrG2() const { return record_.Get("CustPrG2"); }
    [[nodiscard]] platform::Value EMail() const { return record_.Get("EMail"); }
    [[nodiscard]] platform::Value Discount() const { return record_.Get("Discount"); }

  private:
    const platform::database::Record& record_;
};

class Product {
  public:
    explicit Product(const platform::database::Record& record) : record_(record) {}

    [[nodiscard]] platform::Value ID() const { return record_.Get("ID"); }
    [[nodiscard]] platform::Value Description() const { return record_.Get("Description"); }
    [[nodiscard]] platform::Value BarCode() const { return record_.Get("BarCode"); }
    [[nodiscard]] platform::Value Price() const { return record_.Get("Price"); }
    [[nodiscard]] platform::Value CostPrice() const { return record_.Get("CostPrice"); }

  private:
    const platform::database::Record& record_;
};

// The current row has nothing to transfer any more; saved at once.
void ResetStatus(platform::database::ClientRecordset& rows);

// The current row has been sent as it was read, which may be a while ago. What the store has
// changed since then still waits: as a change, also of a row that was new.
void MarkAsSent(platform::database::Database& storeDatabase,
                platform::database::ClientRecordset& rows);

}  // namespace store
