#include "sap/transfer_context.h"

namespace sap {

void ReportLastError(const TransferContext& context, const std::string& heading) {
    platform::sapdi::Company& company = *context.objects.SAPCompany;
    const platform::sapdi::LastError error = company.GetLastError();
    if (error.code == 0) return;
    context.Warn(heading + std::to_string(error.code) + "," + error.text);
    context.DataSetHasErrors = true;
    company.StartTransaction();  // kept: on-after-a-failure. The day will be rolled back.
}

}  // namespace sap
