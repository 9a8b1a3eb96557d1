// What every kind of sales document shares on its way into SAP: the objects, the head, the lines,
// and how an add ends.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "sap/document_head.h"
#include "sap/document_line.h"
#include "sap/transfer_context.h"

namespace sap {

struct SaleToPost {
    store::Sale sale;
    std::int16_t number;
    std::int16_t type;
    bool isCredit;  // the sum of its item lines is 0 or below
};

void CreateDocument(const TransferContext& context, platform::sapdi::ObjectType type);

// A new CustomerPartner, on no partner yet.
void CreateCustomerPartner(const TransferContext& context);

// The parts of the head of SalesDocument, which each kind of document sets in an order of its own.
void SetCustomerAndReferences(const TransferContext& context, const DocumentHead& head);
void SetRemarks(const TransferContext& context, const DocumentHead& head);
void SetSalesPerson(const TransferContext& context, const DocumentHead& head);

// Has CustomerPartner find the document's customer; one that there is not leaves it as it was.
void FindCustomerPartner(const TransferContext& context);

// Fills the current line of SalesDocument. A refused price is told to the operator, with what
// becomes of it.
void SetLine(const TransferContext& context, const store::SaleLine& line,
             const DocumentLine& values, std::string_view consequence);

// Adds SalesDocument, loads it again under its key and gives the key. A failure is told with
// `failure` and the sale's number, leaves the document as an XML file and flags the data set.
[[nodiscard]] std::optional<std::int32_t> AddDocument(const TransferContext& context,
                                                      const SaleToPost& sale,
                                                      const std::string& failure);

}  // namespace sap
