// Recordset files out of short texts, and what the reader makes of them.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "platform/recordset_file/reader.h"
#include "tests/support/platform/expect_error.h"
#include "tests/support/platform/temp_folder.h"

namespace platform::recordset_file {

using Row = std::vector<Value>;
using Rows = std::vector<Row>;

inline constexpr std::string_view kFileName = "Kasse1DayEndSales.XML";

// Four columns in the form that the store system writes; the data section follows on line 15.
inline constexpr std::string_view kSalesSchema =
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

inline std::string Sales(std::string_view rows) {
    return std::string(kSalesSchema) + "<rs:data>\n" + std::string(rows) + "\n</rs:data></xml>";
}

// A file whose schema section and data section are given, with the usual prefixes.
inline std::string Document(std::string_view schema, std::string_view data) {
    const std::string root(kSalesSchema.substr(0, kSalesSchema.find("<s:Schema")));
    return root + "<s:Schema id='RowsetSchema'>" + std::string(schema) + "</s:Schema>" +
           std::string(data) + "</xml>";
}

inline std::string OneColumn(std::string_view declaration, std::string_view rows) {
    return Document("<s:ElementType name='row'><s:AttributeType " + std::string(declaration) +
                        "/></s:ElementType>",
                    "<rs:data>" + std::string(rows) + "</rs:data>");
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
        const std::string description = support::ExpectError(321, [&] { Read(bytes); });
        const std::string path = folder_.File(kFileName);
        EXPECT_TRUE(description.starts_with(path)) << description;
        return description.substr(std::min(path.size(), description.size()));
    }

    support::TempFolder folder_;
};

}  // namespace platform::recordset_file
