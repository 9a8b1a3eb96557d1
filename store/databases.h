// The database handles: opened once at start-up, held for the life of the program.
#pragma once

#include <span>
#include <string>

#include "platform/database/database.h"
#include "platform/database/workspace.h"
#include "platform/object_variable.h"
#include "platform/operator.h"

namespace store {

// kept: handles-nobody-reads. StoreConnection and every table but Options and Tax: opening them is
// how start-up finds a damaged index.
struct Databases {
    template <class T>
    using Variable = platform::ObjectVariable<T>;

    Variable<platform::database::Workspace> PosWorkspace{"PosWorkspace"};
    Variable<platform::database::Database> StoreDatabase{"StoreDatabase"};
    Variable<platform::database::Database> StoreConnection{"StoreConnection"};
    Variable<platform::database::Database> WorkConnection{"WorkConnection"};

    Variable<platform::database::TableRecordset> ProductsTable{"ProductsTable"};
    Variable<platform::database::TableRecordset> CustomersTable{"CustomersTable"};
    Variable<platform::database::TableRecordset> PriceMatrixTable{"PriceMatrixTable"};
    Variable<platform::database::TableRecordset> SelBuyTable{"SelBuyTable"};
    Variable<platform::database::TableRecordset> SalesTable{"SalesTable"};
    Variable<platform::database::TableRecordset> SalesLinesTable{"SalesLinesTable"};
    Variable<platform::database::TableRecordset> OptionsTable{"OptionsTable"};  // its first record
    Variable<platform::database::TableRecordset> TaxTable{"TaxTable"};
};

// A table of the store database, and whether it is opened with its primary key.
struct StoreTable {
    const char* name;
    Databases::Variable<platform::database::TableRecordset> Databases::*handle;
    bool withPrimaryKey;
};

[[nodiscard]] std::span<const StoreTable> StoreTables();

// The files of the two databases, from the folder that Datapath names.
inline constexpr const char* kStoreFile = "\\Kassovia.mdb";
inline constexpr const char* kWorkFile = "\\KVDayEndServer.mdb";

[[nodiscard]] std::string WorkDatabaseFile(const std::string& datapath);

// Opens the store database (`datapath` + "\Kassovia.mdb") and the work database (`datapath` +
// "\KVDayEndServer.mdb"). A database that is missing or can not be opened is an error.
void OpenConnections(platform::database::DatabaseEngine& engine, const std::string& datapath,
                     Databases& databases);

enum class AfterOpening { GoOn, EndProgram };

// Opens the eight tables. What goes wrong is told to the operator, and opening goes on with the
// next step; EndProgram when the operator wants so.
[[nodiscard]] AfterOpening OpenTables(Databases& databases, platform::Operator& theOperator,
                                      const std::string& appTitle);

}  // namespace store
