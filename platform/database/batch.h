// Many small changes as one write to disk.
#pragma once

#include <memory>

#include "platform/database/database.h"

namespace platform::database {

// Groups the changes that follow on a connection. What was saved is kept also when the scope is
// left by an error: a row that an export has written is marked, whatever comes after it. Only where
// the write to disk itself fails (error of Commit) is nothing of the group saved.
class Batch {
  public:
    explicit Batch(Database& database) : transaction_(database.BeginTransaction()) {}
    Batch(const Batch&) = delete;
    Batch& operator=(const Batch&) = delete;

    ~Batch() {
        if (!transaction_) return;
        try {
            transaction_->Commit();
        } catch (...) {
            // The error that left the scope is the one to report.
        }
    }

    void Commit() {
        const std::unique_ptr<Transaction> ending = std::move(transaction_);
        ending->Commit();
    }

  private:
    std::unique_ptr<Transaction> transaction_;
};

}  // namespace platform::database
