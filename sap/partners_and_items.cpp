#include "sap/partners_and_items.h"

#include <cstdint>
#include <memory>

#include "app/field_values.h"
#include "platform/norwegian.h"

namespace sap {

namespace {

using platform::Value;
using platform::sapdi::BusinessPartners;
using platform::sapdi::Items;
using platform::sapdi::ObjectType;

// Everything but the code, which a partner keeps.
void SetProperties(BusinessPartners& partner, const Customer& customer) {
    partner.SetCardName(customer.Name);
    partner.SetPhone1(customer.Phone);
    partner.SetFax(customer.Fax);
    partner.SetEmailAddress(customer.EMail);
    partner.SetAddress(customer.Address1);
    partner.SetBlock(customer.Address2);
    partner.SetCity(customer.PostalAddress);
    partner.SetZipCode(customer.PostalCode);
}

// Writes a price into the price list whose number (from 1) the option holds; without such a number
// the price is not written.
void SetPrice(const TransferContext& context, Items& item, const char* option, double price) {
    const Value number = app::NzNumber(context.Option(option));
    if (platform::Compare(number, 0) != platform::Ordering::Greater) return;
    item.PriceList().SetCurrentLine(platform::ToInt32(platform::ToDouble(number) - 1));
    item.PriceList().SetPrice(price);
}

// The sales price first: where both options name one list, the cost price stands in the end.
void SetPrices(const TransferContext& context, Items& item, const Product& product) {
    SetPrice(context, item, "SAPSalesPriceList", product.Price);
    SetPrice(context, item, "SAPCostPriceList", product.CostPrice);
}

// Whether the last add or update left no error. An error is told with a blank in the place of the
// sign of a code that is not negative.
bool IsTaken(const TransferContext& context) {
    const platform::sapdi::LastError error = context.objects.SAPCompany->GetLastError();
    if (error.code == 0) return true;
    const std::string code = (error.code < 0 ? "" : " ") + std::to_string(error.code);
    context.theOperator.Show(
        {std::nullopt, "Found error:" + code + "," + error.text, platform::Icon::None});
    return false;
}

// Tells a result other than 0.
void CheckResult(const TransferContext& context, std::int32_t result, const std::string& failure,
                 const std::string& code, const std::string& name) {
    if (result != 0) context.Warn(failure + code + " - " + name);
}

}  // namespace

bool CreateCustomerInSAP(const TransferContext& context, const Customer& customer) {
    const auto partner = platform::sapdi::GetObject<BusinessPartners>(*context.objects.SAPCompany,
                                                                      ObjectType::BusinessPartners);
    partner->SetCardCode(customer.ID);
    SetProperties(*partner, customer);
    CheckResult(context, partner->Add(), "Fikk ikke opprettet kunde ", customer.ID, customer.Name);
    return IsTaken(context);
}

bool UpdateCustomerInSAP(const TransferContext& context, const Customer& customer) {
    const auto partner = platform::sapdi::GetObject<BusinessPartners>(*context.objects.SAPCompany,
                                                                      ObjectType::BusinessPartners);
    if (!partner->GetByKey(customer.ID)) return false;
    SetProperties(*partner, customer);
    CheckResult(context, partner->Update(), "Fikk ikke endret kunde ", customer.ID, customer.Name);
    return IsTaken(context);
}

bool CreateProductInSAP(const TransferContext& context, const Product& product) {
    const auto item =
        platform::sapdi::GetObject<Items>(*context.objects.SAPCompany, ObjectType::Items);
    item->SetItemCode(product.ID);
    item->SetItemName(product.Description);
    SetPrices(context, *item, product);
    CheckResult(context, item->Add(), "Fikk ikke opprettet produkt ", product.ID,
                product.Description);
    return IsTaken(context);
}

bool UpdateProductInSAP(const TransferContext& context, const Product& product) {
    const auto item =
        platform::sapdi::GetObject<Items>(*context.objects.SAPCompany, ObjectType::Items);
    if (!item->GetByKey(product.ID)) return false;
    item->SetItemName(product.Description);
    SetPrices(context, *item, product);
    CheckResult(context, item->Update(), "Fikk ikke endret produkt ", product.ID,
                product.Description);
    return IsTaken(context);
}

}  // namespace sap
