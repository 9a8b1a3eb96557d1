#include "sap/transfer_context.h"

namespace sap {

platform::Value TransferContext::Option(std::string_view field) const {
    if (!optionsOfDay) return databases.OptionsTable->Get(field);
    const auto known = optionsOfDay->find(field);
    if (known != optionsOfDay->end()) return known->second;
    return optionsOfDay->emplace(field, databases.OptionsTable->Get(field)).first->second;
}

void ReportLastError(const TransferContext& context, const std::string& heading) {
    platform::sapdi::Company& company = *context.objects.SAPCompany;
    const platform::sapdi::LastError error = company.GetLastError();
    if (error.code == 0) return;
    context.Warn(heading + std::to_string(error.code) + "," + error.text);
    context.runState.DataSetHasErrors = true;
    company.StartTransaction();
}

}  // namespace sap
