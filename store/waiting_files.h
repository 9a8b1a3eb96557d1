// The two files of a data set from the moment its day is read until they have their finished names.
#pragma once

#include <string>
#include <utility>

#include "platform/clock.h"
#include "platform/held_file.h"
#include "store/data_set.h"
#include "store/finished_name.h"

namespace store {

class FinishedNames;

class WaitingFiles {
  public:
    // The files as they are now.
    explicit WaitingFiles(const DataSet& dataSet);

    // The names under which they are to be opened.
    [[nodiscard]] const std::string& SalesFile() const { return sales_.Name(); }
    [[nodiscard]] const std::string& SalesLinesFile() const { return salesLines_.Name(); }

    // Error 75 with the name of a file that is another one, or another content, than the day that
    // was read.
    void RequireUnchanged() const;

    // Takes names such as the finished ones, and gives them up with the answer. Error 75 (61, 70,
    // 76) where the files can not get those, or not lose the ones they have.
    [[nodiscard]] FinishedNames TryFinishedNames(const platform::Clock& clock) const;

    // Gives up the names that an earlier server took for the files before it was ended.
    void GiveUpFinishedNames() const;

    // Gives the files their finished names, the sales file first: the day has been posted.
    void Finish(const platform::Clock& clock) const;

    // The day's mark in SAP: the first 50 hexadecimal digits of the SHA-256 of the sales file's and
    // the lines file's bytes.
    [[nodiscard]] std::string Mark() const;

  private:
    friend class FinishedNames;

    DataSet dataSet_;
    platform::HeldFile sales_;
    platform::HeldFile salesLines_;
};

// Finishes lines files whose sales file has left its waiting name: a server was ended between the
// two. They have their finished names already.
void FinishLinesLeftBehind();

// The finished names of both files, given up again unless they are kept.
class FinishedNames {
  public:
    // Of both files, the sales file first.
    FinishedNames(const WaitingFiles& files, const platform::Clock& clock);

    // The waiting names go, the sales file's first: the day is done.
    void Keep();

  private:
    friend class WaitingFiles;
    FinishedNames(const WaitingFiles& files, std::string sales, std::string salesLines)
        : sales_(files.sales_, std::move(sales)),
          salesLines_(files.salesLines_, std::move(salesLines)) {}

    SecondName sales_;
    SecondName salesLines_;
};

}  // namespace store
