#include "control/sap_company.h"

#include "platform/comparison.h"
#include "platform/error.h"
#include "platform/norwegian.h"
#include "platform/text.h"
#include "sap/logon.h"
#include "sap/transfer_driver.h"
#include "store/transaction_types.h"

namespace control {

using platform::RuntimeError;
using platform::sapdi::ObjectType;

namespace {

constexpr const char* kAccountQuery = "SELECT AcctCode FROM OACT";

// As the company compares codes: without regard to case and to blanks at the end.
std::string Key(const std::string& code) {
    return platform::Upper(platform::TrimRight(code));
}

}  // namespace

SapCompany::SapCompany(const Shop& shop)
    : shop_(shop),
      context_{shop.Settings(), shop.Options(), objects_, hasErrors_, nobody_},
      customers_([this](const std::string& code) { return AskForCustomer(code); }),
      items_([this](const std::string& code) { return AskForItem(code); }) {
    if (!sap::DocumentsAreWanted(shop.Settings())) return;
    try {
        isConnected_ = sap::LogonUnasked(context_, shop.Outside().sapConnector);
    } catch (const RuntimeError&) {
        isConnected_ = false;  // no company to read; the run tells what is wrong with it
    }
    if (isConnected_) ReadAccounts();
}

SapCompany::~SapCompany() {
    if (!isConnected_) return;
    try {
        sap::CloseSAPCompany(context_, platform::sapdi::TransactionEnd::RollBack);
    } catch (const RuntimeError&) {
        // Nothing was changed that would have to be kept.
    }
}

bool SapCompany::IsCreated(
    const store::Databases::Variable<platform::database::TableRecordset>& table,
    const std::string& code) const {
    try {
        table->SetIndex("PrimaryKey");
        table->Seek(platform::Trim(code));
        return !table->NoMatch() &&
               platform::Equals(table->Get("Status"), store::master_status::kNew);
    } catch (const RuntimeError&) {
        return true;  // a table or key that is missing is told as K006
    }
}

bool SapCompany::AskForCustomer(const std::string& code) {
    if (!isConnected_) return true;
    try {
        const auto partner = platform::sapdi::GetObject<platform::sapdi::BusinessPartners>(
            *objects_.SAPCompany, ObjectType::BusinessPartners);
        return partner->GetByKey(code) || IsCreated(shop_.Databases().CustomersTable, code);
    } catch (const RuntimeError&) {
        return true;
    }
}

bool SapCompany::AskForItem(const std::string& code) {
    if (!isConnected_) return true;
    try {
        const auto item = platform::sapdi::GetObject<platform::sapdi::Items>(*objects_.SAPCompany,
                                                                             ObjectType::Items);
        return item->GetByKey(code) || IsCreated(shop_.Databases().ProductsTable, code);
    } catch (const RuntimeError&) {
        return true;
    }
}

bool SapCompany::HasAccount(const std::string& code) {
    return !accounts_ || platform::IsBlank(code) || accounts_->contains(Key(code));
}

void SapCompany::ReadAccounts() {
    try {
        const auto query = platform::sapdi::GetObject<platform::sapdi::Query>(
            *objects_.SAPCompany, ObjectType::Recordset);
        query->DoQuery(kAccountQuery);
        std::set<std::string> accounts;
        for (; !query->QueryEof(); query->QueryMoveNext())
            accounts.insert(Key(platform::ToText(query->QueryField("AcctCode"))));
        accounts_ = std::move(accounts);
    } catch (const RuntimeError&) {
        // Not every way to a company lets its accounts be read.
    }
}

}  // namespace control
