// The connection to an SAP Business One company, and how one is made. Public names; a connector
// decides how the company is reached.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/error.h"
#include "platform/sapdi/business_objects.h"

namespace platform::sapdi {

enum class TransactionEnd { Commit = 0, RollBack = 1 };

// The language in which the company gives its texts; the only one that is asked for.
inline constexpr int kEnglish = 3;

struct LastError {
    std::int32_t code = 0;  // 0: none
    std::string text;
};

class Company {
  public:
    virtual ~Company() = default;  // an open transaction is rolled back

    virtual void SetUseTrusted(bool trusted) = 0;
    [[nodiscard]] virtual bool UseTrusted() const = 0;
    virtual void SetDbUserName(std::string_view user) = 0;
    virtual void SetDbPassword(std::string_view password) = 0;
    virtual void SetServer(std::string_view server) = 0;
    virtual void SetCompanyDB(std::string_view database) = 0;
    virtual void SetUserName(std::string_view user) = 0;
    [[nodiscard]] virtual std::string UserName() const = 0;
    virtual void SetPassword(std::string_view password) = 0;
    virtual void SetLanguage(int language) = 0;

    [[nodiscard]] virtual std::int32_t Connect() = 0;  // 0: connected
    virtual void Disconnect() = 0;

    // The outcome of the last Connect, Add, Update, StartTransaction or EndTransaction.
    [[nodiscard]] virtual LastError GetLastError() const = 0;

    // The key of the object added last; of a document its DocEntry.
    [[nodiscard]] virtual std::string GetNewObjectKey() const = 0;

    // A failing add or update inside a transaction rolls it back and ends it. Starting one while
    // one is open is an error that is raised.
    virtual void StartTransaction() = 0;
    virtual void EndTransaction(TransactionEnd end) = 0;
    [[nodiscard]] virtual bool InTransaction() const = 0;

    // The marks of the days that the company holds, where it keeps such: a mark that is added in a
    // transaction is there when, and only when, that was committed. Adding one that is there
    // already is an error that is raised.
    [[nodiscard]] virtual bool KeepsMarks() const = 0;
    [[nodiscard]] virtual bool HasMark(std::string_view mark) const = 0;
    virtual void AddMark(std::string_view mark) = 0;

    // A new object by its type number. Without a connection: an error that is raised.
    [[nodiscard]] virtual std::unique_ptr<BusinessObject> GetBusinessObject(ObjectType type) = 0;
};

// A new object of the company as its own kind; error 13 where the number means another kind.
template <class Kind>
[[nodiscard]] std::unique_ptr<Kind> GetObject(Company& company, ObjectType type) {
    std::unique_ptr<BusinessObject> object = company.GetBusinessObject(type);
    if (auto* const kind = dynamic_cast<Kind*>(object.get())) {
        (void)object.release();
        return std::unique_ptr<Kind>(kind);
    }
    throw RuntimeError(error_number::kTypeMismatch, "Type mismatch: object type " +
                                                        std::to_string(static_cast<int>(type)) +
                                                        " is of another kind");
}

class Connector {
  public:
    virtual ~Connector() = default;
    [[nodiscard]] virtual std::unique_ptr<Company> CreateCompany() = 0;
};

}  // namespace platform::sapdi
