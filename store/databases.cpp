#include "store/databases.h"

#include <memory>

#include "platform/error.h"

namespace store {

namespace {

using platform::RuntimeError;
using platform::database::TableRecordset;

constexpr const char* kProvider = "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=";
constexpr const char* kPrimaryKey = "PrimaryKey";

void ShowIndexProblem(const RuntimeError& error, platform::Operator& theOperator,
                      const std::string& appTitle) {
    theOperator.Show({appTitle,
                      "Problemer med indeksering. Ta en backup og kjør deretter reindeksering fra "
                      "System-menyen.\n" +
                          std::to_string(error.Number()) + "\n" + error.Description(),
                      platform::Icon::Exclamation});
}

bool OperatorWantsToEnd(const RuntimeError& error, platform::Operator& theOperator,
                        const std::string& appTitle) {
    const platform::Answer answer =
        theOperator.Ask({appTitle,
                         std::to_string(error.Number()) + " - " + error.Description() +
                             "\n\nSkal programmet avsluttes?",
                         platform::Icon::None, platform::Answer::Yes});
    return answer == platform::Answer::Yes;
}

constexpr StoreTable kTables[] = {
    {"Products", &Databases::ProductsTable, true},
    {"Customers", &Databases::CustomersTable, true},
    {"PriceMatrix", &Databases::PriceMatrixTable, false},
    {"SelBuy", &Databases::SelBuyTable, true},
    {"Sales", &Databases::SalesTable, false},
    {"SalesLines", &Databases::SalesLinesTable, false},
    {"Options", &Databases::OptionsTable, false},
    {"Tax", &Databases::TaxTable, false},
};

template <class Step>
AfterOpening Try(Step&& step, platform::Operator& theOperator, const std::string& appTitle) {
    try {
        step();
    } catch (const RuntimeError& error) {
        if (error.Number() == platform::error_number::kNoSuchIndex) {
            ShowIndexProblem(error, theOperator, appTitle);
        } else if (OperatorWantsToEnd(error, theOperator, appTitle)) {
            return AfterOpening::EndProgram;
        }
    }
    return AfterOpening::GoOn;
}

}  // namespace

std::string WorkDatabaseFile(const std::string& datapath) {
    return datapath + kWorkFile;
}

std::span<const StoreTable> StoreTables() {
    return kTables;
}

void OpenConnections(platform::database::DatabaseEngine& engine, const std::string& datapath,
                     Databases& databases) {
    databases.PosWorkspace =
        std::make_unique<platform::database::Workspace>(engine, "Kassovia", "admin", "");
    databases.StoreDatabase = databases.PosWorkspace->OpenDatabase(datapath + kStoreFile);
    databases.StoreConnection = engine.OpenConnection(kProvider + datapath + kStoreFile);
    databases.WorkConnection = engine.OpenConnection(kProvider + WorkDatabaseFile(datapath));
}

AfterOpening OpenTables(Databases& databases, platform::Operator& theOperator,
                        const std::string& appTitle) {
    for (const StoreTable& table : kTables) {
        platform::ObjectVariable<TableRecordset>& handle = databases.*table.handle;
        const auto open = [&] { handle = databases.StoreDatabase->OpenTable(table.name); };
        if (Try(open, theOperator, appTitle) == AfterOpening::EndProgram) {
            return AfterOpening::EndProgram;
        }
        if (!table.withPrimaryKey) continue;
        // kept: index-of-no-table. Error 91 after a table that did not open: a second question.
        const auto setIndex = [&] { handle->SetIndex(kPrimaryKey); };
        if (Try(setIndex, theOperator, appTitle) == AfterOpening::EndProgram) {
            return AfterOpening::EndProgram;
        }
    }
    return AfterOpening::GoOn;
}

}  // namespace store
