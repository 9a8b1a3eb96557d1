// What the head of a document says of a sale. Pure: reads what it is given.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/value.h"
#include "store/options.h"
#include "store/sale.h"

namespace sap {

struct DocumentHead {
    std::string cardCode;
    std::string cardName;
    std::string numAtCard;    // the customer's reference
    std::string reference;    // both references: the sale's number
    platform::DateTime date;  // both dates
    std::string comments;
    std::string ownReference;
    std::optional<std::int32_t> salesPersonCode;
};

// The head of an invoice or a credit note, and that of an order, a delivery or a return. A sales
// date that is none is error 13, a null one 94.
[[nodiscard]] DocumentHead ReceiptHead(const store::Sale& sale, std::int16_t saleNumber,
                                       const store::Options& options);
[[nodiscard]] DocumentHead OrderHead(const store::Sale& sale, std::int16_t saleNumber,
                                     const store::Options& options);

}  // namespace sap
