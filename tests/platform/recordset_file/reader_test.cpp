#include "platform/recordset_file/reader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/recordset_file/persist_connection.h"
#include "tests/support/expect_error.h"
#include "tests/support/temp_folder.h"

namespace {

using platform::RecordsetFileReader;
using platform::Value;
using support::ExpectError;
using support::TempFolder;

using Row = std::vector<Value>;
using Rows = std::vector<Row>;

constexpr std::string_view kFileName = "Kasse1DayEndSales.XML";

// Four columns in the form that the store system writes; the data section follows on line 15.
constexpr std::string_view kSalesSchema =
    R"(<xml xmlns:s='uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882'
 xmlns:dt='uuid:C2F41010-65B3-11d1-A29F-00AA00C14882'
 xmlns:rs='urn:schemas-microsoft-com:rowset' xmlns:z='#RowsetSchema'>
<s:Schema id='RowsetSchema'><s:ElementType name='row' content='eltOnly'>
<s:AttributeType name='ID' rs:number='1' rs:write='true'>
 <s:datatype dt:type='int' dt:maxLength='4' rs:fixedlength='true' rs:maybenull='false'/>
</s:AttributeType>
<s:AttributeType name='c1' rs:name='Customer Name' rs:number='2' rs:nullable='true'>
 <s:datatype dt:type='string' dt:maxLength='3' rs:maybenull='false'/></s:AttributeType>
<s:AttributeType name='Amount' rs:number='3' rs:nullable='true'>
 <s:datatype dt:type='number' rs:dbtype='currency' dt:maxLength='8'/></s:AttributeType>
<s:AttributeType name='Credit' rs:number='4'>
 <s:datatype dt:type='boolean' dt:maxLength='2'/></s:AttributeType>
<s:extends type='rs:rowbase'/></s:ElementType></s:Schema>
)";

std::string Sales(std::string_view rows) {
    return std::string(kSalesSchema) + "<rs:data>\n" + std::string(rows) + "\n</rs:data></xml>";
}

// A file whose schema section and data section are given, with the usual prefixes.
std::string Document(std::string_view schema, std::string_view data) {
    const std::string root(kSalesSchema.substr(0, kSalesSchema.find("<s:Schema")));
    return root + "<s:Schema id='RowsetSchema'>" + std::string(schema) + "</s:Schema>" +
           std::string(data) + "</xml>";
}

std::string OneColumn(std::string_view declaration, std::string_view rows) {
    return Document("<s:ElementType name='row'><s:AttributeType " + std::string(declaration) +
                        "/></s:ElementType>",
                    "<rs:data>" + std::string(rows) + "</rs:data>");
}

// With the byte order mark; for texts without supplementary characters.
std::string Utf16(const std::string& utf8, bool bigEndian) {
    std::u16string units = u"\uFEFF";
    for (const char c : utf8) {
        const auto byte = static_cast<unsigned char>(c);
        const bool follows = (byte & 0xC0) == 0x80;
        const int lead = byte < 0x80 ? 0x7F : byte < 0xE0 ? 0x1F : 0x0F;
        if (!follows) units.push_back(static_cast<char16_t>(byte & lead));
        if (follows) units.back() = static_cast<char16_t>(units.back() << 6 | (byte & 0x3F));
    }
    std::string bytes;
    for (const char16_t unit : units) {
        const char high = static_cast<char>(unit >> 8);
        const char low = static_cast<char>(unit & 0xFF);
        bytes += bigEndian ? high : low;
        bytes += bigEndian ? low : high;
    }
    return bytes;
}

struct Content {
    std::vector<std::string> fields;
    Rows rows;
};

class ReaderTest : public testing::Test {
  protected:
    Content Read(std::string_view bytes) {
        folder_.Write(kFileName, bytes);
        RecordsetFileReader reader(folder_.File(kFileName));
        Content content{reader.Fields(), {}};
        Row row;
        while (reader.Next(row)) {
            content.rows.push_back(row);
            EXPECT_EQ(reader.RecordNumber(), static_cast<long>(content.rows.size()));
        }
        return content;
    }

    // The description behind the name of the file.
    std::string Refusal(std::string_view bytes) {
        const std::string description = ExpectError(321, [&] { Read(bytes); });
        const std::string path = folder_.File(kFileName);
        EXPECT_TRUE(description.starts_with(path)) << description;
        return description.substr(std::min(path.size(), description.size()));
    }

    TempFolder folder_;
};

