#include "platform/recordset_file/writer.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "platform/recordset_file/reader.h"
#include "tests/support/platform/expect_error.h"
#include "tests/support/platform/temp_folder.h"

namespace {

using platform::DateTime;
using platform::Value;
using platform::recordset_file::ColumnType;
using platform::recordset_file::RecordsetColumn;
using platform::recordset_file::RecordsetFileReader;
using platform::recordset_file::RecordsetFileWriter;
using support::ExpectError;

using Row = std::vector<Value>;

class WriterTest : public testing::Test {
  protected:
    std::string Write(const std::vector<RecordsetColumn>& columns, const std::vector<Row>& rows) {
        RecordsetFileWriter writer(path_, columns);
        for (const Row& row : rows)
            writer.Write(row);
        writer.Finish();
        return folder_.Read("Sales.XML");
    }

    std::pair<std::vector<std::string>, std::vector<Row>> ReadBack() {
        RecordsetFileReader reader(path_);
        std::vector<Row> rows;
        Row row;
        while (reader.Next(row))
            rows.push_back(row);
        return {reader.Fields(), rows};
    }

    support::TempFolder folder_;
    std::string path_ = folder_.File("Sales.XML");
};

TEST_F(WriterTest, TheFileOfASmallRecordset) {
    const std::string text = Write({{"ID", ColumnType::Integer, 0, false},
                                    {"Customer Name", ColumnType::Text, 40},
                                    {"Amount", ColumnType::Currency}},
                                   {{1, "O'Hara", 12.5}, {2, Value(), Value()}});
    EXPECT_EQ(text,
              "<xml xmlns:s='uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882'\r\n"
              "\txmlns:dt='uuid:C2F41010-65B3-11d1-A29F-00AA00C14882'\r\n"
              "\txmlns:rs='urn:schemas-microsoft-com:rowset'\r\n"
              "\txmlns:z='#RowsetSchema'>\r\n"
              "<s:Schema id='RowsetSchema'>\r\n"
              "\t<s:ElementType name='row' content='eltOnly'>\r\n"
              "\t\t<s:AttributeType name='ID' rs:number='1'>\r\n"
              "\t\t\t<s:datatype dt:type='int' dt:maxLength='4' rs:precision='10' "
              "rs:fixedlength='true' rs:maybenull='false'/>\r\n"
              "\t\t</s:AttributeType>\r\n"
              "\t\t<s:AttributeType name='c1' rs:name='Customer Name' rs:number='2' "
              "rs:nullable='true'>\r\n"
              "\t\t\t<s:datatype dt:type='string' dt:maxLength='40'/>\r\n"
              "\t\t</s:AttributeType>\r\n"
              "\t\t<s:AttributeType name='Amount' rs:number='3' rs:nullable='true'>\r\n"
              "\t\t\t<s:datatype dt:type='number' rs:dbtype='currency' dt:maxLength='8' "
              "rs:precision='19' rs:fixedlength='true'/>\r\n"
              "\t\t</s:AttributeType>\r\n"
              "\t\t<s:extends type='rs:rowbase'/>\r\n"
              "\t</s:ElementType>\r\n"
              "</s:Schema>\r\n"
              "<rs:data>\r\n"
              "\t<z:row ID='1' c1='O&#x27;Hara' Amount='12.5'/>\r\n"
              "\t<z:row ID='2'/>\r\n"
              "</rs:data>\r\n"
              "</xml>");
}

TEST_F(WriterTest, TheReaderGivesBackWhatWasWritten) {
    const std::vector<RecordsetColumn> columns = {
        {"Small", ColumnType::SmallInt}, {"Whole", ColumnType::Integer},
        {"Float", ColumnType::Double},   {"Money", ColumnType::Currency},
        {"Yes", ColumnType::Boolean},    {"When", ColumnType::Date},
        {"Text", ColumnType::Text, 60}};
    const std::vector<Row> rows = {
        {-32768, 2147483647, 0.1 + 0.2, -0.0001, true, DateTime{2006, 11, 16, 9, 5, 3}, ""},
        {1, 1, Value::FloatingOf(12345678901234567), 1.0, true, DateTime{100, 1, 1}, "1"},
        {32767, -5, 1.7976931348623157e308, 1e14, false, DateTime{100, 1, 1},
         " <a> & \"b\" 'c'\t\r\n ærlig 日本 "},
        Row(7)};
    Write(columns, rows);
    EXPECT_EQ(ReadBack().second, rows);
}

TEST_F(WriterTest, CurrencyHasUpToFourDecimals) {
    const std::pair<double, const char*> cases[] = {
        {7.35, "7.35"}, {100, "100"},        {0.00004, "0"},           {-0.00001, "0"},
        {-0.5, "-0.5"}, {1.23456, "1.2346"}, {1e14, "100000000000000"}};
    for (const auto& [amount, expected] : cases) {
        const std::string text = Write({{"A", ColumnType::Currency}}, {{amount}});
        EXPECT_NE(text.find("A='" + std::string(expected) + "'"), std::string::npos) << amount;
    }
}

TEST_F(WriterTest, NamesThatCanBeNoAttributesGetAliases) {
    const std::vector<std::string> names = {"ID", "id", "_x",  "1st", "Beløp",
                                            "C4", "",   "a b", "c7",  "it's\t<new>"};
    std::vector<RecordsetColumn> columns;
    Row row;
    for (const std::string& name : names) {
        columns.push_back({name});
        row.emplace_back("value of " + name);
    }
    const std::string text = Write(columns, {row});
    EXPECT_NE(text.find("z:row ID='value of ID' c1='value of id' c2='value of _x' c3='"),
              std::string::npos);
    EXPECT_NE(text.find("c4_='value of Beløp' C4='"), std::string::npos);
    EXPECT_EQ(ReadBack(), std::make_pair(names, std::vector<Row>{row}));
}

TEST_F(WriterTest, ValuesThatDoNotFitTheirColumn) {
    const double infinite = std::numeric_limits<double>::infinity();
    const std::pair<RecordsetColumn, Value> cases[] = {
        {{"A", ColumnType::SmallInt}, 32768},
        {{"A", ColumnType::Integer}, std::int64_t{2147483648}},
        {{"A", ColumnType::Integer}, 1.5},
        {{"A", ColumnType::Double}, infinite},
        {{"A", ColumnType::Double}, "1"},
        {{"A", ColumnType::Currency}, 1e15},
        {{"A", ColumnType::Boolean}, 1},
        {{"A", ColumnType::Date}, DateTime{2006, 2, 29}},
        {{"A", ColumnType::Text}, 1},
        {{"A", ColumnType::Text, 3}, "æøåæ"},
        {{"A", ColumnType::Text}, std::string("a\x01")},
        {{"A", ColumnType::Text, 3, false}, Value()},
    };
    for (const auto& [column, value] : cases) {
        RecordsetFileWriter writer(path_, {{"ID", ColumnType::Integer}, column});
        const std::string description = ExpectError(13, [&, &v = value] { writer.Write({1, v}); });
        EXPECT_NE(description.find("Sales.XML, record 1, column A: "), std::string::npos);
        writer.Finish();
        EXPECT_TRUE(ReadBack().second.empty()) << "nothing of a refused row may stay";
    }
}

TEST_F(WriterTest, WrongUseAndFilesThatCanNotBeMade) {
    RecordsetFileWriter writer(path_, {{"A"}});
    ExpectError(5, [&] { writer.Write({}); });
    writer.Finish();
    ExpectError(3704, [&] { writer.Write({"x"}); });
    ExpectError(13, [&] { RecordsetFileWriter refused(path_, {{"a\x02"}}); });
    ExpectError(75, [&] { RecordsetFileWriter refused(folder_.Path().string(), {{"A"}}); });
}

TEST_F(WriterTest, AnUnfinishedFileIsNoRecordset) {
    { const RecordsetFileWriter writer(path_, {{"A"}}); }
    RecordsetFileReader reader(path_);
    Row row;
    ExpectError(321, [&] { (void)reader.Next(row); });
}

}  // namespace
