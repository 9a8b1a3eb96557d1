#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <string>
#include <utility>

#include "tests/platform/recordset_file/reader_fixture.h"
#include "tests/support/platform/no_files.h"

namespace platform::recordset_file {
namespace {

using support::ExpectError;

TEST_F(ReaderTest, ErrorsNameLineRecordAndColumn) {
    EXPECT_EQ(
        Refusal(Sales("<z:row ID='1'/>\n<z:row\nID='2'/>\n<z:row c1='x'\nID='3' Amount='12,x'/>")),
        ", line 19, record 3, column Amount: \"12,x\" is no number.");
    EXPECT_EQ(Refusal(Sales("<z:row ID='1'/>\n<z:row c1='x'/>")),
              ", line 17, record 2, column ID: there is no value, but the column can not be null.");
    EXPECT_EQ(Refusal(Sales("<rs:update><rs:original><z:row ID='1'/></rs:original>\n"
                            "<z:row rs:forcenull='ID'/></rs:update>")),
              ", line 17, record 1, column ID: there is no value, but the column can not be null.");
    EXPECT_EQ(Refusal(Sales("<z:row ID='1'/></x>")),
              ", line 16: the XML is not well formed: mismatched tag.");
}

TEST_F(ReaderTest, RowsBeforeAFaultAreGiven) {
    folder_.Write(kFileName, Sales("<z:row ID='1'/><z:row ID='2'/><z:row ID='x'/><z:row ID='4'/>"));
    RecordsetFileReader reader(folder_.File(kFileName));
    Row row;
    ASSERT_TRUE(reader.Next(row));
    ASSERT_TRUE(reader.Next(row));
    EXPECT_EQ(row.at(0), Value(2));
    for (int i = 0; i < 2; ++i) {
        ExpectError(321, [&] { (void)reader.Next(row); });
        EXPECT_EQ(reader.RecordNumber(), 2);
    }
}

TEST_F(ReaderTest, AFileThatIsCutOffAnywhereIsAnError) {
    const std::string whole = Sales("<z:row ID='1'/><rs:update><z:row ID='2'/></rs:update>");
    ASSERT_EQ(Read(whole).rows.size(), 2U);
    for (std::size_t size = 0; size < whole.size(); size += 7) {
        EXPECT_NE(Refusal(whole.substr(0, size)).find(": the file ends too early"),
                  std::string::npos)
            << size;
    }
}

TEST_F(ReaderTest, WhatIsNoFlatRecordsetIsRefused) {
    const std::string data = "<rs:data><z:row A='1'/></rs:data>";
    const std::string column = "<s:AttributeType name='A'/>";
    const std::string type = "<s:ElementType name='row'>" + column;
    const std::pair<std::string, const char*> cases[] = {
        {"<recordset/>", "the root element is"},
        {"<xml xmlns='urn:x'/>", "line 1: the root element is \"xml\" of \"urn:x\""},
        {"<xml/>", "the file has no schema"},
        {"<xml><d:data xmlns:d='urn:schemas-microsoft-com:rowset'/></xml>", "has no schema"},
        {"<!DOCTYPE xml [<!ENTITY a 'aaaa'>]><xml>&a;</xml>", "DOCTYPE"},
        {"<!DOCTYPE xml SYSTEM 'file:///etc/passwd'><xml/>", "DOCTYPE"},
        {Document(type + "<s:ElementType name='Lines'/></s:ElementType>", data), "hierarchical"},
        {Document(type + "<s:element type='B'/></s:ElementType>", data), "s:element"},
        {Document(type + "</s:ElementType>" + type + "</s:ElementType>", data), "more than one"},
        {Document("<s:ElementType name='row'/>", data), "declares no columns"},
        {Document(type + "<s:attribute type='B'/></s:ElementType>", data), "refers to a column"},
        {Document(type + "<s:AttributeType name='a'/></s:ElementType>", data), "twice"},
        {OneColumn("rs:name='A'", ""), "a column has no name"},
        {OneColumn("name='A' rs:number='x'", ""), "the ordinal"},
        {OneColumn("name='A' rs:nullable='maybe'", ""), "neither true nor false"},
        {OneColumn("name='A'", "<z:row A='1'><Lines B='1'/></z:row>"), "elements inside a row"},
        {OneColumn("name='A'", "<row A='1'/>"), "unexpected element \"row\""},
        {OneColumn("name='A'", "<z:row A='1' a='2'/>"), "the column has two values"},
        {OneColumn("name='A'", "<rs:update><z:row/><z:row/></rs:update>"), "more than one new row"},
        {OneColumn("name='A'", "<rs:update/>"), "an update has no row"},
    };
    for (const auto& [document, reason] : cases) {
        const std::string description = Refusal(document);
        EXPECT_NE(description.find(reason), std::string::npos) << description;
    }
}

TEST_F(ReaderTest, HostileSizesAreRefused) {
    std::string columns;
    for (int i = 0; i < 2001; ++i)
        columns += "<s:AttributeType name='c" + std::to_string(i) + "'/>";
    const std::string rowType = "<s:ElementType name='row'>" + columns + "</s:ElementType>";
    EXPECT_NE(Refusal(Document(rowType, "")).find("more than 2000 columns"), std::string::npos);

    const std::string text(17UL * 1024 * 1024, 'x');
    EXPECT_NE(Refusal(Sales("<z:row ID='1' c1='" + text + "'/>")).find("longer than 16 MiB"),
              std::string::npos);
    EXPECT_NE(Refusal("<!--" + text + "-->").find("longer than 16 MiB"), std::string::npos);

    std::string nested = std::string(kSalesSchema);
    for (int i = 0; i < 100; ++i)
        nested += "<a>";
    EXPECT_NE(Refusal(nested).find("nested too deep"), std::string::npos);
}

// One of the spellings of a name of 16 letters.
std::string Spelling(std::size_t number) {
    std::string name(16, 'a');
    for (std::size_t bit = 0; bit < name.size(); ++bit) {
        if ((number >> bit & 1U) != 0) name[bit] = 'A';
    }
    return name;
}

// The parser keeps every name that it has seen, in whatever place of the file.
TEST_F(ReaderTest, NamesWithoutEndAreRefused) {
    const std::string column = "name='" + Spelling(0) + "'";
    const auto numbered = [](const char* before, const char* behind) {
        return [=](std::size_t number) { return before + std::to_string(number) + behind; };
    };
    const std::function<std::string(std::size_t)> rows[] = {
        numbered("<z:row n", "='x'/>"),
        [](std::size_t number) { return "<z:row " + Spelling(number) + "='x'/>"; },
        numbered("<rs:insert n", "='x'><z:row/></rs:insert>"),
        numbered("<rs:delete><n", "/></rs:delete>"),
        numbered("<z:row xmlns:n", "='urn:x'/>"),
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row(1));
        std::string many;
        for (std::size_t number = 0; number < 6000; ++number)
            many += row(number) + "\n";
        const std::string refusal = Refusal(OneColumn(column, many));
        EXPECT_TRUE(refusal.starts_with(", line ")) << refusal;
        EXPECT_NE(refusal.find("too many names that the schema does not know"), std::string::npos)
            << refusal;
    }
    std::string honest;
    for (int i = 0; i < 6000; ++i)
        honest += "<z:row id='1' unknown='x' rs:forcenull='c1'/>";
    EXPECT_EQ(Read(Sales(honest)).rows.size(), 6000U);
}

TEST_F(ReaderTest, FilesThatCanNotBeOpened) {
    const std::string missing = folder_.File("None.XML");
    EXPECT_NE(ExpectError(53, [&] { RecordsetFileReader reader(missing); }).find(missing),
              std::string::npos);
    for (const std::string& name : support::MakeNoFiles(folder_))
        ExpectError(75, [&] { RecordsetFileReader reader(folder_.File(name)); });
}

}  // namespace
}  // namespace platform::recordset_file
