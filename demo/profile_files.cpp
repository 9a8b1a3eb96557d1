#include "demo/profile_files.h"

#include <cerrno>
#include <fstream>
#include <string>

#include "demo/catalogue.h"
#include "demo/company_database.h"
#include "platform/code_page.h"
#include "platform/error.h"

namespace demo {

namespace {

// `text` with line feeds; the file gets CR LF and the code page of the profile files.
void WriteProfile(const std::filesystem::path& file, std::string_view text) {
    std::string lines;
    for (const char letter : text) {
        if (letter == '\n') lines += '\r';
        lines += letter;
    }
    std::ofstream stream(file, std::ios::binary);
    stream << platform::EncodeWindows1252(lines);
    stream.close();
    if (!stream) throw platform::ErrorFromErrno(errno, "write", file.string());
}

void WriteServerProfile(const std::filesystem::path& folder) {
    WriteProfile(folder / kServerProfile, std::string(kDemoShopMark) +
                                              "\n"
                                              "[General]\n"
                                              "Pattern=*DayEnd*.xml\n"
                                              "DayEndCommand=\n"
                                              "Mode=\n");
}

// Paths with `\`, as the shops have them: the server's own way with names is tried too.
std::string StoreProfile() {
    return "; Butikkens oppsett. Stier gjelder fra programmets mappe.\n"
           "[General]\n"
           "Datapath=data\n"
           "NoDayEnd=0\n"
           "NoCashTotal=0\n"
           "NoRecalc=0\n"
           "VoucherFileName=import\\bilag.txt\n"
           "EDIFileName=import\\ordre.edi\n"
           "Overwrite=Nei\n"
           "PointID=" +
           std::string(kShopName) + "\n";
}

}  // namespace

void WriteFileExportProfiles(const std::filesystem::path& folder) {
    WriteServerProfile(folder);
    WriteProfile(folder / kStoreProfile, StoreProfile() + "AccountingSystem=Global\n");
}

// Nothing that the logon asks for is left blank, so that a run needs no operator.
void WriteSapProfiles(const std::filesystem::path& folder) {
    WriteServerProfile(folder);
    WriteProfile(folder / kStoreProfile, StoreProfile() +
                                             "AccountingSystem=SAP\n"
                                             "SAPServer=(local)\n"
                                             "SAPCompanyDatabase=" +
                                             std::string(kCompanyName) +
                                             "\nSAPUserName=" + std::string(kCompanyUser) +
                                             "\nSAPPassword=" + std::string(kCompanyPassword) +
                                             "\n"
                                             "SAPUseTrusted=1\n"
                                             "SAPOrders=1\n");
}

}  // namespace demo
