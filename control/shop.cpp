#include "control/shop.h"

#include <string>

#include "control/reason.h"
#include "platform/error.h"

namespace control {

namespace {

using platform::RuntimeError;

constexpr const char* kPrimaryKey = "PrimaryKey";
// What every day needs of the options.
constexpr const char* kOptionFields[] = {"NextVoucherNo", "DeptNo", "CreditToOrder", "SalesAccount",
                                         "DefaultVATCode"};
constexpr const char* kWorkTables[] = {"Sales", "SalesLines"};

// Runs a step of opening; a failure is K006 for what it is that is not there.
template <class Step>
bool Opens(const std::string& what, Findings& findings, Step&& step) {
    try {
        step();
        return true;
    } catch (const RuntimeError& error) {
        findings.Add("K006", {.field = what, .value = ReasonOf(error)});
        return false;
    }
}

std::string FileText(const app::AppSettings& settings, const char* file) {
    return settings.Datapath + file;
}

}  // namespace

Shop::Shop(const Surroundings& surroundings, Findings& findings) : surroundings_(surroundings) {
    OpenStore(findings);
    OpenWork(findings);
    ReadOptions(findings);
}

bool Shop::UsesSap() const {
    return Settings().AccountingSystem == "SAP";  // as the run decides it
}

void Shop::OpenStore(Findings& findings) {
    const std::string file = FileText(Settings(), store::kStoreFile);
    const bool isOpen = Opens(file, findings, [&] {
        databases_.StoreDatabase = surroundings_.readingEngine.OpenDatabase(file);
    });
    if (!isOpen) return;
    for (const store::StoreTable& table : store::StoreTables()) {
        auto& handle = databases_.*table.handle;
        const std::string name = "Tabellen " + std::string(table.name);
        const bool isThere = Opens(
            name, findings, [&] { handle = databases_.StoreDatabase->OpenTable(table.name); });
        // The order file seeks in the tax rates by their key.
        const bool isSoughtIn = table.handle == &store::Databases::TaxTable && !UsesSap();
        if (!isThere || !(table.withPrimaryKey || isSoughtIn)) continue;
        (void)Opens("Primærnøkkelen til tabellen " + std::string(table.name), findings,
                    [&] { handle->SetIndex(kPrimaryKey); });
    }
}

void Shop::OpenWork(Findings& findings) {
    const std::string file = FileText(Settings(), store::kWorkFile);
    const bool isOpen = Opens(file, findings, [&] {
        databases_.WorkConnection = surroundings_.readingEngine.OpenDatabase(file);
    });
    if (!isOpen || UsesSap()) return;
    for (const char* table : kWorkTables) {
        (void)Opens("Tabellen " + std::string(table) + " i arbeidsdatabasen", findings,
                    [&] { (void)databases_.WorkConnection->OpenAppender(table); });
    }
}

void Shop::ReadOptions(Findings& findings) {
    if (!databases_.OptionsTable) return;
    try {
        for (const char* field : kOptionFields)
            (void)Options().Field(field);
        hasOptions_ = true;
        if (!Options().NextVoucherNo().IsNull() || UsesSap()) return;
        findings.Add("K005", {.field = "NextVoucherNo"});
    } catch (const RuntimeError& error) {
        if (error.Number() == platform::error_number::kFieldNotFound) {
            findings.Add("K006", {.field = "Tabellen Options", .value = ReasonOf(error)});
        } else if (!UsesSap()) {
            findings.Add("K005", {.field = "butikkens rad"});
        }
    }
}

std::unique_ptr<platform::database::TableAppender> Shop::WorkTable(const char* name) const {
    if (!databases_.WorkConnection) return nullptr;
    try {
        return databases_.WorkConnection->OpenAppender(name);
    } catch (const RuntimeError&) {
        return nullptr;  // told as K006
    }
}

}  // namespace control
