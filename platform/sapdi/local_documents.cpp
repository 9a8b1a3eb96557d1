#include "platform/sapdi/local_documents.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/error.h"
#include "platform/files.h"
#include "platform/sapdi/codes.h"
#include "platform/sapdi/error_codes.h"
#include "platform/sapdi/head_and_lines.h"
#include "platform/sapdi/xml_rendering.h"

namespace platform::sapdi {
namespace {

enum HeadColumn : std::size_t {
    kCardCode,
    kCardName,
    kNumAtCard,
    kReference1,
    kReference2,
    kDocDate,
    kTaxDate,
    kComments,
    kOwnReference,
    kSalesPerson,
    kDocNum,
};

constexpr std::array<std::string_view, kDocNum + 1> kHeadColumns = {
    "CardCode", "CardName", "NumAtCard", "Ref1",    "Ref2",  "DocDate",
    "TaxDate",  "Comments", "OwnRef",    "SlpCode", "DocNum"};

enum LineColumn : std::size_t {
    kItemCode,
    kDescription,
    kQuantity,
    kPrice,
    kDiscount,
    kAccount,
    kProject,
    kDepartment,
};

constexpr std::array<std::string_view, kDepartment + 1> kLineColumns = {
    "ItemCode", "Dscription", "Quantity", "Price", "DiscPrcnt", "AcctCode", "Project", "OcrCode"};

constexpr HeadAndLinesTables Tables(ObjectType type, std::string_view head,
                                    std::string_view lines) {
    return {type, head, lines, "DocEntry", "DocNum", "LineNum", kHeadColumns, kLineColumns};
}

constexpr std::array kDocumentTables = {
    Tables(ObjectType::Invoices, "OINV", "INV1"), Tables(ObjectType::CreditNotes, "ORIN", "RIN1"),
    Tables(ObjectType::DeliveryNotes, "ODLN", "DLN1"), Tables(ObjectType::Returns, "ORDN", "RDN1"),
    Tables(ObjectType::Orders, "ORDR", "RDR1")};

std::string LinePlace(std::size_t line) {
    return "Line " + std::to_string(line + 1) + ": ";
}

class LocalDocumentLines : public DocumentLines {
  public:
    explicit LocalDocumentLines(HeadAndLines& content) : content_(content) {}

    void Add() override { content_.AddLine(); }
    void SetCurrentLine(std::int32_t line) override { content_.SetCurrentLine(line); }
    void SetItemCode(std::string_view code) override { SetText(kItemCode, code); }
    void SetItemDescription(std::string_view text) override { SetText(kDescription, text); }
    void SetAccountCode(std::string_view code) override { SetText(kAccount, code); }
    void SetProjectCode(std::string_view code) override { SetText(kProject, code); }
    void SetCostingCode(std::string_view department) override { SetText(kDepartment, department); }
    void SetQuantity(double quantity) override { content_.CurrentLine()[kQuantity] = quantity; }
    void SetUnitPrice(double price) override { content_.CurrentLine()[kPrice] = price; }
    void SetDiscountPercent(double discount) override {
        content_.CurrentLine()[kDiscount] = discount;
    }

  private:
    void SetText(LineColumn column, std::string_view text) {
        content_.CurrentLine()[column].AssignText(text);
    }

    HeadAndLines& content_;
};

class LocalDocuments : public Documents {
  public:
    LocalDocuments(std::shared_ptr<CompanySession> session, const HeadAndLinesTables& tables)
        : session_(std::move(session)), tables_(tables) {}

