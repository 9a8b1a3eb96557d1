// The settings record: every value of the two profile files, as text, and the title of the boxes.
// Filled once at start-up; only read afterwards.
#pragma once

#include <string>

#include "app/ini_class.h"
#include "platform/clock.h"

namespace app {

// kept: settings-nobody-reads. Mode, NoCashTotal, NoRecalc, XMLDayEnd, XMLPrefix, XMLCommand, the
// report names, ColumnFlags, SubProducts, XMLFileNameFor..., Portsettings and SpecialVersion.
struct AppSettings {
    // KVDayEndServer.ini
    std::string Pattern;        // file-name patterns of the waiting data sets
    std::string DayEndCommand;  // command line started after each run
    std::string Mode;

    std::string AppTitle;  // title of every titled message box

    // Kassovia.ini
    std::string Datapath;  // folder of the databases, without a separator at its end
    std::string NoDayEnd;  // "1": the SAP transfer leaves out the documents
    std::string NoCashTotal;
    std::string NoRecalc;
    std::string VoucherFileName;
    std::string EDIFileName;  // the order file
    std::string XMLDayEnd;
    std::string XMLPrefix;
    std::string XMLCommand;
    std::string ReceiptReportFileName;
    std::string HotelReceiptReportFileName;
    std::string QuoteReportFileName;
    std::string QuotelistReportFileName;
    std::string PricelistReportFileName;
    std::string LabelsReportFileName;
    std::string StockReportFileName;
    std::string SalesReportFileName;
    std::string DayEndReportFileName;
    std::string ColumnFlags;
    std::string PointID;  // this sales point, at most 20 characters
    std::string SubProducts;
    std::string XMLFileNameForProducts;
    std::string XMLFileNameForPriceMatrix;
    std::string XMLFileNameForCustomers;
    std::string XMLFileNameForSelBuy;
    std::string AccountingSystem;  // exactly "SAP": the SAP transfer; else the file export
    std::string Portsettings;
    std::string SpecialVersion;
    std::string SAPServer;
    std::string SAPCompanyDatabase;
    std::string SAPUserName;
    std::string SAPPassword;
    std::string SAPUseTrusted;
    std::string SAPDBUser;
    std::string SAPDBPassword;
    std::string SAPOrders;  // "1": sales of type 2 become orders, not deliveries
    std::string Overwrite;  // "1" or "0"

    bool UsesSAP = false;  // kept: exact-sap. Set in any case, and read by nothing.
    bool UsesGlobal = false;
};

// Reads the program's own profile file: `programFolder` + "\KVDayEndServer.ini".
void ReadServerSettings(INIClass& iniFile, const std::string& programFolder,
                        AppSettings& appSettings);

// Reads the store system's profile file, `programFolder` + "\Kassovia.ini", and brings its values
// into form. An XMLPrefix that is a date token and nothing else is error 5.
void ReadStoreSettings(INIClass& iniFile, const std::string& programFolder,
                       const platform::Clock& clock, AppSettings& appSettings);

void DeriveAccountingFlags(AppSettings& appSettings);

}  // namespace app
