#include "platform/sapdi/master_record.h"

#include "platform/error.h"
#include "platform/sapdi/error_codes.h"
#include "platform/sapdi/sql_builder.h"

namespace platform::sapdi {

MasterRecord::MasterRecord(const CodeTable& codes, std::span<const std::string_view> columns)
    : codes_(codes), columns_(columns), values_(columns.size()), changed_(columns.size()) {}

void MasterRecord::Set(std::size_t column, std::string_view text) {
    values_[column].AssignText(text);
    changed_[column] = true;
}

std::string MasterRecord::Code() const {
    const std::string* code = values_.front().AsText();
    return code == nullptr ? std::string() : *code;
}

void MasterRecord::Insert(CompanySession& session) const {
    if (FindCode(session, codes_, Code())) {
        throw RuntimeError(error_code::kCodeExists,
                           std::string(codes_.noun) + " '" + Code() + "' already exists");
    }
    RequireNotBlank();
    session.Run(InsertSql(codes_.table, columns_), values_);
}

std::string MasterRecord::Update(CompanySession& session) const {
    RequireNotBlank();
    std::string stored = RequireCode(session, codes_, Code());
    std::string changes;
    Row values;
    for (std::size_t i = 1; i < columns_.size(); ++i) {  // the code itself stays
        if (!changed_[i]) continue;
        changes.append(changes.empty() ? "" : ", ").append(columns_[i]).append(" = ?");
        values.push_back(values_[i]);
    }
    if (changes.empty()) return stored;
    values.emplace_back(stored);
    session.Run("UPDATE " + std::string(codes_.table) + " SET " + changes + " WHERE " +
                    std::string(codes_.column) + " = ?",
                values);
    return stored;
}

bool MasterRecord::Load(CompanySession& session, std::string_view code) {
    const std::optional<std::string> stored = FindCode(session, codes_, code);
    if (!stored) return false;
    values_ = session.Run(SelectSql(codes_.table, columns_, codes_.column), {*stored}).front();
    MarkSaved();
    return true;
}

void MasterRecord::MarkSaved() {
    changed_.assign(changed_.size(), false);
}

void MasterRecord::RequireNotBlank() const {
    if (!IsBlank(Code())) return;
    throw RuntimeError(error_code::kInvalidValue, std::string(codes_.noun) + " is missing");
}

}  // namespace platform::sapdi
