// A sales document but for its way to and from the company, which is the connector's: the content
// behind the interface, its rendering, and what is asked of it before it is sent.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/sapdi/business_objects.h"
#include "platform/sapdi/head_and_lines.h"

namespace platform::sapdi {

class DocumentContent : public Documents {
  public:
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

    explicit DocumentContent(ObjectType type);  // error 5 where that is no document
    DocumentContent(const DocumentContent&) = delete;
    DocumentContent& operator=(const DocumentContent&) = delete;

    void SetCardCode(std::string_view code) override { SetText(kCardCode, code); }
    [[nodiscard]] std::string CardCode() const override;
    void SetCardName(std::string_view name) override { SetText(kCardName, name); }
    void SetNumAtCard(std::string_view reference) override { SetText(kNumAtCard, reference); }
    void SetReference1(std::string_view reference) override { SetText(kReference1, reference); }
    void SetReference2(std::string_view reference) override { SetText(kReference2, reference); }
    void SetDocDate(const DateTime& date) override;
    [[nodiscard]] DateTime DocDate() const override;
    void SetTaxDate(const DateTime& date) override;
    void SetComments(std::string_view remarks) override { SetText(kComments, remarks); }
    void SetOwnReference(std::string_view reference) override { SetText(kOwnReference, reference); }
    void SetSalesPersonCode(std::int32_t code) override { content_.Head()[kSalesPerson] = code; }
    [[nodiscard]] std::int32_t DocNum() const override { return content_.Number(); }
    [[nodiscard]] DocumentLines& Lines() override { return lines_; }
    void SaveXML(std::string_view fileName) override;

  protected:
    [[nodiscard]] HeadAndLines& Content() { return content_; }
    [[nodiscard]] const HeadAndLines& Content() const { return content_; }

    // Error -5002 by the first that is missing: the customer, any line, the item of a line.
    void RequireCustomerAndItems() const;

  private:
    class LineContent : public DocumentLines {
      public:
        explicit LineContent(HeadAndLines& content) : content_(content) {}
        void Add() override { content_.AddLine(); }
        void SetCurrentLine(std::int32_t line) override { content_.SetCurrentLine(line); }
        void SetItemCode(std::string_view code) override { SetText(kItemCode, code); }
        void SetItemDescription(std::string_view text) override { SetText(kDescription, text); }
        void SetAccountCode(std::string_view code) override { SetText(kAccount, code); }
        void SetProjectCode(std::string_view code) override { SetText(kProject, code); }
        void SetCostingCode(std::string_view code) override { SetText(kDepartment, code); }
        void SetQuantity(double quantity) override { Field(kQuantity) = quantity; }
        void SetUnitPrice(double price) override { Field(kPrice) = price; }
        void SetDiscountPercent(double discount) override { Field(kDiscount) = discount; }

      private:
        Value& Field(LineColumn column) { return content_.CurrentLine()[column]; }
        void SetText(LineColumn column, std::string_view text) { Field(column).AssignText(text); }

        HeadAndLines& content_;
    };

    void SetText(HeadColumn column, std::string_view text) {
        content_.Head()[column].AssignText(text);
    }

    HeadAndLines content_;
    LineContent lines_{content_};
};

}  // namespace platform::sapdi
