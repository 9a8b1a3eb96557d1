#include <gtest/gtest.h>

#include "platform/error.h"
#include "tests/platform/database/sqlite_fixture.h"
#include "tests/support/platform/expect_error.h"

namespace platform::database {
namespace {

namespace number = error_number;
using support::ExpectError;
using SqliteQueryTest = SqliteTest;

TEST_F(SqliteQueryTest, TakesTheTypeOfAValueFromTheDeclaredType) {
    struct Case {
        const char* declaration;
        const char* stored;
        Value value;
    };
    const DateTime noon{2011, 2, 3, 12, 0, 0};
    const Case cases[] = {{"BOOLEAN", "1", true},
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
                          {"", "x'4142'", "AB"}};
    for (const Case& test : cases) {
        Run({"DROP TABLE IF EXISTS T"});
        database_->Execute(std::string("CREATE TABLE T (F ") + test.declaration + ")");
        database_->Execute(std::string("INSERT INTO T VALUES (") + test.stored + ")");
        EXPECT_EQ(One("SELECT F FROM T"), test.value) << test.declaration << ' ' << test.stored;
        EXPECT_EQ(database_->OpenTable("T")->Get("F"), test.value)
            << test.declaration << ' ' << test.stored;
    }
}

TEST_F(SqliteQueryTest, SumsLikeCurrency) {
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

TEST_F(SqliteQueryTest, GroupsComeInTheirOrderNullFirst) {
    Run({"CREATE TABLE Sales (ID INTEGER, SalesDate INTEGER)",
         "CREATE TABLE SalesLines (SalesID INTEGER, SalesDate INTEGER, VatCode, Amount DOUBLE)",
         "CREATE INDEX Backwards ON SalesLines (VatCode DESC, SalesID)",
         "INSERT INTO Sales VALUES (2, 20110204), (1, 20110203), (3, NULL)",
         "INSERT INTO SalesLines VALUES (2, 0, 1, 4), (1, 0, 3, 2), (1, 0, NULL, 1)",
         "INSERT INTO SalesLines VALUES (2, 0, 1, 5), (1, 0, 3, 1), (3, 0, 9, 0)"});
    constexpr const char* kGroups =
        "SELECT sum(SalesLines.Amount), Sales.SalesDate From Sales, SalesLines WHERE Sales.ID = "
        "SalesLines.SalesID AND SalesLines.VatCode <> 'GROUP BY' OR SalesLines.VatCode IS NULL AND "
        "Sales.ID = SalesLines.SalesID GROUP BY Sales.Salesdate, VatCode";
    EXPECT_EQ(Column(kGroups), (std::vector<Value>{0.0, 1.0, 3.0, 9.0}));
    EXPECT_EQ(Column(std::string(kGroups) + " HAVING count(*) = 1 LIMIT 1;"),
              (std::vector<Value>{0.0}));
}

TEST_F(SqliteQueryTest, RowsComeInTheOrderOfTheTable) {
    Run({"CREATE TABLE Customers (ID TEXT, Status INTEGER)",
         "CREATE INDEX ByStatus ON Customers (Status, ID)",
         "INSERT INTO Customers VALUES ('c', 9), ('a', 2), ('b', 9), ('d', 0), ('e', 2)"});
    const auto query = [&](const char* rest) {
        std::vector<Value> ids;
        const auto rows = database_->OpenQuery(std::string("SELECT * FROM Customers") + rest);
        for (; !rows->IsEof(); rows->MoveNext())
            ids.push_back(rows->Get("ID"));
        return ids;
    };
    EXPECT_EQ(query(" WHERE Status <> 0"), (std::vector<Value>{"c", "a", "b", "e"}));
    EXPECT_EQ(query(" WHERE Status > 0 ORDER BY Status DESC"),
              (std::vector<Value>{"c", "b", "a", "e"}));
    EXPECT_EQ(query(" -- all; of them\n"), (std::vector<Value>{"c", "a", "b", "d", "e"}));
    ExpectError(number::kFieldNotFound,
                [&] { (void)database_->OpenQuery("SELECT * FROM Customers")->Get("rowid"); });
}

TEST_F(SqliteQueryTest, ComparesTextsWithoutRegardToCase) {
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

TEST_F(SqliteQueryTest, TakesValuesForItsParameters) {
    Run({"CREATE TABLE T (ID TEXT, N INTEGER)", "INSERT INTO T VALUES ('7', 7), ('x', 70)"});
    const auto found = [&](const char* condition, std::initializer_list<Value> values) {
        return database_->OpenQuery(std::string("SELECT * FROM T WHERE ") + condition, values)
            ->RecordCount();
    };
    EXPECT_EQ(found("N = ?", {7}), 1);
    EXPECT_EQ(found("N = ?", {70.0}), 1) << "another value for the same text";
    EXPECT_EQ(found("ID = ? OR N = ?", {"x' OR '1' = '1", 8}), 0) << "a value is no SQL";
    EXPECT_EQ(found("N = ?", {}), 0) << "a parameter without a value is null";
    ExpectError(number::kSyntaxError, [&] { (void)found("N = 7", {7}); });
}

TEST_F(SqliteQueryTest, SavesChangesToTheRowTheyCameFrom) {
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

TEST_F(SqliteQueryTest, FollowsARowWhoseKeyChanges) {
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
        live->Edit();
        live->Set(key, 9);
        live->Update();
        EXPECT_EQ(live->Get("A"), Value("y"));
    }
}

TEST_F(SqliteQueryTest, TellsWhatOthersHaveMadeOfARowSinceItWasRead) {
    Run({"CREATE TABLE T (ID TEXT PRIMARY KEY, Price CURRENCY, Day DATETIME)",
         "INSERT INTO T VALUES ('a', 0.1, NULL), ('b', 2.5, '2011-02-03 04:05:06'), ('c', 3, 4)"});
    const auto rows = database_->OpenQuery("SELECT * FROM T WHERE Price < 3");
    EXPECT_EQ(rows->Refresh(), SinceRead::Unchanged);
    Run({"UPDATE T SET Price = 7 WHERE ID = 'a'", "DELETE FROM T WHERE ID = 'c'"});
    EXPECT_EQ(rows->Refresh(), SinceRead::Changed);
    EXPECT_EQ(rows->Get("Price"), Value(7.0));
    EXPECT_EQ(rows->Refresh(), SinceRead::Unchanged);
    rows->MoveNext();
    EXPECT_EQ(rows->Refresh(), SinceRead::Unchanged) << "a date is read as it was";
    Run({"DELETE FROM T WHERE ID = 'b'"});
    EXPECT_EQ(rows->Refresh(), SinceRead::Gone);
    EXPECT_EQ(rows->Get("Price"), Value(2.5));
    rows->MoveNext();
    ExpectError(number::kNoCurrentRecord, [&] { (void)rows->Refresh(); });
}

}  // namespace
}  // namespace platform::database
