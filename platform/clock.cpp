#include "platform/clock.h"

#include <ctime>

namespace platform {

DateTime SystemClock::Now() const {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    DateTime moment;
    moment.year = static_cast<std::int16_t>(local.tm_year + 1900);
    moment.month = static_cast<std::int8_t>(local.tm_mon + 1);
    moment.day = static_cast<std::int8_t>(local.tm_mday);
    moment.hour = static_cast<std::int8_t>(local.tm_hour);
    moment.minute = static_cast<std::int8_t>(local.tm_min);
    moment.second = static_cast<std::int8_t>(local.tm_sec < 60 ? local.tm_sec : 59);
    return moment;
}

}  // namespace platform
