// Reads a persisted recordset on a thread of its own, some rows ahead of the one who takes them.
#pragma once

#include <condition_variable>
#include <cstddef>
#include <exception>
#include <mutex>
#include <stop_token>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "platform/recordset_file/reader.h"
#include "platform/value.h"

namespace platform::recordset_file {

// A reader for who has much to do with each row: parsing goes on meanwhile. On two cores it takes a
// quarter off the import of a large day. Rows, errors and their order are the reader's; the memory
// that waiting rows take is limited by the number of their values and by their length in the file.
class ReadAhead {
  public:
    // Errors as RecordsetFileReader's.
    explicit ReadAhead(std::string_view fileName);
    ReadAhead(const ReadAhead&) = delete;
    ReadAhead& operator=(const ReadAhead&) = delete;

    [[nodiscard]] const std::vector<std::string>& Fields() const { return fields_; }

    // As RecordsetFileReader's; the rows before a fault are given before it is raised.
    [[nodiscard]] bool Next(std::vector<Value>& row);
    [[nodiscard]] long RecordNumber() const { return recordNumber_; }

    // "FILE, record N", of the row that Next gave last.
    [[nodiscard]] std::string Place() const;

  private:
    // Rows that are handed over together. The last batch ends the file, well or with a failure.
    struct Batch {
        std::vector<std::vector<Value>> rows;
        std::size_t count = 0;
        bool isLong = false;
        bool isLast = false;
        std::exception_ptr failure;
    };

    // The reading thread's side.
    void ReadOn(const std::stop_token& stop);
    void Fill(Batch& batch);
    void ReadRows(Batch& batch);

    // The taker's side.
    void TakeBatch();

    std::string fileName_;
    RecordsetFileReader file_;  // the thread's alone
    std::vector<std::string> fields_;
    Batch current_;  // the taker's alone
    std::size_t taken_ = 0;
    long recordNumber_ = 0;

    std::mutex mutex_;
    std::condition_variable_any changed_;
    std::vector<Batch> filled_;
    std::vector<Batch> empty_;

    std::jthread thread_;  // the last member: it ends first
};

}  // namespace platform::recordset_file
