// What the routines of the SAP transfer work with: the SAP objects, which live until they are
// replaced, and what they are handed from outside.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "app/app_settings.h"
#include "platform/object_variable.h"
#include "platform/operator.h"
#include "platform/sapdi/business_objects.h"
#include "platform/sapdi/company.h"
#include "store/databases.h"
#include "ui/run_state.h"

namespace sap {

// SalesDocument, CustomerPartner and PaymentEntry stay as the last routine left them: the next one
// reads from them.
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
    const store::Databases& databases;
    ui::RunState& runState;
    SapObjects& objects;
    platform::Operator& theOperator;

    // A box with the exclamation icon and the application's title.
    void Warn(const std::string& text) const {
        theOperator.Show({AppSettings.AppTitle, text, platform::Icon::Exclamation});
    }

    // A field of the store's Options row: as it is or, while the sales of a day are transferred, as
    // it was when that day first asked for it.
    [[nodiscard]] platform::Value Option(std::string_view field) const;

    // What the day has read of the row. One set of options holds for all documents of a day, and a
    // table recordset goes to the file with every read, which took a fifth of the transfer.
    using ReadOptions = std::map<std::string, platform::Value, std::less<>>;
    mutable std::optional<ReadOptions> optionsOfDay = std::nullopt;
};

// Looks at the outcome of the last add. On an error, tells it with `heading` in front of code and
// text, flags the data set, and starts a transaction again, since the failure has ended the open
// one.
void ReportLastError(const TransferContext& context, const std::string& heading);

}  // namespace sap
