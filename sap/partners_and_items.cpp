#include "sap/partners_and_items.h"

#include <cstdint>
#include <memory>

#include "app/field_values.h"
#include "platform/comparison.h"
#include "platform/norwegian.h"

namespace sap {

namespace {

using platform::Value;
using platform::sapdi::BusinessPartners;
using platform::sapdi::Items;
using platform::sapdi::ObjectType;

// Everything but the code, which a partner keeps.
// kept: fields-sap-never-gets. Third and fourth address, groups and discount are not sent.
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
void SetPrice(Items& item, const Value& option, double price) {
    const Value number = app::NzNumber(option);
    if (platform::Compare(number, 0) != platform::Ordering::Greater) return;
    item.PriceList().SetCurrentLine(platform::ToInt32(platform::ToDouble(number) - 1));
    item.PriceList().SetPrice(price);
}

// kept: cost-over-price. Where both options name one list, the cost price stands in the end.
void SetPrices(const TransferContext& context, Items& item, const Product& product) {
    SetPrice(item, context.Options.SAPSalesPriceList(), product.Price);
    SetPrice(item, context.Options.SAPCostPriceList(), product.CostPrice);
}

// Whether the last add or update left no error.
// kept: boxes-without-a-title. That of documents, with the same words, has one.
bool IsTaken(const TransferContext& context) {
    const platform::sapdi::LastError error = context.objects.SAPCompany->GetLastError();
    if (error.code == 0) return true;
    // kept: blank-for-a-sign. That of documents has none.
    const std::string code = (error.code < 0 ? "" : " ") + std::to_string(error.code);
    context.theOperator.Show(
        {std::nullopt, "Found error:" + code + "," + error.text, platform::Icon::None});
    return false;
}

// kept: two-messages. What could not be done here, the company's reason in a box of its own.
void CheckResult(const TransferContext& context, std::int32_t result, const std::string& failure,
                 const std::string& code, const std::string& name) {
    if (result != 0) context.Warn(failure + code + " - " + name);
}

}  // namespace

Customer CustomerOf(const store::Customer& row) {
    using app::NzText;
    return {NzText(row.ID()),         NzText(row.Name()),          NzText(row.Address1()),
            NzText(row.Address2()),   NzText(row.Address3()),      NzText(row.Address4()),
            NzText(row.PostalCode()), NzText(row.PostalAddress()), NzText(row.Phone()),
            NzText(row.Fax()),        NzText(row.CustPrGr()),      NzText(row.CustPrG2()),
            NzText(row.EMail()),      NzText(row.Discount())};
}

Product ProductOf(const store::Product& row) {
    using app::NzText;
    return {NzText(row.ID()), NzText(row.Description()), NzText(row.BarCode()),
            platform::ToDouble(app::NzNumber(row.Price())),
            platform::ToDouble(app::NzNumber(row.CostPrice()))};
}

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
    if (!partner->GetByKey(customer.ID)) return false;  // kept: unknown-change-is-quiet
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
    if (!item->GetByKey(product.ID)) return false;  // kept: unknown-change-is-quiet
    item->SetItemName(product.Description);
    SetPrices(context, *item, product);
    CheckResult(context, item->Update(), "Fikk ikke endret produkt ", product.ID,
                product.Description);
    return IsTaken(context);
}

}  // namespace sap
