#include <gtest/gtest.h>

#include "platform/database/client_recordset.h"
#include "platform/database/filter.h"
#include "platform/error.h"
#include "tests/support/platform/expect_error.h"

namespace platform::database {
namespace {

namespace number = error_number;
using support::ExpectError;

std::shared_ptr<RowSet> Lines() {
    return std::make_shared<RowSet>(RowSet{
        {"SalesID", "LineNo", "Beløp", "LINENO"},
        {{1, 1, 10.0, "second of its name"}, {2, 1, 20.0, {}}, {1, 2, 30.0, {}}, {2, 2, {}, {}}}});
}

std::vector<Value> LineNumbers(Recordset& lines) {
    std::vector<Value> numbers;
    for (; !lines.IsEof(); lines.MoveNext())
        numbers.push_back(lines.Get("LineNo"));
    return numbers;
}

TEST(ClientRecordset, FindsFieldsWithoutRegardToCase) {
    const ClientRecordset lines(Lines());
    EXPECT_EQ(lines.Get("salesid"), Value(1));
    EXPECT_EQ(lines.Get("BELØP"), Value(10.0));
    EXPECT_EQ(lines.Get("lineno"), Value(1)) << "the first of two equal names";
    const std::string description =
        ExpectError(number::kFieldNotFound, [&] { (void)lines.Get("Qty"); });
    EXPECT_NE(description.find("'Qty'"), std::string::npos);
}

TEST(ClientRecordset, WalksToTheEndAndBack) {
    ClientRecordset lines(Lines());
    EXPECT_EQ(LineNumbers(lines).size(), 4U);
    EXPECT_TRUE(lines.IsEof());
    ExpectError(number::kNoCurrentRecord, [&] { lines.MoveNext(); });
    ExpectError(number::kNoCurrentRecord, [&] { (void)lines.Get("SalesID"); });
    ExpectError(number::kNoCurrentRecord, [&] { lines.Edit(); });
    lines.MoveFirst();
    EXPECT_EQ(lines.Get("SalesID"), Value(1));

    ClientRecordset empty(std::make_shared<RowSet>());
    EXPECT_TRUE(empty.IsEof());
    ExpectError(number::kNoCurrentRecord, [&] { empty.MoveFirst(); });
}

TEST(ClientRecordset, ViewOfSomeRows) {
    ClientRecordset lines(Lines(), {3, 1});
    EXPECT_EQ(lines.RecordCount(), 2);
    EXPECT_EQ(LineNumbers(lines), (std::vector<Value>{2, 1}));
}

TEST(Filter, TakesThePlacesWhoseRowsPass) {
    const auto rows = Lines();
    const auto passing = [&](const char* filter) {
        const std::size_t places[] = {3, 2, 1, 0};
        return PlacesThatPass(ParseFilter(filter), *rows, places);
    };
    using Places = std::vector<std::size_t>;
    EXPECT_EQ(passing("SalesID = 1 and LINENO >= 1"), (Places{2, 0}));
    EXPECT_EQ(passing("beløp > 0"), (Places{2, 1, 0})) << "null passes nothing";
    EXPECT_EQ(passing("SalesID = 3"), Places{});
    EXPECT_EQ(passing(""), (Places{3, 2, 1, 0}));
    ExpectError(number::kFieldNotFound, [&] { (void)passing("Qty = 1"); });
    ExpectError(number::kSyntaxError, [&] { (void)passing("SalesID = "); });
}

TEST(ClientRecordset, ChangesARowForAllWhoShareTheRows) {
    const auto rows = Lines();
    ClientRecordset lines(rows, {1, 3});
    lines.MoveNext();
    lines.Edit();
    lines.Set("Beløp", 99.0);
    EXPECT_EQ(lines.Get("Beløp"), Value(99.0));
    EXPECT_TRUE(rows->rows[3][2].IsNull()) << "not before Update";
    lines.Update();
    EXPECT_EQ(rows->rows[3][2], Value(99.0));

    lines.MoveFirst();
    lines.Edit();
    lines.Set("Beløp", 1.0);
    lines.MoveNext();
    EXPECT_EQ(rows->rows[1][2], Value(20.0)) << "moving on forgets the change";
    ExpectError(number::kUpdateWithoutEdit, [&] { lines.Update(); });
    ExpectError(number::kUpdateWithoutEdit, [&] { lines.Set("Beløp", 2.0); });
}

class RefusingSaver : public RowSaver {
  public:
    void Save(std::size_t, const Row&, const std::vector<int>&) override {
        throw RuntimeError(number::kDiskFull, "full");
    }
    [[nodiscard]] std::optional<Row> Stored(std::size_t) const override { return std::nullopt; }
};

TEST(ClientRecordset, ARowThatIsNotSavedStaysAsItWas) {
    const auto rows = Lines();
    ClientRecordset lines(rows, std::make_unique<RefusingSaver>());
    lines.Edit();
    lines.Set("SalesID", 7);
    ExpectError(number::kDiskFull, [&] { lines.Update(); });
    EXPECT_EQ(rows->rows[0][0], Value(1));
}

TEST(ClientRecordset, RefusesEveryCallOnceClosed) {
    ClientRecordset lines(Lines());
    lines.Close();
    ExpectError(number::kObjectClosed, [&] { (void)lines.IsEof(); });
    ExpectError(number::kObjectClosed, [&] { (void)lines.RecordCount(); });
    ExpectError(number::kObjectClosed, [&] { lines.MoveFirst(); });
    ExpectError(number::kObjectClosed, [&] { lines.MoveNext(); });
    ExpectError(number::kObjectClosed, [&] { (void)lines.Get("SalesID"); });
    ExpectError(number::kObjectClosed, [&] { lines.Edit(); });
    ExpectError(number::kObjectClosed, [&] { lines.Set("SalesID", 1); });
    ExpectError(number::kObjectClosed, [&] { lines.Update(); });
    ExpectError(number::kObjectClosed, [&] { lines.Close(); });
}

}  // namespace
}  // namespace platform::database