    void SetCardCode(std::string_view code) override { SetText(kCardCode, code); }
    [[nodiscard]] std::string CardCode() const override {
        return std::string(TextOf(content_.Head(kCardCode)));
    }
    void SetCardName(std::string_view name) override { SetText(kCardName, name); }
    void SetNumAtCard(std::string_view reference) override { SetText(kNumAtCard, reference); }
    void SetReference1(std::string_view reference) override { SetText(kReference1, reference); }
    void SetReference2(std::string_view reference) override { SetText(kReference2, reference); }
    void SetDocDate(const DateTime& date) override { SetText(kDocDate, IsoDate(date)); }
    [[nodiscard]] DateTime DocDate() const override { return DateOf(content_.Head(kDocDate)); }
    void SetTaxDate(const DateTime& date) override { SetText(kTaxDate, IsoDate(date)); }
    void SetComments(std::string_view remarks) override { SetText(kComments, remarks); }
    void SetOwnReference(std::string_view reference) override { SetText(kOwnReference, reference); }
    void SetSalesPersonCode(std::int32_t code) override { content_.Head(kSalesPerson) = code; }
    [[nodiscard]] std::int32_t DocNum() const override { return content_.Number(); }
    [[nodiscard]] DocumentLines& Lines() override { return lines_; }

    [[nodiscard]] std::int32_t Add() override;
    bool GetByKey(std::int32_t docEntry) override {
        (void)session_->Connected();
        return content_.Load(*session_, docEntry);
    }
    void SaveXML(std::string_view fileName) override { WriteWholeFile(fileName, content_.ToXml()); }

  private:
    void SetText(HeadColumn column, std::string_view text) {
        content_.Head(column).AssignText(text);
    }
    void RequireCustomerAndItems() const;
    void RequireKnownCodes() const;

    std::shared_ptr<CompanySession> session_;
    const HeadAndLinesTables& tables_;
    HeadAndLines content_{tables_};
    LocalDocumentLines lines_{content_};
};

std::int32_t LocalDocuments::Add() {
    std::int32_t key = 0;
    const std::int32_t code = session_->Add([&] {
        RequireCustomerAndItems();
        RequireKnownCodes();
        // Invoices and credit notes are marked by their number, which is no key, once they are
        // added.
        const bool isMarked =
            tables_.type == ObjectType::Invoices || tables_.type == ObjectType::CreditNotes;
        if (isMarked) session_->IndexUntilEnd(tables_.head, "DocNum");
        key = content_.Insert(*session_, content_.Lines().size());
        return std::to_string(key);
    });
    if (code == 0) content_.SetNumber(key);
    return code;
}

void LocalDocuments::RequireCustomerAndItems() const {
    if (IsBlank(CardCode())) {
        throw RuntimeError(error_code::kInvalidValue, "Customer code is missing");
    }
    const std::vector<Row>& lines = content_.Lines();
    // A document begins with one empty line: left empty it is none.
    if (lines.size() == 1 && std::ranges::all_of(lines.front(), &Value::IsNull)) {
        throw RuntimeError(error_code::kInvalidValue, "The document has no lines");
    }
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (!IsBlank(TextOf(lines[i][kItemCode]))) continue;
        throw RuntimeError(error_code::kInvalidValue, LinePlace(i) + "Item code is missing");
    }
}

void LocalDocuments::RequireKnownCodes() const {
    (void)RequireCode(*session_, kCustomerCodes, CardCode());
    const std::vector<Row>& lines = content_.Lines();
    for (std::size_t i = 0; i < lines.size(); ++i) {
        (void)RequireCode(*session_, kItemCodes, TextOf(lines[i][kItemCode]), LinePlace(i));
    }
    for (std::size_t i = 0; i < lines.size(); ++i) {
        RequireAccountOrNone(*session_, TextOf(lines[i][kAccount]), LinePlace(i));
    }
}

}  // namespace

std::unique_ptr<Documents> NewLocalDocuments(std::shared_ptr<CompanySession> session,
                                             ObjectType type) {
    const auto* const tables = std::ranges::find(kDocumentTables, type, &HeadAndLinesTables::type);
    if (tables == kDocumentTables.end()) {
        throw RuntimeError(
            error_number::kInvalidArgument,
            "Object type " + std::to_string(static_cast<int>(type)) + " is no document");
    }
    return std::make_unique<LocalDocuments>(std::move(session), *tables);
}

}  // namespace platform::sapdi
