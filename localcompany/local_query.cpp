#include "localcompany/local_query.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "platform/error.h"

namespace localcompany {

using platform::RuntimeError;
using platform::Value;
using platform::database::ClientRecordset;
using platform::sapdi::Query;
namespace error_number = platform::error_number;

namespace {

struct StatementForKey {
    std::string sql;
    std::vector<Value> key;  // at most one
};

// The same change is asked for with the key of one document after another: with the number behind
// the last "= " as a parameter it is one statement, which is prepared once.
StatementForKey KeyAsParameter(std::string_view sql) {
    const std::size_t start = sql.find_last_not_of("0123456789") + 1;
    const std::string_view digits = sql.substr(start);
    std::int64_t key = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), key);
    const bool isCompared = sql.substr(0, start).ends_with("= ");
    if (!isCompared || result.ec != std::errc()) return {std::string(sql), {}};
    return {std::string(sql.substr(0, start)) + "?", {key}};
}

class LocalQuery : public Query {
  public:
    explicit LocalQuery(std::shared_ptr<CompanySession> session) : session_(std::move(session)) {}

    // A statement that gives no rows leaves an empty result.
    void DoQuery(std::string_view sql) override {
        const StatementForKey statement = KeyAsParameter(sql);
        rows_ = session_->Connected().OpenQuery(statement.sql, statement.key);
    }

    [[nodiscard]] std::int32_t QueryRecordCount() const override {
        if (!rows_) return 0;
        constexpr long kMost = std::numeric_limits<std::int32_t>::max();
        return static_cast<std::int32_t>(std::min(rows_->RecordCount(), kMost));
    }

    [[nodiscard]] bool QueryEof() const override { return !rows_ || rows_->IsEof(); }
    [[nodiscard]] Value QueryField(std::string_view name) const override {
        return Rows().Get(name);
    }
    void QueryMoveNext() override { Rows().MoveNext(); }

  private:
    [[nodiscard]] ClientRecordset& Rows() const {
        if (rows_) return *rows_;
        throw RuntimeError(error_number::kNoCurrentRecord, "No query was run yet");
    }

    std::shared_ptr<CompanySession> session_;
    std::unique_ptr<ClientRecordset> rows_;
};

}  // namespace

std::unique_ptr<Query> NewLocalQuery(std::shared_ptr<CompanySession> session) {
    return std::make_unique<LocalQuery>(std::move(session));
}

}  // namespace localcompany
