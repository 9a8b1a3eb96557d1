// A fresh database file for each test, and short ways to fill and question it.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/database/sqlite_engine.h"
#include "tests/support/platform/temp_folder.h"

namespace platform::database {

class SqliteTest : public ::testing::Test {
  protected:
    void Run(std::initializer_list<const char*> statements) {
        for (const char* sql : statements)
            database_->Execute(sql);
    }

    Value One(std::string_view sql) { return Column(sql).at(0); }

    std::vector<Value> Column(std::string_view sql) {
        std::vector<Value> values;
        for (const Row& row : database_->Prepare(sql)->Run({}))
            values.push_back(row.front());
        return values;
    }

    support::TempFolder folder_;
    std::string file_ = folder_.File("Kassovia.mdb");
    SqliteEngine engine_{std::chrono::milliseconds(20)};
    std::unique_ptr<Database> database_ = engine_.CreateDatabase(file_);
};

}  // namespace platform::database
