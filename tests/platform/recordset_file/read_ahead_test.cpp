#include "platform/recordset_file/read_ahead.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/recordset_file/writer.h"
#include "tests/support/platform/expect_error.h"
#include "tests/support/platform/temp_folder.h"

namespace {

using platform::Value;
using platform::recordset_file::ReadAhead;
using support::ExpectError;

class ReadAheadTest : public testing::Test {
  protected:
    // Rows numbered from 1, each with a text of so many characters.
    std::string Written(int count, std::size_t textLength) {
        const std::string name = folder_.File("Kasse1DayEndSalesLines.XML");
        platform::recordset_file::RecordsetFileWriter writer(
            name, {{"ID", platform::recordset_file::ColumnType::Integer},
                   {"Text", platform::recordset_file::ColumnType::Text, 1 << 20}});
        for (int i = 1; i <= count; ++i)
            writer.Write({i, std::string(textLength, static_cast<char>('a' + i % 26))});
        writer.Finish();
        return name;
    }

    // Takes rows 1 to `count` and expects each as it was written.
    static void TakeRows(ReadAhead& file, int count, std::size_t textLength) {
        std::vector<Value> row;
        for (int i = 1; i <= count; ++i) {
            ASSERT_TRUE(file.Next(row)) << i;
            ASSERT_EQ(row.at(0), Value(i));
            ASSERT_EQ(row.at(1), Value(std::string(textLength, static_cast<char>('a' + i % 26))));
            ASSERT_EQ(file.RecordNumber(), i);
        }
    }

    support::TempFolder folder_;
};

TEST_F(ReadAheadTest, GivesEveryRowOnceAndInOrder) {
    std::vector<Value> row;
    for (const int count : {0, 1, 255, 256, 257, 768, 5000}) {
        ReadAhead file(Written(count, 10));
        TakeRows(file, count, 10);
        EXPECT_FALSE(file.Next(row));
        EXPECT_FALSE(file.Next(row));
        EXPECT_EQ(file.RecordNumber(), count);
    }
    ReadAhead longRows(Written(40, std::size_t{300} * 1024));
    TakeRows(longRows, 40, std::size_t{300} * 1024);
    EXPECT_FALSE(longRows.Next(row));
}

TEST_F(ReadAheadTest, GivesTheRowsBeforeAFaultAndThenTheFault) {
    for (const int count : {3, 256, 1000}) {
        const std::string name = Written(count, 10);
        std::filesystem::resize_file(name, std::filesystem::file_size(name) - 10);
        ReadAhead file(name);
        TakeRows(file, count, 10);
        std::vector<Value> row;
        for (int i = 0; i < 2; ++i) {
            const std::string text = ExpectError(321, [&] { (void)file.Next(row); });
            EXPECT_NE(text.find("ends too early"), std::string::npos) << text;
            EXPECT_EQ(file.RecordNumber(), count);
        }
    }
    ExpectError(53, [&] { ReadAhead file(folder_.File("None.XML")); });
}

TEST_F(ReadAheadTest, MayBeLeftAtAnyRow) {
    const std::string name = Written(5000, 10);
    for (const int taken : {0, 1, 256, 300, 2000}) {
        ReadAhead file(name);
        TakeRows(file, taken, 10);
    }
}

}  // namespace
