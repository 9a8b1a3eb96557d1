#include "control/vat_rates.h"

#include "fileexport/order_file.h"
#include "fileexport/order_record.h"
#include "platform/error.h"
#include "platform/norwegian.h"

namespace control {

using platform::RuntimeError;

namespace {

constexpr double kAnyPrice = 100;

VatRateIs AskFor(const Shop& shop, const std::string& vatCode) {
    if (!shop.Databases().TaxTable) return VatRateIs::Usable;  // told as K006
    platform::database::TableRecordset& table = *shop.Databases().TaxTable;
    try {
        const double rate = fileexport::VatRate(table, vatCode);
        if (table.NoMatch()) return VatRateIs::Missing;
        (void)fileexport::NetPrice(kAnyPrice, rate);
        return VatRateIs::Usable;
    } catch (const RuntimeError& error) {
        return error.Number() == platform::error_number::kNoSuchIndex ? VatRateIs::Usable
                                                                      : VatRateIs::Fatal;
    }
}

}  // namespace

VatRates::VatRates(const Shop& shop)
    : rates_([&shop](const std::string& vatCode) { return AskFor(shop, vatCode); }) {}

VatRateIs VatRates::Of(const platform::Value& vatCode) {
    return rates_.Of(platform::ToText(vatCode));
}

}  // namespace control
