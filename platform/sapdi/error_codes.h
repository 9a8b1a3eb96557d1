// The error codes that connectors give of their own, under the numbers of the real company.
#pragma once

namespace platform::sapdi::error_code {

inline constexpr int kNotAccepted = -10;         // server, company database or user
inline constexpr int kNoMatchingRecord = -2028;  // a customer or item that there is not
inline constexpr int kCodeExists = -2035;
inline constexpr int kTransactionState = -2038;  // one is open already, or none is
inline constexpr int kInvalidValue = -5002;

}  // namespace platform::sapdi::error_code
