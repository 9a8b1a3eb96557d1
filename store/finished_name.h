// The finished name of a data set's file. It is taken while the file still has its waiting name, so
// that nothing can be in its way once the day is posted.
#pragma once

#include <string>
#include <string_view>

#include "platform/clock.h"
#include "platform/held_file.h"

namespace store {

[[nodiscard]] std::string FinishedName(std::string_view fileName, const platform::DateTime& moment);

// As long as the finished name, so that what is in the way of the one is in the way of the other.
[[nodiscard]] std::string TrialName(std::string_view fileName, const platform::DateTime& moment);

// A second name for a waiting file, given up again unless it is kept.
class SecondName {
  public:
    // A file of that name is kept under the name and ".1", or the first number that is free. Where
    // the file system knows no second names, the file is copied. Errors 61, 70, 75.
    SecondName(const platform::HeldFile& file, std::string name);
    ~SecondName();
    SecondName(const SecondName&) = delete;
    SecondName& operator=(const SecondName&) = delete;

    // Not given up any more.
    void Keep() { isKept_ = true; }

    // The only name from now on, unless the waiting one means another file meanwhile, which stays.
    void LeaveWaitingName() const;

  private:
    const platform::HeldFile& file_;
    std::string name_;
    bool isKept_ = false;
};

// Whether the waiting file has a finished name beside its own.
[[nodiscard]] bool HasFinishedName(const platform::HeldFile& file, const std::string& usualName);

// Gives a waiting file its finished name for good, be it that it has one beside its own already.
void Finish(const platform::HeldFile& file, const std::string& usualName,
            const platform::Clock& clock);

// Gives up the finished names that a waiting file has beside its own.
void GiveUpFinishedNames(const platform::HeldFile& file, const std::string& usualName);

}  // namespace store
