// The sales of a data set in a few bytes each, by their numbers. Knows no rule.
#pragma once

#include <cstdint>
#include <deque>
#include <vector>

namespace control {

// Bits of SaleRecord::flags.
namespace sale_flag {
inline constexpr std::uint16_t kLines = 1;          // has lines
inline constexpr std::uint16_t kItems = 2;          // of type 1 or 2
inline constexpr std::uint16_t kPayments = 4;       // in the sums of means of payment
inline constexpr std::uint16_t kOnAccount = 8;      // moves money on the customer's account
inline constexpr std::uint16_t kPaidInvoice = 16;   // of type 15
inline constexpr std::uint16_t kDocumentLine = 32;  // becomes a line of a SAP document
inline constexpr std::uint16_t kIncomplete = 64;    // of the sale or its lines not all is known
inline constexpr std::uint16_t kTwice = 128;        // another sale has its number
inline constexpr std::uint16_t kNoAccount = 256;    // the customer is no number
inline constexpr std::uint16_t kNotInSap = 512;     // nor is the customer created
inline constexpr std::uint16_t kNoType = 1024;
inline constexpr std::uint16_t kNoDate = 2048;
}  // namespace sale_flag

struct SaleRecord {
    std::int64_t id = 0;
    std::int64_t units = 0;    // the sum of its lines, in 1/10000
    std::int32_t account = 0;  // the customer's
    std::int32_t date = 0;     // YYYYMMDD
    std::int32_t type = 0;
    std::int16_t status = 0;  // 0 open; any other is not
    std::uint16_t flags = 0;

    [[nodiscard]] bool Has(std::uint16_t flag) const { return (flags & flag) != 0; }
};

class SaleTable {
  public:
    SaleRecord& Add(const SaleRecord& sale);

    // Makes the sales findable; of several of one number the first. All of them get kTwice.
    void Index();

    // Null where there is none. The lines mostly follow the sales: the last one and the next are
    // looked at first.
    [[nodiscard]] SaleRecord* Find(std::int64_t id);

    [[nodiscard]] std::deque<SaleRecord>& InFileOrder() { return sales_; }

  private:
    [[nodiscard]] std::int64_t IdAt(std::size_t place) const;
    [[nodiscard]] SaleRecord& At(std::size_t place);

    std::deque<SaleRecord> sales_;
    std::vector<std::uint32_t> byId_;  // empty: they stand by their numbers
    std::size_t last_ = 0;
};

}  // namespace control
