#include "sap/commit_note.h"

#include <optional>

#include "platform/files.h"
#include "store/day_note.h"

namespace sap {

namespace {

using platform::sapdi::ObjectType;

constexpr std::size_t kQueries = 1;  // the details of the note

// Each data set has its own: another one may be transferred before the interrupted one is.
std::string NoteName(const std::string& dataSetName) {
    return "KVDayEndServer." + dataSetName + ".committing";
}

const char* TableOf(ObjectType type) {
    switch (type) {
        case ObjectType::Invoices:
            return "OINV";
        case ObjectType::CreditNotes:
            return "ORIN";
        case ObjectType::DeliveryNotes:
            return "ODLN";
        case ObjectType::Returns:
            return "ORDN";
        default:
            return "ORDR";
    }
}

// By its key and by what this system wrote on it: a key of a day that was rolled back may have been
// given to somebody else's document.
std::string QueryFor(const AddedDocument& document) {
    const std::string sale = std::to_string(document.saleNumber);
    return std::string("SELECT DocEntry FROM ") + TableOf(document.type) +
           " WHERE DocEntry = " + std::to_string(document.key) + " AND Ref1 = '" + sale +
           "' AND Comments = '" + RemarksOf(document.saleNumber) + "'";
}

}  // namespace

void NoteCommit(const TransferContext& context, const std::string& dataSetName) {
    const std::optional<AddedDocument>& last = context.objects.LastDocument;
    if (last) store::WriteDayNote(NoteName(dataSetName), dataSetName, {QueryFor(*last)});
}

void ForgetCommit(const std::string& dataSetName) {
    const std::string note = NoteName(dataSetName);
    if (platform::FileExists(note)) platform::DeleteFile(note);
}

bool IsCommitted(const TransferContext& context, const std::string& dataSetName) {
    const std::optional<store::DayNote> note = store::ReadDayNote(NoteName(dataSetName), kQueries);
    if (!note || store::WaitingFilesOf(*note).size() != note->stamps.size()) return false;
    const auto query = platform::sapdi::GetObject<platform::sapdi::Query>(
        *context.objects.SAPCompany, ObjectType::Recordset);
    query->DoQuery(note->details.front());
    return query->QueryRecordCount() > 0;
}

}  // namespace sap
