// A sale of a data set, seen through the names of its columns. A member reads its field when it is
// asked, so that an error comes where a rule reads the field.
#pragma once

#include "platform/clock.h"
#include "platform/database/client_recordset.h"
#include "platform/value.h"

namespace store {

class Sale {
  public:
    using Value = platform::Value;

    explicit Sale(const platform::database::Record& record) : record_(record) {}

    [[nodiscard]] Value ID() const { return record_.Get("ID"); }
    [[nodiscard]] Value SalesType() const { return record_.Get("SalesType"); }  // store::sales_type
    [[nodiscard]] Value SalesDate() const { return record_.Get("SalesDate"); }  // YYYYMMDD
    [[nodiscard]] Value CustomerID() const { return record_.Get("CustomerID"); }
    [[nodiscard]] Value CustomerName() const { return record_.Get("CustomerName"); }
    [[nodiscard]] Value Project() const { return record_.Get("Project"); }
    [[nodiscard]] Value OurRef() const { return record_.Get("OurRef"); }
    [[nodiscard]] Value YourRef() const { return record_.Get("YourRef"); }
    [[nodiscard]] Value SelBuy() const { return record_.Get("SelBuy"); }  // the seller's number

  private:
    const platform::database::Record& record_;
};

void MarkAsPosted(platform::database::ClientRecordset& sales, const platform::DateTime& moment);

}  // namespace store
