#include "platform/recordset_file/read_ahead.h"

#include <algorithm>
#include <utility>

namespace platform::recordset_file {

namespace {

// So many rows that handing them over costs next to nothing, so few that what waits stays small.
constexpr std::size_t kBatches = 3;  // one that is read, one that waits, one that is taken from
constexpr std::size_t kBatchRows = 256;
constexpr std::size_t kBatchValues = 8192;
constexpr long kBatchBytes = 512L * 1024;

}  // namespace

ReadAhead::ReadAhead(std::string_view fileName)
    : fileName_(fileName), file_(fileName), fields_(file_.Fields()), empty_(kBatches - 1) {
    // Handing over must not fail on either side.
    filled_.reserve(kBatches);
    empty_.reserve(kBatches);
    thread_ = std::jthread([this](const std::stop_token& stop) { ReadOn(stop); });
}

bool ReadAhead::Next(std::vector<Value>& row) {
    while (taken_ == current_.count) {
        if (current_.failure) std::rethrow_exception(current_.failure);
        if (current_.isLast) return false;
        TakeBatch();
    }
    row.swap(current_.rows[taken_++]);
    ++recordNumber_;
    return true;
}

std::string ReadAhead::Place() const {
    return fileName_ + ", record " + std::to_string(recordNumber_);
}

void ReadAhead::TakeBatch() {
    std::unique_lock lock(mutex_);
    // The room of the rows is used again, but not that of long ones: it would be kept in every row.
    empty_.push_back(current_.isLong ? Batch() : std::move(current_));
    changed_.notify_one();
    changed_.wait(lock, [this] { return !filled_.empty(); });
    current_ = std::move(filled_.front());
    filled_.erase(filled_.begin());
    taken_ = 0;
}

void ReadAhead::ReadOn(const std::stop_token& stop) {
    for (bool isLast = false; !isLast;) {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, stop, [this] { return !empty_.empty(); });
        if (stop.stop_requested()) return;
        Batch batch = std::move(empty_.back());
        empty_.pop_back();
        lock.unlock();

        Fill(batch);

        lock.lock();
        isLast = batch.isLast;
        filled_.push_back(std::move(batch));
        changed_.notify_one();
    }
}

void ReadAhead::Fill(Batch& batch) {
    batch.count = 0;
    try {
        ReadRows(batch);
    } catch (...) {
        batch.failure = std::current_exception();
        batch.isLast = true;
    }
}

void ReadAhead::ReadRows(Batch& batch) {
    const std::size_t fields = std::max<std::size_t>(file_.Fields().size(), 1);
    batch.rows.resize(std::clamp<std::size_t>(kBatchValues / fields, 1, kBatchRows));
    const long start = file_.BytesRead();
    while (batch.count < batch.rows.size() && !batch.isLong) {
        if (!file_.Next(batch.rows[batch.count])) {
            batch.isLast = true;
            return;
        }
        ++batch.count;
        batch.isLong = file_.BytesRead() - start > kBatchBytes;
    }
}

}  // namespace platform::recordset_file
