// What the routines of the SAP transfer work with: the SAP objects, which live until they are
// replaced, and what they are handed from outside.
#pragma once

#include <string>

#include "app/app_settings.h"
#include "platform/object_variable.h"
#include "platform/operator.h"
#include "platform/sapdi/business_objects.h"
#include "platform/sapdi/company.h"
#include "store/options.h"

namespace sap {

// kept: state-stays. As the last routine left them, and the payment routines read from them.
struct SapObjects {
    template <class T>
    using Variable = platform::ObjectVariable<T>;

    Variable<platform::sapdi::Company> SAPCompany{"SAPCompany"};
    Variable<platform::sapdi::Documents> SalesDocument{"SalesDocument"};
    Variable<platform::sapdi::Query> SAPQuery{"SAPQuery"};
    Variable<platform::sapdi::BusinessPartners> CustomerPartner{"CustomerPartner"};
    Variable<platform::sapdi::JournalEntries> PaymentEntry{"PaymentEntry"};
};

struct TransferContext {
    const app::AppSettings& AppSettings;
    store::Options Options;
    SapObjects& objects;
    bool& DataSetHasErrors;
    platform::Operator& theOperator;

    // A box with the exclamation icon and the application's title.
    void Warn(const std::string& text) const {
        theOperator.Show({AppSettings.AppTitle, text, platform::Icon::Exclamation});
    }
};

// Looks at the outcome of the last add. On an error, tells it with `heading` in front of code and
// text, flags the data set, and starts a transaction again: the failure has ended the open one.
// kept: two-messages. What could not be done was told before.
void ReportLastError(const TransferContext& context, const std::string& heading);

}  // namespace sap
