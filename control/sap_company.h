// The company behind SAP, where it can be read without asking for a password: which customers,
// items and accounts it has or gets from this transfer.
#pragma once

#include <optional>
#include <set>
#include <string>

#include "control/nobody.h"
#include "control/remembered.h"
#include "control/shop.h"
#include "sap/transfer_context.h"

namespace control {

class SapCompany {
  public:
    explicit SapCompany(const Shop& shop);
    ~SapCompany();
    SapCompany(const SapCompany&) = delete;
    SapCompany& operator=(const SapCompany&) = delete;

    // True also where it can not be known.
    [[nodiscard]] bool HasCustomer(const std::string& code) { return customers_.Of(code); }
    [[nodiscard]] bool HasItem(const std::string& code) { return items_.Of(code); }
    [[nodiscard]] bool HasAccount(const std::string& code);  // a blank one is none, and taken

  private:
    [[nodiscard]] bool AskForCustomer(const std::string& code);
    [[nodiscard]] bool AskForItem(const std::string& code);
    [[nodiscard]] bool IsCreated(
        const store::Databases::Variable<platform::database::TableRecordset>& table,
        const std::string& code) const;
    void ReadAccounts();

    const Shop& shop_;
    Nobody nobody_;
    bool hasErrors_ = false;
    sap::SapObjects objects_;
    sap::TransferContext context_;
    bool isConnected_ = false;
    std::optional<std::set<std::string>> accounts_;  // upper case; nothing where not to be read
    Remembered<bool> customers_;
    Remembered<bool> items_;
};

}  // namespace control
