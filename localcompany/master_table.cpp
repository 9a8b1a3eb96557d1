#include "localcompany/master_table.h"

#include <optional>
#include <span>
#include <vector>

#include "localcompany/sql_builder.h"
#include "platform/error.h"
#include "platform/sapdi/error_codes.h"

namespace localcompany {

using platform::RuntimeError;
using platform::Value;
using platform::sapdi::MasterRecord;
using platform::sapdi::RequireNotBlank;
namespace error_code = platform::sapdi::error_code;

void InsertRecord(CompanySession& session, const CodeTable& table, const MasterRecord& record) {
    const std::string code = record.Code();
    if (FindCode(session, table, code)) {
        throw RuntimeError(error_code::kCodeExists,
                           std::string(table.noun) + " '" + code + "' already exists");
    }
    RequireNotBlank(table.noun, code);
    session.Run(InsertSql(table.table, record.Columns()), record.Values());
}

std::string UpdateRecord(CompanySession& session, const CodeTable& table,
                         const MasterRecord& record) {
    RequireNotBlank(table.noun, record.Code());
    std::string stored = RequireCode(session, table, record.Code());
    const std::span<const std::string_view> columns = record.Columns();
    std::string changes;
    std::vector<Value> values;
    for (std::size_t i = 1; i < columns.size(); ++i) {  // the code itself stays
        if (!record.WasSet(i)) continue;
        changes.append(changes.empty() ? "" : ", ").append(columns[i]).append(" = ?");
        values.push_back(record.Values()[i]);
    }
    if (changes.empty()) return stored;
    values.emplace_back(stored);
    session.Run("UPDATE " + std::string(table.table) + " SET " + changes + " WHERE " +
                    std::string(table.column) + " = ?",
                values);
    return stored;
}

bool LoadRecord(CompanySession& session, const CodeTable& table, std::string_view code,
                MasterRecord& record) {
    const std::optional<std::string> stored = FindCode(session, table, code);
    if (!stored) return false;
    record.Replace(
        session.Run(SelectSql(table.table, record.Columns(), table.column), {*stored}).front());
    return true;
}

}  // namespace localcompany