TEST_F(ReaderTest, FieldsAndRowsOfTheUsualForm) {
    const Content content =
        Read(Sales("<z:row ID='7' c1='Hansen &#x26; S&#xf8;nn' Amount='12.5' Credit='True'/>\n"
                   "<!-- a comment --><?shop note?>\n"
                   "<z:row Credit='0' id='8' Unknown='x' c1=''></z:row>"));
    EXPECT_EQ(content.fields,
              (std::vector<std::string>{"ID", "Customer Name", "Amount", "Credit"}));
    EXPECT_EQ(content.rows, (Rows{{7, "Hansen & Sønn", 12.5, true}, {8, "", Value(), false}}));
}

TEST_F(ReaderTest, WhiteSpaceInTextIsWhatXmlMakesOfIt) {
    const Content content = Read(Sales("<z:row ID='1' c1='a\r\nb\tc&#xd;&#xa;d  '/>"));
    EXPECT_EQ(content.rows.at(0).at(1), Value("a b c\r\nd  "));
}

TEST_F(ReaderTest, PendingChangesAreResolvedInDocumentOrder) {
    const Content content = Read(Sales(R"(
<rs:delete><z:row ID='90' Amount='no number in a deleted row'/></rs:delete>
<rs:insert><z:row ID='1' c1='new' RS:forcenull='' xmlns:RS='urn:schemas-microsoft-com:rowset'/>
 <z:row ID='2' Amount='2' rs:forcenull='c1 CREDIT'/></rs:insert>
<z:row ID='3'/>
<rs:update><rs:original><z:row ID='4' c1='old' Amount='4' Credit='True'/></rs:original>
 <z:row c1='changed' rs:forcenull='AMOUNT'/></rs:update>
<rs:update><z:row Amount='5.5'/><rs:original><z:row ID='5' c1='five'/></rs:original></rs:update>
<rs:update><rs:original><z:row ID='6' c1='same'/></rs:original><z:row/></rs:update>
<rs:update><rs:original><z:row ID='7'/></rs:original></rs:update>
<rs:update><z:row ID='8' c1='alone'/></rs:update>
<z:row ID='9'/>)"));
    const Value null;
    EXPECT_EQ(content.rows, (Rows{{1, "new", null, null},
                                  {2, null, 2.0, null},
                                  {3, null, null, null},
                                  {4, "changed", null, true},
                                  {5, "five", 5.5, null},
                                  {6, "same", null, null},
                                  {7, null, null, null},
                                  {8, "alone", null, null},
                                  {9, null, null, null}}));
}

TEST_F(ReaderTest, DataBlocksAddUpAndMayBeMissing) {
    EXPECT_EQ(Read(std::string(kSalesSchema) + "</xml>").rows.size(), 0U);
    EXPECT_EQ(Read(std::string(kSalesSchema) + "<rs:data/><x/></xml>").rows.size(), 0U);
    EXPECT_EQ(Read(std::string(kSalesSchema) + "<rs:data><z:row ID='1'/></rs:data>" +
                   "<rs:data><z:row ID='2'/></rs:data></xml>")
                  .rows,
              (Rows{{1, Value(), Value(), Value()}, {2, Value(), Value(), Value()}}));
}

// Other prefixes, default namespaces, qualified attributes, other case, and the short form.
TEST_F(ReaderTest, ColumnsInTheShortForm) {
    const Content content = Read(R"(<?xml version="1.0"?>
<xml><schema xmlns="uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882"
 xmlns:x="uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882" xmlns:q="urn:schemas-microsoft-com:rowset"
 xmlns:t="uuid:C2F41010-65B3-11d1-A29F-00AA00C14882">
<elementtype x:name="row"><attributetype x:name="A" t:type="i4" q:maybenull="false">
<datatype type="string" maybenull="true"/></attributetype><attributetype name="B"/>
<Extends type="q:rowbase"/></elementtype></schema>
<d:data xmlns:d='urn:schemas-microsoft-com:rowset'><row xmlns='#RowsetSchema' A="1" b='x'/></d:data>
</xml>)");
    EXPECT_EQ(content.fields, (std::vector<std::string>{"A", "B"}));
    EXPECT_EQ(content.rows, (Rows{{1, "x"}}));
}

TEST_F(ReaderTest, ColumnsByReferenceComeInTheirOrderUnlessNumbersSayElse) {
    const auto document = [](const std::string& a, const std::string& b) {
        return Document(
            "<s:ElementType name='row'><s:attribute type='b'/>"
            "<s:attribute s:type='A'/></s:ElementType>"
            "<s:AttributeType name='a' dt:type='int'" +
                a +
                "/>"
                "<s:AttributeType name='unused'/>"
                "<s:AttributeType name='b' rs:name='Name'" +
                b + "/>",
            "<rs:data><z:row a='1' b='x' unused='y'/></rs:data>");
    };
    const Content content = Read(document("", ""));
    EXPECT_EQ(content.fields, (std::vector<std::string>{"Name", "a"}));
    EXPECT_EQ(content.rows, (Rows{{"x", 1}}));
    EXPECT_EQ(Read(document(" rs:number='1'", " rs:number='2'")).rows, (Rows{{1, "x"}}));
}

TEST_F(ReaderTest, ColumnsComeByNumberAndHiddenOnesAreNoFields) {
    const Content content = Read(Document(
        "<s:ElementType name='row'><s:AttributeType name='z' rs:number='30'/>"
        "<s:AttributeType name='key' dt:type='int' rs:number='5' rs:hidden='1' rs:maybenull='0'/>"
        "<s:AttributeType name='a' rs:number='4' rs:name='Name'/><s:AttributeType name='next'/>"
        "<s:AttributeType name='c' rs:name='Name' rs:number='1'/></s:ElementType>",
        "<rs:data><z:row z='last' key='none' a='2nd' next='3rd' c='1st'/><z:row/></rs:data>"));
    EXPECT_EQ(content.fields, (std::vector<std::string>{"Name", "Name", "next", "z"}));
    EXPECT_EQ(content.rows.at(0), (Row{"1st", "2nd", "3rd", "last"}));
    EXPECT_EQ(content.rows.size(), 2U);
}

TEST_F(ReaderTest, OtherEncodings) {
    const Rows expected{{1, "Sør – 5 €", Value(), Value()}};
    const std::string document = Sales("<z:row ID='1' c1='Sør – 5 €'/>");
    EXPECT_EQ(Read("\xEF\xBB\xBF" + document).rows, expected);
    EXPECT_EQ(Read("<?xml version='1.0' encoding='utf-8'?>" + document).rows, expected);
    EXPECT_EQ(Read("<?xml version='1.0' encoding='Windows-1252'?>" +
                   Sales("<z:row ID='1' c1='S\xF8r \x96 5 \x80'/>"))
                  .rows,
              expected);
    EXPECT_EQ(Read("<?xml version='1.0' encoding='iso-8859-1'?>" +
                   Sales("<z:row ID='1' c1='S\xF8r &#8211; 5 &#x20ac;'/>"))
                  .rows,
              expected);
    EXPECT_EQ(Read(Utf16(document, false)).rows, expected);
    EXPECT_EQ(Read(Utf16(document, true)).rows, expected);
    EXPECT_NE(Refusal("<?xml version='1.0' encoding='windows-1251'?>" + document)
                  .find("unknown encoding"),
              std::string::npos);
}

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

TEST_F(ReaderTest, LongTextsAndManyRowsCrossTheChunksUnharmed) {
    std::string rows;
    for (int i = 1; i <= 3000; ++i) {
        rows += "<z:row ID='" + std::to_string(i) + "' c1='" +
                std::string(static_cast<std::size_t>(i % 100), 'a') + "'/>\r\n";
    }
    const std::string longText(3UL * 1024 * 1024, 'y');
    const Content content = Read(Sales(rows + "<z:row ID='3001' c1='" + longText + "'/>"));
    ASSERT_EQ(content.rows.size(), 3001U);
    for (int i = 1; i <= 3000; ++i) {
        const Row& row = content.rows[static_cast<std::size_t>(i - 1)];
        ASSERT_EQ(row.at(0), Value(i));
        ASSERT_EQ(row.at(1).AsText()->size(), static_cast<std::size_t>(i % 100));
    }
    EXPECT_EQ(content.rows.back().at(1), Value(longText));
}

TEST_F(ReaderTest, FilesThatCanNotBeOpened) {
    const std::string missing = folder_.File("None.XML");
    EXPECT_NE(ExpectError(53, [&] { RecordsetFileReader reader(missing); }).find(missing),
              std::string::npos);
    ExpectError(75, [&] { RecordsetFileReader reader(folder_.Path().string()); });
}

TEST_F(ReaderTest, AConnectionOpensTheWholeFile) {
    folder_.Write(kFileName, Sales("<z:row ID='1'/><z:row ID='2' Amount='3'/>"));
    const platform::PersistConnection connection("provider=mspersist;");
    const auto recordset = connection.OpenRecordset(folder_.File("kasse1dayendsales.xml"));
    EXPECT_EQ(recordset->RecordCount(), 2);
    recordset->MoveNext();
    EXPECT_EQ(recordset->Get("amount"), Value(3.0));
    ExpectError(5, [] { platform::PersistConnection("Provider=Other;"); });
}

}  // namespace
