#include <gtest/gtest.h>

#include <filesystem>
#include <limits>

#include "platform/database/batch.h"
#include "platform/database/sqlite_engine.h"
#include "platform/error.h"
#include "tests/support/expect_error.h"
#include "tests/support/temp_folder.h"

namespace platform {
namespace {

namespace number = error_number;
using support::ExpectError;

class SqliteDatabase : public ::testing::Test {
  protected:
    void Run(std::initializer_list<const char*> statements) {
        for (const char* sql : statements)
            database_->Execute(sql);
    }

    Value One(std::string_view sql) { return database_->OpenQuery(sql)->Get(0); }

    std::vector<Value> Column(std::string_view sql) {
        std::vector<Value> values;
        for (const auto rows = database_->OpenQuery(sql); !rows->IsEof(); rows->MoveNext()) {
            values.push_back(rows->Get(0));
        }
        return values;
    }

    support::TempFolder folder_;
    std::string file_ = folder_.File("Kassovia.mdb");
    SqliteEngine engine_{std::chrono::milliseconds(20)};
    std::unique_ptr<Database> database_ = engine_.CreateDatabase(file_);
};

TEST_F(SqliteDatabase, OpensWhatIsThereAndCreatesNothing) {
    Run({"CREATE TABLE T (A)"});
    (void)engine_.OpenDatabase(folder_.File("KASSOVIA.MDB"))->OpenTable("t");
    (void)engine_.OpenConnection("Provider=P.4.0;Data Source=" + file_)->OpenTable("T");

    const std::string missing = folder_.File("missing.mdb");
    const std::string description =
        ExpectError(number::kDatabaseNotFound, [&] { (void)engine_.OpenDatabase(missing); });
    EXPECT_NE(description.find(missing), std::string::npos);
    EXPECT_FALSE(folder_.Has("missing.mdb"));

    folder_.Write("rubbish.mdb", std::string(5000, 'x'));
    folder_.Write("short.mdb", "x");
    folder_.Write("empty.mdb", "");
    for (const char* name : {"rubbish.mdb", "short.mdb", "empty.mdb"}) {
        const std::string text = ExpectError(
            number::kUnrecognizedDatabase, [&] { (void)engine_.OpenDatabase(folder_.File(name)); });
        EXPECT_NE(text.find(name), std::string::npos) << text;
    }
    ExpectError(number::kCannotOpenDatabase,
                [&] { (void)engine_.OpenDatabase(folder_.Path().string()); });
    ExpectError(number::kPathAccess, [&] { (void)engine_.CreateDatabase(file_); });
}

TEST_F(SqliteDatabase, TakesTheTypeOfAValueFromTheDeclaredType) {
    struct Case {
        const char* declaration;
        const char* stored;
        Value value;
    };
    const DateTime noon{2011, 2, 3, 12, 0, 0};
    const Case cases[] = {
        {"BOOLEAN", "1", true},
        {"YesNo", "0", false},
        {"bit", "-1", true},
        {"BOOLEAN", "0.5", true},
        {"BOOLEAN", "'ja'", "ja"},
        {"DATETIME", "'2011-02-03 12:00:00'", noon},
        {"DATETIME", "'2011-02-03T12:00:00'", noon},
        {"date", "'2011-02-03'", DateTime{2011, 2, 3}},
        {"DATETIME", "'2011-02-30'", "2011-02-30"},
        {"DATETIME", "20110203", 20110203},
        {"TIMESTAMP", "'3. februar'", "3. februar"},
        {"SMALLINT", "7", 7},
        {"COUNTER", "8", 8},
        {"INTEGER", "1.5", 1.5},
        {"LONG", "'x'", "x"},
        {"DOUBLE", "2", 2.0},
        {"CURRENCY", "12.0", 12.0},
        {"NUMERIC(9,2)", "3", 3.0},
        {"VARCHAR(10)", "12", "12"},
        {"MEMO", "12", 12},
        {"TEXT", "NULL", Value()},
        {"", "12", 12},
        {"", "'12'", "12"},
        {"", "x'4142'", "AB"},
    };
    for (const Case& test : cases) {
        Run({"DROP TABLE IF EXISTS T"});
        database_->Execute(std::string("CREATE TABLE T (F ") + test.declaration + ")");
        database_->Execute(std::string("INSERT INTO T VALUES (") + test.stored + ")");
        EXPECT_EQ(One("SELECT F FROM T"), test.value) << test.declaration << ' ' << test.stored;
        EXPECT_EQ(database_->OpenTable("T")->Get("F"), test.value)
            << test.declaration << ' ' << test.stored;
    }
}

TEST_F(SqliteDatabase, SumsLikeCurrency) {
    struct Case {
        const char* rows;
        Value sum;
    };
    const Case cases[] = {
        {"(0.1), (0.2), (-0.3)", 0.0}, {"(NULL), (NULL)", Value()},
        {"(NULL), (2)", 2.0},          {"(0.00005), (0.00025)", 0.0002},  // halves to even
        {"('1.5'), ('x')", 1.5},       {"(1e12), (0.01), (-1e12)", 0.01},
    };
    for (const Case& test : cases) {
        Run({"DROP TABLE IF EXISTS T", "CREATE TABLE T (A)"});
        database_->Execute(std::string("INSERT INTO T VALUES ") + test.rows);
        EXPECT_EQ(One("SELECT sum(T.A) FROM T"), test.sum) << test.rows;
    }
    EXPECT_TRUE(One("SELECT sum(A) FROM T WHERE A > 1e99").IsNull()) << "no rows at all";
    Run({"INSERT INTO T VALUES (922337203685477), (1)"});
    ExpectError(number::kOverflow, [&] { (void)database_->OpenQuery("SELECT sum(A) FROM T"); });
}

TEST_F(SqliteDatabase, GroupsComeInTheirOrderNullFirst) {
    Run({"CREATE TABLE Sales (ID INTEGER, SalesDate INTEGER)",
         "CREATE TABLE SalesLines (SalesID INTEGER, SalesDate INTEGER, VatCode, Amount DOUBLE)",
         "CREATE INDEX Backwards ON SalesLines (VatCode DESC, SalesID)",
         "INSERT INTO Sales VALUES (2, 20110204), (1, 20110203), (3, NULL)",
         "INSERT INTO SalesLines VALUES (2, 0, 1, 4), (1, 0, 3, 2), (1, 0, NULL, 1), (2, 0, 1, 5), "
         "(1, 0, 3, 1), (3, 0, 9, 0)"});
    constexpr const char* kGroups =
        "SELECT sum(SalesLines.Amount), Sales.SalesDate From Sales, SalesLines WHERE Sales.ID = "
        "SalesLines.SalesID AND SalesLines.VatCode <> 'GROUP BY' OR SalesLines.VatCode IS NULL AND "
        "Sales.ID = SalesLines.SalesID GROUP BY Sales.Salesdate, VatCode";
    EXPECT_EQ(Column(kGroups), (std::vector<Value>{0.0, 1.0, 3.0, 9.0}));
    EXPECT_EQ(Column(std::string(kGroups) + " HAVING count(*) = 1 LIMIT 1;"),
              (std::vector<Value>{0.0}));
}

TEST_F(SqliteDatabase, RowsComeInTheOrderOfTheTable) {
    Run({"CREATE TABLE Customers (ID TEXT, Status INTEGER)",
         "CREATE INDEX ByStatus ON Customers (Status, ID)",
         "INSERT INTO Customers VALUES ('c', 9), ('a', 2), ('b', 9), ('d', 0), ('e', 2)"});
    const auto query = [&](const char* rest) {
        return Column(std::string("SELECT * FROM Customers") + rest);
    };
    EXPECT_EQ(query(" WHERE Status <> 0"), (std::vector<Value>{"c", "a", "b", "e"}));
    EXPECT_EQ(query(" WHERE Status > 0 ORDER BY Status DESC"),
              (std::vector<Value>{"c", "b", "a", "e"}));
    EXPECT_EQ(query(" -- all; of them\n"), (std::vector<Value>{"c", "a", "b", "d", "e"}));
    EXPECT_EQ(database_->OpenQuery("SELECT * FROM Customers")->FieldCount(), 2);
}

TEST_F(SqliteDatabase, ComparesTextsWithoutRegardToCase) {
    Run({"CREATE TABLE T (ID TEXT)",
         "INSERT INTO T VALUES ('Avrunding'), ('ÆRLIG ''OLE'''), ('ærlig ''ole'''), ('Z')"});
    const auto count = [&](const char* condition) {
        return One(std::string("SELECT count(*) FROM T WHERE ") + condition);
    };
    EXPECT_EQ(count("T.ID = 'AVRUNDING'"), Value(1));
    EXPECT_EQ(count("'avrunding' = ID"), Value(1));
    EXPECT_EQ(count("ID = 'Ærlig ''Ole'''"), Value(2));
    EXPECT_EQ(count("ID <> 'Ærlig ''Ole''' AND ID <> 'z' /* 'not this' */"), Value(1));
    EXPECT_EQ(count("ID NOT IN ('avrunding', 'ærlig ''ole''')"), Value(1));
    EXPECT_EQ(count("ID BETWEEN 'AA' AND 'y'"), Value(1));
    EXPECT_EQ(count("ID < 'æ'"), Value(2));
    Run({"UPDATE T SET ID = 'it''s = ''x''' WHERE ID = 'Z'",
         "DELETE * FROM T WHERE ID = 'it''s = ''X'''"});
    EXPECT_EQ(One("SELECT count(*) FROM T"), Value(3));
}

TEST_F(SqliteDatabase, SavesChangesToTheRowTheyCameFrom) {
    Run({"CREATE TABLE T (rowid TEXT, Status SMALLINT, Day DATETIME, Flag BOOLEAN, Name TEXT)",
         "INSERT INTO T VALUES ('x', 1, NULL, 0, 'a'), ('x', 2, NULL, 0, 'b'), ('x', 3, NULL, 0, "
         "'c')"});
    const auto rows = database_->OpenQuery("select * from [t] where Status > 1;");
    rows->MoveNext();
    rows->Edit();
    rows->Set("STATUS", 2.5);
    rows->Set("Day", DateTime{2011, 2, 3, 4, 5, 6});
    rows->Set("Flag", true);
    rows->Set("Name", 1.5);
    rows->Update();
    EXPECT_EQ(rows->Get("Status"), Value(2)) << "halves to even, as it was saved";
    EXPECT_EQ(One("SELECT Status || Day || Flag || Name FROM T WHERE Name = '1,5'"),
              Value("22011-02-03 04:05:0611,5"));
    EXPECT_EQ(Column("SELECT Name FROM T ORDER BY _rowid_"), (std::vector<Value>{"a", "b", "1,5"}));

    rows->Edit();
    ExpectError(number::kDataTypeConversion, [&] { rows->Set("Day", "i dag"); });
    Run({"DELETE FROM T"});
    rows->Set("Flag", false);
    ExpectError(number::kNoCurrentRecord, [&] { rows->Update(); });

    Run({"INSERT INTO T (Status) VALUES (1)"});
    for (const char* sql :
         {"SELECT Status FROM T", "SELECT * FROM T a, T b", "SELECT * FROM T GROUP BY Status",
          "SELECT * FROM T UNION SELECT * FROM T"}) {
        const auto fixed = database_->OpenQuery(sql);
        fixed->Edit();
        fixed->Set("Status", 5);
        ExpectError(number::kReadOnly, [&] { fixed->Update(); });
    }
}

TEST_F(SqliteDatabase, FollowsARowWhoseKeyChanges) {
    Run({"CREATE TABLE N (ID INTEGER PRIMARY KEY, A)", "INSERT INTO N VALUES (1, 'x'), (2, 'y')",
         "CREATE TABLE W (K TEXT, L INTEGER, A, PRIMARY KEY (K, L)) WITHOUT ROWID",
         "INSERT INTO W VALUES ('a', 1, 'x'), ('a', 2, 'y')"});
    for (const auto& [table, key] : {std::pair("N", "ID"), std::pair("W", "L")}) {
        const auto rows = database_->OpenQuery(std::string("SELECT * FROM ") + table);
        for (const int number : {7, 8}) {
            rows->Edit();
            rows->Set(key, number);
            rows->Update();
        }
        rows->MoveNext();
        rows->Edit();
        rows->Set(key, 8);
        ExpectError(number::kDuplicateKey, [&] { rows->Update(); });

        const auto live = database_->OpenTable(table);
        EXPECT_EQ(live->Get("A"), Value("y"));
        live->MoveNext();
        live->Edit();
        live->Set(key, 9);
        live->Update();
        EXPECT_EQ(live->Get("A"), Value("x"));
    }
}

TEST_F(SqliteDatabase, ATableReadsWhatIsInTheFileNow) {
    Run({"CREATE TABLE Options (NextVoucherNo INTEGER, CreditToOrder BOOLEAN)",
         "INSERT INTO Options VALUES (100, 0)"});
    const auto options = database_->OpenTable("Options");
    const auto other = engine_.OpenDatabase(file_);
    other->Execute("UPDATE Options SET NextVoucherNo = 200, CreditToOrder = 1");
    EXPECT_EQ(options->Get("NextVoucherNo"), Value(200));
    EXPECT_EQ(options->Get(1), Value(true));

    options->Edit();
    options->Set("nextvoucherno", 201);
    EXPECT_EQ(options->Get("NextVoucherNo"), Value(201));
    options->Update();
    EXPECT_EQ(other->OpenQuery("SELECT * FROM Options")->Get(0), Value(201));

    other->Execute("INSERT INTO Options VALUES (300, 0), (400, 0)");
    EXPECT_EQ(options->RecordCount(), 3);
    options->SetFilter("NextVoucherNo > 250");
    EXPECT_EQ(options->RecordCount(), 2);
    options->MoveNext();
    EXPECT_EQ(options->Get(0), Value(400));
    EXPECT_EQ(options->AbsolutePosition(), 2);
    other->Execute("DELETE * FROM Options");
    ExpectError(number::kNoCurrentRecord, [&] { (void)options->Get(0); });
    options->Close();
    ExpectError(number::kObjectClosed, [&] { (void)options->Get(0); });
    ExpectError(number::kObjectClosed, [&] { options->Close(); });
}

TEST_F(SqliteDatabase, SeeksByThePrimaryKey) {
    Run({"CREATE TABLE Tax (VatCode INTEGER PRIMARY KEY, Rate DOUBLE)",
         "INSERT INTO Tax VALUES (1, 25), (2, 15)",
         "CREATE TABLE Products (Name, ID TEXT PRIMARY KEY)",
         "INSERT INTO Products VALUES ('one', 'Ærfugl'), ('two', 'x1')", "CREATE TABLE Loose (A)",
         "CREATE VIEW Seen AS SELECT * FROM Tax"});
    const auto tax = database_->OpenTable("Tax");
    ExpectError(number::kNoSuchIndex, [&] { tax->Seek(1); });
    tax->SetIndex("primarykey");
    for (const Value& key : {Value(2), Value(2.0), Value("2"), Value(" 2,0 ")}) {
        tax->MoveFirst();
        tax->Seek(key);
        ASSERT_FALSE(tax->NoMatch());
        EXPECT_EQ(tax->Get("Rate"), Value(15.0));
    }
    for (const Value& key : {Value(3), Value(1.5), Value("to"), Value()}) {
        tax->Seek(key);
        EXPECT_TRUE(tax->NoMatch());
        ExpectError(number::kNoCurrentRecord, [&] { (void)tax->Get("Rate"); });
    }
    const auto products = database_->OpenTable("Products");
    products->SetIndex("PrimaryKey");
    products->Seek("ÆRFUGL");
    EXPECT_EQ(products->Get("Name"), Value("one"));
    products->Seek("X1");
    EXPECT_EQ(products->Get("Name"), Value("two"));

    const std::string description = ExpectError(
        number::kNoSuchIndex, [&] { database_->OpenTable("Loose")->SetIndex("PrimaryKey"); });
    EXPECT_EQ(description, "'PrimaryKey' is not an index in the table 'Loose'.");
    ExpectError(number::kNoSuchIndex, [&] { tax->SetIndex("ByRate"); });
    for (const char* missing : {"NoTable", "Seen"}) {
        const std::string text =
            ExpectError(number::kNoSuchTable, [&] { (void)database_->OpenTable(missing); });
        EXPECT_NE(text.find(missing), std::string::npos) << text;
    }
    ExpectError(number::kNoSuchTable, [&] { (void)database_->OpenQuery("SELECT * FROM NoTable"); });
}

TEST_F(SqliteDatabase, AppendsRowsOfTheColumnsTypes) {
    Run(
        {"CREATE TABLE T (N SMALLINT, D DOUBLE, Day DATETIME, B BOOLEAN, S TEXT NOT NULL, "
         "K INTEGER PRIMARY KEY)"});
    const auto rows = database_->OpenAppender("t");
    ASSERT_EQ(rows->FieldCount(), 6);
    EXPECT_EQ(rows->FieldName(2), "Day");
    const auto save = [&](const std::vector<Value>& values) {
        for (int i = 0; const Value& value : values)
            rows->Set(i++, value);
        rows->Save();
    };
    save({true, " 1,5 ", DateTime{2011, 2, 3}, -1, 12.5, 1});
    save({"3.5", 2, {}, {}, "Ærfugl"});
    const auto table = database_->OpenQuery("SELECT * FROM T");
    EXPECT_EQ(table->Get("N"), Value(-1));
    EXPECT_EQ(table->Get("D"), Value(1.5));
    EXPECT_EQ(table->Get("Day"), (Value(DateTime{2011, 2, 3})));
    EXPECT_EQ(table->Get("B"), Value(true));
    EXPECT_EQ(table->Get("S"), Value("12,5"));
    table->MoveNext();
    EXPECT_EQ(table->Get("N"), Value(4));
    EXPECT_EQ(table->Get("S"), Value("Ærfugl"));

    ExpectError(number::kDuplicateKey, [&] { save({1, 1, {}, {}, "", 1}); });
    ExpectError(number::kFieldRequired, [&] { save({1}); });
    struct Case {
        int field;
        Value value;
    };
    for (const Case& test : {Case{0, ""}, Case{0, "x"}, Case{0, DateTime{}}, Case{0, 1e19},
                             Case{1, "1,2,3"}, Case{2, 5}, Case{2, "2011-02-03"}}) {
        const std::string text =
            ExpectError(number::kDataTypeConversion, [&] { rows->Set(test.field, test.value); });
        EXPECT_NE(text.find("Table T, column " + rows->FieldName(test.field)), std::string::npos);
    }
}

TEST_F(SqliteDatabase, TransactionsReachTheFileWholeOrNotAtAll) {
    Run({"CREATE TABLE T (A)"});
    const auto other = engine_.OpenDatabase(file_);
    const auto count = [&] { return other->OpenQuery("SELECT count(*) FROM T")->Get(0); };
    {
        const auto abandoned = database_->BeginTransaction();
        Run({"INSERT INTO T VALUES (1)"});
        EXPECT_EQ(count(), Value(0));
    }
    EXPECT_EQ(One("SELECT count(*) FROM T"), Value(0));

    const auto transaction = database_->BeginTransaction();
    ExpectError(number::kSyntaxError, [&] { (void)database_->BeginTransaction(); });
    const std::string text =
        ExpectError(number::kDatabaseInUse, [&] { other->Execute("INSERT INTO T VALUES (2)"); });
    EXPECT_NE(text.find("Kassovia.mdb"), std::string::npos) << text;
    Run({"INSERT INTO T VALUES (1)"});
    transaction->Commit();
    EXPECT_EQ(count(), Value(1));
    ExpectError(number::kObjectClosed, [&] { transaction->RollBack(); });

    EXPECT_THROW(
        {
            const Batch batch(*database_);
            Run({"INSERT INTO T VALUES (2)", "INSERT INTO NoTable VALUES (2)"});
        },
        RuntimeError);
    EXPECT_EQ(count(), Value(2)) << "a batch keeps what was saved before the error";
}

TEST_F(SqliteDatabase, AnIndexForNowLeavesNoTrace) {
    Run({"CREATE TABLE SalesLines (SalesID INTEGER, LineNo INTEGER, Name TEXT)",
         "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 5000) "
         "INSERT INTO SalesLines SELECT i % 1000, 1, i FROM n"});
    const std::string before = folder_.Read("Kassovia.mdb");
    constexpr const char* kLines = "SELECT * FROM SalesLines WHERE SalesID = 17 ORDER BY LineNo";
    constexpr const char* kIndexes = "SELECT count(*) FROM sqlite_master WHERE type = 'index'";
    for (const bool commit : {false, true}) {
        const auto index = database_->IndexForNow("saleslines", "SalesID, LineNo");
        EXPECT_EQ(One(kIndexes), Value(1));
        const auto lines = database_->OpenQuery(kLines);
        EXPECT_EQ(lines->RecordCount(), 5);
        EXPECT_EQ(lines->Get("Name"), Value("17")) << "equal numbers in the order of the table";
        if (commit) index->Commit();
    }
    EXPECT_EQ(One(kIndexes), Value(0));
    EXPECT_EQ(folder_.Read("Kassovia.mdb"), before);
    EXPECT_EQ(One("PRAGMA integrity_check"), Value("ok"));
    ExpectError(number::kNoSuchTable, [&] { (void)database_->IndexForNow("NoTable", "A"); });
    Run({"DELETE * FROM SalesLines"});
}

TEST_F(SqliteDatabase, WhatWasOpenedOutlivesTheDatabaseObject) {
    Run({"CREATE TABLE T (A INTEGER)", "INSERT INTO T VALUES (1)"});
    const auto table = database_->OpenTable("T");
    const auto rows = database_->OpenQuery("SELECT * FROM T");
    database_.reset();
    rows->Edit();
    rows->Set("A", 2);
    rows->Update();
    EXPECT_EQ(table->Get("A"), Value(2));
}

}  // namespace
}  // namespace platform
