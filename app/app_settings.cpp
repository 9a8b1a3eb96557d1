#include "app/app_settings.h"

#include "platform/text.h"

namespace app {

namespace {

using platform::DateTime;
using platform::Digits;
using platform::Left;
using platform::Length;
using platform::Mid;
using platform::Trim;
using platform::Upper;

constexpr const char* kSection = "General";
constexpr std::size_t kPointIdLength = 20;

struct Setting {
    const char* key;
    std::string AppSettings::*field;
};

constexpr Setting kServerSettings[] = {
    {"Pattern", &AppSettings::Pattern},
    {"DayEndCommand", &AppSettings::DayEndCommand},
    {"Mode", &AppSettings::Mode},
};

constexpr Setting kStoreSettings[] = {
    {"Datapath", &AppSettings::Datapath},
    {"NoDayEnd", &AppSettings::NoDayEnd},
    {"NoCashTotal", &AppSettings::NoCashTotal},
    {"NoRecalc", &AppSettings::NoRecalc},
    {"VoucherFileName", &AppSettings::VoucherFileName},
    {"EDIFileName", &AppSettings::EDIFileName},
    {"XMLDayEnd", &AppSettings::XMLDayEnd},
    {"XMLPrefix", &AppSettings::XMLPrefix},
    {"XMLCommand", &AppSettings::XMLCommand},
    {"ReceiptReportFileName", &AppSettings::ReceiptReportFileName},
    {"HotelReceiptReportFileName", &AppSettings::HotelReceiptReportFileName},
    {"QuoteReportFileName", &AppSettings::QuoteReportFileName},
    {"QuotelistReportFileName", &AppSettings::QuotelistReportFileName},
    {"PricelistReportFileName", &AppSettings::PricelistReportFileName},
    {"LabelsReportFileName", &AppSettings::LabelsReportFileName},
    {"StockReportFileName", &AppSettings::StockReportFileName},
    {"SalesReportFileName", &AppSettings::SalesReportFileName},
    {"DayEndReportFileName", &AppSettings::DayEndReportFileName},
    {"ColumnFlags", &AppSettings::ColumnFlags},
    {"PointID", &AppSettings::PointID},
    {"SubProducts", &AppSettings::SubProducts},
    {"XMLFileNameForProducts", &AppSettings::XMLFileNameForProducts},
    {"XMLFileNameForPriceMatrix", &AppSettings::XMLFileNameForPriceMatrix},
    {"XMLFileNameForCustomers", &AppSettings::XMLFileNameForCustomers},
    {"XMLFileNameForSelBuy", &AppSettings::XMLFileNameForSelBuy},
    {"AccountingSystem", &AppSettings::AccountingSystem},
    {"Portsettings", &AppSettings::Portsettings},
    {"SpecialVersion", &AppSettings::SpecialVersion},
    {"SAPServer", &AppSettings::SAPServer},
    {"SAPCompanyDatabase", &AppSettings::SAPCompanyDatabase},
    {"SAPUserName", &AppSettings::SAPUserName},
    {"SAPPassword", &AppSettings::SAPPassword},
    {"SAPUseTrusted", &AppSettings::SAPUseTrusted},
    {"SAPDBUser", &AppSettings::SAPDBUser},
    {"SAPDBPassword", &AppSettings::SAPDBPassword},
    {"SAPOrders", &AppSettings::SAPOrders},
    {"Overwrite", &AppSettings::Overwrite},
};

template <std::size_t Count>
void ReadSettings(INIClass& iniFile, const Setting (&settings)[Count], AppSettings& appSettings) {
    for (const Setting& setting : settings) {
        iniFile.ReadValue(kSection, setting.key, appSettings.*setting.field);
    }
}

std::string WithoutTrailingSeparator(const std::string& datapath) {
    const auto trimmedLength = static_cast<long>(Length(Trim(datapath)));
    if (trimmedLength > 0 && Mid(datapath, trimmedLength, 1) == "\\") {
        return Mid(datapath, 1, trimmedLength - 1);
    }
    return std::string(Trim(datapath));
}

// Replaces the first occurrence of a token.
// kept: prefix-token-at-start. There it takes the other stamp, and the value's last character is
// dropped; with nothing behind the token that count is negative, which is error 5.
std::string ReplaceToken(const std::string& value, const std::string& token,
                         const std::string& stampAtStart, const std::string& stampInside) {
    const auto position = static_cast<long>(platform::FindIgnoreCase(value, token));
    if (position == 0) return value;
    const auto length = static_cast<long>(Length(value));
    const auto tokenLength = static_cast<long>(Length(token));
    if (position == 1) {
        return stampAtStart + Mid(value, tokenLength + 1, length - (tokenLength + 1));
    }
    return Mid(value, 1, position - 1) + stampInside + Mid(value, position + tokenLength, length);
}

std::string WithDateTokens(const std::string& xmlPrefix, const DateTime& now) {
    const std::string day = Digits(now.day, 2);
    const std::string month = Digits(now.month, 2);
    const std::string year = Digits(now.year, 4);
    const std::string time = Digits(now.hour, 2) + Digits(now.minute, 2) + Digits(now.second, 2);
    const std::string withTime =
        ReplaceToken(xmlPrefix, "NOW()", day + month + Digits(now.year % 100, 2) + time,
                     year + month + day + time);
    return ReplaceToken(withTime, "DATE()", day + month + year, year + month + day);
}

// kept: point-cut-untrimmed. Judged by its length without blanks, cut with them.
void ExtendTitle(AppSettings& appSettings) {
    if (Trim(appSettings.PointID).empty()) return;
    if (Length(Trim(appSettings.PointID)) > kPointIdLength) {
        appSettings.PointID = Left(appSettings.PointID, kPointIdLength);
    }
    appSettings.AppTitle += " (" + std::string(Trim(appSettings.PointID)) + ")";
}

// kept: overwrite-words. "true", "J" and " 1" switch it off.
std::string OverwriteSwitch(const std::string& overwrite) {
    const std::string upper = Upper(overwrite);
    return upper == "JA" || upper == "YES" || overwrite == "1" ? "1" : "0";
}

}  // namespace

void ReadServerSettings(INIClass& iniFile, const std::string& programFolder,
                        AppSettings& appSettings) {
    iniFile.FileName(programFolder + "\\KVDayEndServer.ini");
    ReadSettings(iniFile, kServerSettings, appSettings);
}

void ReadStoreSettings(INIClass& iniFile, const std::string& programFolder,
                       const platform::Clock& clock, AppSettings& appSettings) {
    iniFile.FileName(programFolder + "\\Kassovia.ini");
    ReadSettings(iniFile, kStoreSettings, appSettings);
    appSettings.Datapath = WithoutTrailingSeparator(appSettings.Datapath);
    appSettings.XMLPrefix = WithDateTokens(appSettings.XMLPrefix, clock.Now());
    if (Trim(appSettings.ReceiptReportFileName).empty()) {
        appSettings.ReceiptReportFileName = "receipt.rpt";
    }
    ExtendTitle(appSettings);
    appSettings.Overwrite = OverwriteSwitch(appSettings.Overwrite);
}

void DeriveAccountingFlags(AppSettings& appSettings) {
    const std::string upper = Upper(appSettings.AccountingSystem);
    appSettings.UsesSAP = upper == "SAP";
    appSettings.UsesGlobal = upper == "GLOBAL";
}

}  // namespace app
