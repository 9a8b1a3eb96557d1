// A recordset whose rows are held in memory: query results and loaded files. Where its changes go
// is a RowSaver's business.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/database/row_set.h"

namespace platform::database {

// Saves a changed row where it came from.
class RowSaver {
  public:
    virtual ~RowSaver() = default;

    // The value as the field stores it; what the field can not take is error 3421.
    [[nodiscard]] virtual Value Fit(int field, Value value) const;

    // `position` is the row's place in the RowSet, `fields` the places of the fields that were set.
    virtual void Save(std::size_t position, const Row& row, const std::vector<int>& fields) = 0;

    // The row as it is where it came from; nothing where it is gone.
    [[nodiscard]] virtual std::optional<Row> Stored(std::size_t position) const = 0;
};

enum class SinceRead { Unchanged, Changed, Gone };

class ClientRecordset : public Recordset {
  public:
    // Without a saver a change stays in memory.
    explicit ClientRecordset(std::shared_ptr<RowSet> rowSet,
                             std::unique_ptr<RowSaver> saver = nullptr);

    // Views just the rows at these places of the row set, in this order, as if they were all.
    ClientRecordset(std::shared_ptr<RowSet> rowSet, std::vector<std::size_t> places);

    [[nodiscard]] bool IsEof() const override;
    void MoveNext() override;
    [[nodiscard]] Value Get(std::string_view field) const override;
    void Close() override;

    [[nodiscard]] long RecordCount() const;
    void MoveFirst();  // without rows: error 3021

    // A change of the current row: Edit, Set each field, Update, which saves at once. Set or Update
    // without Edit is error 3020; moving on forgets the change.
    void Edit();
    void Set(std::string_view field, Value value);
    void Update();

    // Reads the current row anew from where it came and tells what others have made of it since it
    // was read. One that is gone stays as it was here.
    [[nodiscard]] SinceRead Refresh();

  private:
    // A change of the current row that is not saved yet.
    struct Change {
        Row row;
        std::vector<int> fields;
    };

    [[nodiscard]] const RowSet& Rows() const;  // error 3704 after Close
    [[nodiscard]] std::size_t Count() const;
    [[nodiscard]] std::size_t CurrentPlace() const;  // error 3021 where there is no current row
    void MoveTo(std::size_t number);

    std::string source_;
    std::shared_ptr<RowSet> rowSet_;  // null once closed
    std::unique_ptr<RowSaver> saver_;
    std::optional<std::vector<std::size_t>> view_;  // places in the row set; every row without it
    std::size_t current_ = 0;                       // in the view, from 0
    std::optional<Change> change_;
};

}  // namespace platform::database
