#include "localcompany/local_documents.h"

#include <utility>

#include "localcompany/codes.h"
#include "localcompany/head_and_lines_tables.h"
#include "platform/sapdi/document_content.h"

namespace localcompany {

using platform::sapdi::DocumentContent;
using platform::sapdi::Documents;
using platform::sapdi::ObjectType;
using platform::sapdi::Row;
using platform::sapdi::TextOf;

namespace {

constexpr KeyColumns kKeys{"DocEntry", "LineNum"};

class LocalDocuments : public DocumentContent {
  public:
    LocalDocuments(std::shared_ptr<CompanySession> session, ObjectType type)
        : DocumentContent(type), session_(std::move(session)) {}

    [[nodiscard]] std::int32_t Add() override;
    bool GetByKey(std::int32_t docEntry) override {
        (void)session_->Connected();
        return LoadHeadAndLines(*session_, kKeys, docEntry, Content());
    }

  private:
    void RequireKnownCodes() const;
    void IndexNumbers() const;

    std::shared_ptr<CompanySession> session_;
};

std::int32_t LocalDocuments::Add() {
    std::int32_t key = 0;
    const std::int32_t code = session_->Add([&] {
        RequireCustomerAndItems();
        RequireKnownCodes();
        IndexNumbers();
        key = InsertHeadAndLines(*session_, kKeys, Content(), Content().Lines());
        return std::to_string(key);
    });
    if (code == 0) Content().SetNumber(key);
    return code;
}

void LocalDocuments::RequireKnownCodes() const {
    (void)RequireCode(*session_, kCustomerCodes, CardCode());
    const std::vector<Row>& lines = Content().Lines();
    for (std::size_t i = 0; i < lines.size(); ++i)
        (void)RequireCode(*session_, kItemCodes, TextOf(lines[i][kItemCode]), i);
    for (std::size_t i = 0; i < lines.size(); ++i)
        RequireAccountOrNone(*session_, TextOf(lines[i][kAccount]), i);
}

// Invoices and credit notes are marked by their number, which is no key, once they are added.
void LocalDocuments::IndexNumbers() const {
    const auto& names = Content().Names();
    if (names.type == ObjectType::Invoices || names.type == ObjectType::CreditNotes) {
        session_->IndexUntilEnd(names.head, names.headColumns[kDocNum]);
    }
}

}  // namespace

std::unique_ptr<Documents> NewLocalDocuments(std::shared_ptr<CompanySession> session,
                                             ObjectType type) {
    return std::make_unique<LocalDocuments>(std::move(session), type);
}

}  // namespace localcompany
