// A partner or an item on its way to or from its table: the code, the other columns, and which of
// them were set. Knows no rule but those about the code.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/sapdi/codes.h"
#include "platform/sapdi/company_session.h"

namespace platform::sapdi {

class MasterRecord {
  public:
    // `columns` begins with the code; both live as long as the record.
    MasterRecord(const CodeTable& codes, std::span<const std::string_view> columns);

    void Set(std::size_t column, std::string_view text);
    [[nodiscard]] std::string Code() const;

    // A new row; what was never set is null. Error -2035 where the code exists, -5002 where it is
    // blank.
    void Insert(CompanySession& session) const;

    // Changes what was set since it was loaded. Gives the code as the company has it; error -5002
    // where it is blank, -2028 where the company does not have it.
    std::string Update(CompanySession& session) const;

    // False, with the record as it was, where the company does not have the code.
    bool Load(CompanySession& session, std::string_view code);

    void MarkSaved();

  private:
    void RequireNotBlank() const;

    const CodeTable& codes_;
    std::span<const std::string_view> columns_;
    Row values_;
    std::vector<bool> changed_;
};

}  // namespace platform::sapdi
