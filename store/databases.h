// The database handles: opened once at start-up, held for the life of the program.
#pragma once

#include <string>

#include "platform/database/database.h"
#include "platform/database/workspace.h"
#include "platform/object_variable.h"
#include "platform/operator.h"

namespace store {

// Six of these are read by no routine: the connection beside StoreDatabase and the five tables
// whose opening is how start-up finds a damaged index.
struct Databases {
    template <class T>
    using Variable = platform::ObjectVariable<T>;

    Variable<platform::Workspace> PosWorkspace{"PosWorkspace"};
    Variable<platform::Database> StoreDatabase{"StoreDatabase"};
    Variable<platform::Database> StoreConnection{"StoreConnection"};
    Variable<platform::Database> WorkConnection{"WorkConnection"};

    Variable<platform::TableRecordset> ProductsTable{"ProductsTable"};
    Variable<platform::TableRecordset> CustomersTable{"CustomersTable"};
    Variable<platform::TableRecordset> PriceMatrixTable{"PriceMatrixTable"};
    Variable<platform::TableRecordset> SelBuyTable{"SelBuyTable"};
    Variable<platform::TableRecordset> SalesTable{"SalesTable"};
    Variable<platform::TableRecordset> SalesLinesTable{"SalesLinesTable"};
    Variable<platform::TableRecordset> OptionsTable{"OptionsTable"};  // stays on its first record
    Variable<platform::TableRecordset> TaxTable{"TaxTable"};
};

// Opens the store database (`datapath` + "\Kassovia.mdb") and the work database (`datapath` +
// "\KVDayEndServer.mdb"). A database that is missing or can not be opened is an error.
void OpenConnections(platform::DatabaseEngine& engine, const std::string& datapath,
                     Databases& databases);

enum class AfterOpening { GoOn, EndProgram };

// Opens the eight tables. What goes wrong is told to the operator, and opening goes on with the
// next step; EndProgram when the operator wants so.
[[nodiscard]] AfterOpening OpenTables(Databases& databases, platform::Operator& theOperator,
                                      const std::string& appTitle);

}  // namespace store
