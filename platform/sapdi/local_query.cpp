#include "platform/sapdi/local_query.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "platform/error.h"

namespace platform::sapdi {
namespace {

class LocalQuery : public Query {
  public:
    explicit LocalQuery(std::shared_ptr<CompanySession> session) : session_(std::move(session)) {}

    // A statement that gives no rows leaves an empty result.
    void DoQuery(std::string_view sql) override { rows_ = session_->Connected().OpenQuery(sql); }

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
    [[nodiscard]] Recordset& Rows() const {
        if (rows_) return *rows_;
        throw RuntimeError(error_number::kNoCurrentRecord, "No query was run yet");
    }

    std::shared_ptr<CompanySession> session_;
    std::unique_ptr<Recordset> rows_;
};

}  // namespace

std::unique_ptr<Query> NewLocalQuery(std::shared_ptr<CompanySession> session) {
    return std::make_unique<LocalQuery>(std::move(session));
}

}  // namespace platform::sapdi
