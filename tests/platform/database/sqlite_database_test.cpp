#include <gtest/gtest.h>

#include "platform/database/batch.h"
#include "platform/error.h"
#include "tests/platform/database/sqlite_fixture.h"
#include "tests/support/platform/expect_error.h"

namespace platform::database {
namespace {

namespace number = error_number;
using support::ExpectError;
using SqliteDatabaseTest = SqliteTest;

TEST_F(SqliteDatabaseTest, OpensWhatIsThereAndCreatesNothing) {
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

TEST_F(SqliteDatabaseTest, ATableReadsItsRowOnceUntilItIsRefreshedOrChanged) {
    Run({"CREATE TABLE Options (NextVoucherNo INTEGER, CreditToOrder BOOLEAN)",
         "INSERT INTO Options VALUES (100, 0)"});
    const auto options = database_->OpenTable("Options");
    const auto other = engine_.OpenDatabase(file_);
    EXPECT_EQ(options->Get("NextVoucherNo"), Value(100));
    other->Execute("UPDATE Options SET NextVoucherNo = 200, CreditToOrder = 1");
    EXPECT_EQ(options->Get("CreditToOrder"), Value(false));
    options->Refresh();
    EXPECT_EQ(options->Get("CreditToOrder"), Value(true));

    other->Execute("UPDATE Options SET NextVoucherNo = 300");
    options->Edit();
    EXPECT_EQ(options->Get("NextVoucherNo"), Value(300)) << "what is changed was read anew";
    options->Set("nextvoucherno", 301);
    EXPECT_EQ(options->Get("NextVoucherNo"), Value(301));
    options->Update();
    EXPECT_EQ(other->OpenQuery("SELECT * FROM Options")->Get("NextVoucherNo"), Value(301));
    ExpectError(number::kUpdateWithoutEdit, [&] { options->Update(); });

    other->Execute("DELETE * FROM Options");
    options->Refresh();
    ExpectError(number::kNoCurrentRecord, [&] { (void)options->Get("NextVoucherNo"); });
    const auto empty = database_->OpenTable("Options");
    ExpectError(number::kNoCurrentRecord, [&] { (void)empty->Get("NextVoucherNo"); });
    ExpectError(number::kNoCurrentRecord, [&] { empty->Edit(); });
}

TEST_F(SqliteDatabaseTest, SeeksByThePrimaryKey) {
    Run({"CREATE TABLE Tax (VatCode INTEGER PRIMARY KEY, Rate DOUBLE)",
         "INSERT INTO Tax VALUES (1, 25), (2, 15)",
         "CREATE TABLE Products (Name, ID TEXT PRIMARY KEY)",
         "INSERT INTO Products VALUES ('one', 'Ærfugl'), ('two', 'x1')", "CREATE TABLE Loose (A)",
         "CREATE VIEW Seen AS SELECT * FROM Tax"});
    const auto tax = database_->OpenTable("Tax");
    ExpectError(number::kNoSuchIndex, [&] { tax->Seek(1); });
    tax->SetIndex("primarykey");
    for (const Value& key : {Value(2), Value(2.0), Value("2"), Value(" 2,0 ")}) {
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

TEST_F(SqliteDatabaseTest, AppendsRowsOfTheColumnsTypes) {
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

TEST_F(SqliteDatabaseTest, TellsWhichColumnsKeepANumberToItsLastDigit) {
    Run({"CREATE TABLE T (N INTEGER, D DOUBLE, S TEXT)"});
    const auto rows = database_->OpenAppender("T");
    const Value floating = Value::FloatingOf(12345678901234567);
    struct Case {
        Value value;
        const char* keeping;  // by column
    };
    for (const Case& test :
         {Case{501, "yyy"}, Case{501.0, "yyy"}, Case{"501", "yyy"}, Case{" 501,0", "yyn"},
          Case{12345678901234567, "yny"}, Case{floating, "ynn"}, Case{"12345678901234567", "yny"},
          Case{0.5, "nnn"}, Case{"0,5", "nnn"}, Case{1e19, "nnn"}, Case{Value(), "yyy"},
          Case{"x", "yyy"}}) {
        for (int field = 0; field < 3; ++field) {
            EXPECT_EQ(rows->KeepsNumber(field, test.value) ? 'y' : 'n', test.keeping[field])
                << &test.keeping[field];
        }
    }
    rows->Set(0, floating);
    rows->Save();
    EXPECT_EQ(database_->OpenQuery("SELECT N FROM T")->Get("N"), Value(12345678901234567));
}

TEST_F(SqliteDatabaseTest, TransactionsReachTheFileWholeOrNotAtAll) {
    Run({"CREATE TABLE T (A)"});
    const auto other = engine_.OpenDatabase(file_);
    const auto count = [&] { return other->OpenQuery("SELECT count(*) AS n FROM T")->Get("n"); };
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

TEST_F(SqliteDatabaseTest, AScopedIndexLeavesNoTrace) {
    Run({"CREATE TABLE SalesLines (SalesID INTEGER, LineNo INTEGER, Name TEXT)",
         "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 5000) "
         "INSERT INTO SalesLines SELECT i % 1000, 1, i FROM n"});
    const std::string before = folder_.Read("Kassovia.mdb");
    constexpr const char* kLines = "SELECT * FROM SalesLines WHERE SalesID = ? ORDER BY LineNo";
    constexpr const char* kIndexes = "SELECT count(*) FROM sqlite_master WHERE type = 'index'";
    {
        const auto index = database_->IndexWhileInScope("saleslines", "SalesID, LineNo");
        EXPECT_EQ(One(kIndexes), Value(1));
        const auto lines = database_->OpenQuery(kLines, {17});
        EXPECT_EQ(lines->RecordCount(), 5);
        EXPECT_EQ(lines->Get("Name"), Value("17")) << "equal numbers in the order of the table";
    }
    EXPECT_EQ(One(kIndexes), Value(0));
    EXPECT_EQ(folder_.Read("Kassovia.mdb"), before);
    EXPECT_EQ(One("PRAGMA integrity_check"), Value("ok"));
    ExpectError(number::kNoSuchTable, [&] { (void)database_->IndexWhileInScope("NoTable", "A"); });
    Run({"DELETE * FROM SalesLines"});
}

TEST_F(SqliteDatabaseTest, WhatWasOpenedOutlivesTheDatabaseObject) {
    Run({"CREATE TABLE T (A INTEGER)", "INSERT INTO T VALUES (1)"});
    const auto table = database_->OpenTable("T");
    const auto rows = database_->OpenQuery("SELECT * FROM T");
    database_.reset();
    rows->Edit();
    rows->Set("A", 2);
    rows->Update();
    EXPECT_EQ(table->Get("A"), Value(2));
}

TEST_F(SqliteDatabaseTest, APreparedStatementRunsWithValues) {
    Run({"CREATE TABLE T (ID INTEGER, Name TEXT, Day DATETIME)"});
    const auto insert = database_->Prepare("INSERT INTO T VALUES (?1, ?2, ?3)");
    const DateTime day{2011, 2, 3};
    insert->Run(std::vector<Value>{1, "it's; -- 'one'", day});
    insert->Run(std::vector<Value>{2});
    const auto select = database_->Prepare("SELECT Name, Day FROM T WHERE ID = ?1");
    EXPECT_EQ(select->Run(std::vector<Value>{1}), (std::vector<Row>{{"it's; -- 'one'", day}}));
    EXPECT_EQ(select->Run(std::vector<Value>{2}), (std::vector<Row>{{Value(), Value()}}))
        << "nothing is left of the values before";
    EXPECT_TRUE(select->Run(std::vector<Value>{3}).empty());
    ExpectError(number::kSyntaxError, [&] { select->Run(std::vector<Value>{1, 2}); });
}

}  // namespace
}  // namespace platform::database
