#include "sap/document_head.h"

#include "app/field_values.h"
#include "platform/comparison.h"
#include "platform/date_text.h"
#include "platform/norwegian.h"
#include "platform/text.h"

namespace sap {

using app::NzNumber;
using app::NzText;
using platform::Value;
using store::Options;
using store::Sale;

namespace {

constexpr std::size_t kCustomerReferenceLength = 16;

std::string Trimmed(const std::string& text) {
    return std::string(platform::Trim(text));
}

// kept: customer-with-blanks. A code is passed on with the blanks around it.
std::string CustomerCodeOf(const Sale& sale, const Options& options) {
    const std::string customerID = platform::ToText(sale.CustomerID());
    return platform::Trim(customerID).empty() ? NzText(options.DefaultCustomerID()) : customerID;
}

platform::DateTime DateOf(const Sale& sale) {
    return platform::ToDate(app::YmdToDateText(platform::ToInt32(sale.SalesDate())));
}

std::optional<std::int32_t> SalesPersonOf(const Sale& sale) {
    const Value seller = NzNumber(sale.SelBuy());
    if (platform::Compare(seller, 0) != platform::Ordering::Greater) return std::nullopt;
    return platform::ToInt32(seller);
}

DocumentHead HeadOf(const Sale& sale, std::int16_t saleNumber, const Options& options) {
    DocumentHead head;
    head.cardCode = CustomerCodeOf(sale, options);
    head.cardName = Trimmed(NzText(sale.CustomerName()));
    head.reference = std::to_string(saleNumber);
    head.comments = "Salg " + head.reference + " fra Kassovia.";
    return head;
}

}  // namespace

DocumentHead ReceiptHead(const Sale& sale, std::int16_t saleNumber, const Options& options) {
    DocumentHead head = HeadOf(sale, saleNumber, options);
    head.numAtCard = head.reference;
    head.date = DateOf(sale);
    head.ownReference = Trimmed(NzText(sale.OurRef()));
    head.salesPersonCode = SalesPersonOf(sale);
    return head;
}

DocumentHead OrderHead(const Sale& sale, std::int16_t saleNumber, const Options& options) {
    DocumentHead head = HeadOf(sale, saleNumber, options);
    // kept: cut-and-trim. Trimmed first: blanks in front do not count.
    head.numAtCard = platform::Left(Trimmed(NzText(sale.YourRef())), kCustomerReferenceLength);
    head.ownReference = Trimmed(NzText(sale.OurRef()));
    head.date = DateOf(sale);
    head.salesPersonCode = SalesPersonOf(sale);
    return head;
}

}  // namespace sap
