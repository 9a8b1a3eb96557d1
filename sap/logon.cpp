#include "sap/logon.h"

#include <string>

#include "platform/text.h"

namespace sap {

namespace {

using platform::sapdi::Company;

std::string Prompt(platform::Operator& theOperator, const std::string& text, bool isPassword) {
    return theOperator.Prompt({"Pålogging", text, "", isPassword});
}

bool WantsTrustedLogin(const std::string& useTrusted) {
    // kept: false-is-trusted. No upper-cased text equals "False": the word switches it on.
    const bool isOff =
        useTrusted.empty() || useTrusted == "0" || platform::Upper(useTrusted) == "False";
    return !isOff;
}

void SetDatabaseLogin(Company& company, const TransferContext& context) {
    const app::AppSettings& settings = context.AppSettings;
    company.SetDbUserName(platform::IsBlank(settings.SAPDBUser)
                              ? Prompt(context.theOperator, "MSSQL bruker?", false)
                              : settings.SAPDBUser);
    if (platform::IsBlank(settings.SAPDBPassword)) {
        // kept: password-as-user. The answer replaces the user; the password stays unset.
        company.SetDbUserName(Prompt(context.theOperator, "MSSQL passord?", true));
    } else {
        company.SetDbPassword(settings.SAPDBPassword);
    }
}

void SetUserLogin(Company& company, const TransferContext& context) {
    const app::AppSettings& settings = context.AppSettings;
    company.SetUserName(platform::IsBlank(settings.SAPUserName)
                            ? Prompt(context.theOperator, "Bruker for SAP Business One?", false)
                            : settings.SAPUserName);
    company.SetPassword(
        platform::IsBlank(settings.SAPPassword)
            ? Prompt(context.theOperator, "Passord for '" + company.UserName() + "'?", true)
            : settings.SAPPassword);
}

// The outcome of the connect: 0 for a connected company.
std::int32_t Connect(const TransferContext& context, platform::sapdi::Connector& connector) {
    context.objects.SAPCompany = connector.CreateCompany();
    Company& company = *context.objects.SAPCompany;
    company.SetUseTrusted(WantsTrustedLogin(context.AppSettings.SAPUseTrusted));
    if (!company.UseTrusted()) SetDatabaseLogin(company, context);
    company.SetServer(context.AppSettings.SAPServer);
    company.SetCompanyDB(context.AppSettings.SAPCompanyDatabase);
    SetUserLogin(company, context);
    company.SetLanguage(platform::sapdi::kEnglish);
    return company.Connect();
}

bool LeaveNothingToAsk(const app::AppSettings& settings) {
    const bool isDatabaseLoginSet =
        WantsTrustedLogin(settings.SAPUseTrusted) ||
        (!platform::IsBlank(settings.SAPDBUser) && !platform::IsBlank(settings.SAPDBPassword));
    return isDatabaseLoginSet && !platform::IsBlank(settings.SAPUserName) &&
           !platform::IsBlank(settings.SAPPassword);
}

}  // namespace

bool LogonToSAP(const TransferContext& context, platform::sapdi::Connector& connector) {
    if (Connect(context, connector) == 0) return true;
    const platform::sapdi::LastError error = context.objects.SAPCompany->GetLastError();
    context.Warn("Feil ved pålogging til SAP.\nSAP feilkode var " + std::to_string(error.code) +
                 ": " + error.text);
    return false;
}

bool LogonUnasked(const TransferContext& context, platform::sapdi::Connector& connector) {
    if (!LeaveNothingToAsk(context.AppSettings)) return false;
    if (Connect(context, connector) == 0) return true;
    context.objects.SAPCompany.Release();
    return false;
}

void CloseSAPCompany(const TransferContext& context, platform::sapdi::TransactionEnd end) {
    Company& company = *context.objects.SAPCompany;
    if (company.InTransaction()) company.EndTransaction(end);
    company.Disconnect();
    context.objects.SAPCompany.Release();
}

}  // namespace sap
