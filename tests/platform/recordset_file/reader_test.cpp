#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/recordset_file/persist_connection.h"
#include "tests/platform/recordset_file/reader_fixture.h"

namespace platform::recordset_file {
namespace {

using support::ExpectError;

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

TEST_F(ReaderTest, AConnectionOpensTheWholeFile) {
    folder_.Write(kFileName, Sales("<z:row ID='1'/><z:row ID='2' Amount='3'/>"));
    const PersistConnection connection("provider=mspersist;");
    const auto recordset = connection.OpenRecordset(folder_.File("kasse1dayendsales.xml"));
    EXPECT_EQ(recordset->RecordCount(), 2);
    recordset->MoveNext();
    EXPECT_EQ(recordset->Get("amount"), Value(3.0));
    ExpectError(5, [] { PersistConnection("Provider=Other;"); });
}

}  // namespace
}  // namespace platform::recordset_file
