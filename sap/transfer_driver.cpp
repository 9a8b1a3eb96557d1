#include "sap/transfer_driver.h"

#include "app/field_values.h"
#include "platform/comparison.h"
#include "platform/error.h"
#include "platform/norwegian.h"
#include "sap/logon.h"
#include "sap/partners_and_items.h"
#include "sap/payments.h"
#include "sap/sales_document.h"
#include "store/master_data.h"
#include "store/sale.h"
#include "store/sale_line.h"
#include "store/transaction_types.h"

namespace sap {

namespace {

using app::NzNumber;
using platform::database::ClientRecordset;
using platform::database::Record;
using platform::sapdi::TransactionEnd;
namespace master_status = store::master_status;

constexpr const char* kCustomers = "SELECT * FROM Customers WHERE Status = ?";
constexpr const char* kProducts = "SELECT * FROM Products WHERE Status = ?";

// Marks the rows that `send` has brought into SAP. The store may change a row meanwhile: a message
// box can stand for hours.
template <class Send>
void SendRows(platform::database::Database& storeDatabase, const char* query, int status,
              Send&& send) {
    const auto rows = storeDatabase.OpenQuery(query, {status});
    for (; !rows->IsEof(); rows->MoveNext()) {
        if (send(*rows)) store::MarkAsSent(storeDatabase, *rows);
    }
}

double TotalOf(ClientRecordset& lines) {
    double total = 0;
    for (; !lines.IsEof(); lines.MoveNext())
        total += platform::ToDouble(store::SaleLine(lines).Amount());
    return total;
}

}  // namespace

// kept: no-day-end. Master data and payment-only receipts go all the same, and find no company.
bool DocumentsAreWanted(const app::AppSettings& appSettings) {
    return !platform::Equals(NzNumber(appSettings.NoDayEnd), 1);
}

TransferDriver::TransferDriver(const app::AppSettings& appSettings,
                               const store::Databases& databases, ui::RunState& runState,
                               SapObjects& objects, ui::StatusLog& statusLog,
                               platform::Operator& theOperator, const platform::Clock& clock,
                               platform::sapdi::Connector& connector)
    : databases_(databases),
      runState_(runState),
      context_{appSettings, store::Options(databases.OptionsTable), objects,
               runState.DataSetHasErrors, theOperator},
      statusLog_(statusLog),
      clock_(clock),
      connector_(connector) {}

bool TransferDriver::TransferDataSetToSAP(const store::DataSet& dataSet) {
    if (!ui::DataSetFilesExist(dataSet, statusLog_)) return false;
    ui::OpenPersistConnection(runState_);
    if (!ValidateSales()) {
        context_.Warn(
            "Feil ved enkelte salg som ikke lar seg oppdatere i SAP.\n"
            "Rett feilene og forsøk dagsoppgjør igjen.");
        return false;
    }
    const store::WaitingFiles files(dataSet);
    if (!OpenSales(files)) return false;
    // kept: logon-each-day. What the settings leave blank is asked for again.
    // kept: quiet-ends. A failed logon is told, and the error flag stays clear.
    if (DocumentsAreWanted() && !LogonToSAP(context_, connector_)) return false;
    if (FinishedAsPosted(dataSet, files)) {
        CloseSAPCompany(context_, TransactionEnd::RollBack);
        return false;
    }
    files.GiveUpFinishedNames();
    (void)files.TryFinishedNames(clock_);
    TransferMasterData();
    if (DocumentsAreWanted()) context_.objects.SAPCompany->StartTransaction();
    TransferSales(files);
    Complete(files);
    return false;
}

// The place for checks before anything is sent.
// kept: validate-sales. There are none, so the warning behind it never comes.
bool TransferDriver::ValidateSales() const {
    return true;
}

bool TransferDriver::OpenSales(const store::WaitingFiles& files) {
    runState_.SalesRecordset = runState_.PersistConnection->OpenRecordset(files.SalesFile());
    if (!runState_.SalesRecordset->IsEof()) return true;
    context_.theOperator.Show({context_.AppSettings.AppTitle, "Det er ingenting å overføre.",
                               platform::Icon::Information});
    runState_.SalesRecordset.Release();
    return false;
}

bool TransferDriver::FinishedAsPosted(const store::DataSet& dataSet,
                                      const store::WaitingFiles& files) {
    if (!DocumentsAreWanted()) return false;
    const platform::sapdi::Company& company = *context_.objects.SAPCompany;
    if (!company.KeepsMarks()) return false;
    files.RequireUnchanged();
    if (!company.HasMark(files.Mark())) return false;
    files.Finish(clock_);
    statusLog_.AppendStatusLine("Datasett " + dataSet.DisplayName() +
                                " er ført i SAP fra før, og filene har nå fått ferdige navn.");
    return true;
}

void TransferDriver::FinishPostedDays() {
    store::FinishLinesLeftBehind();
    if (!DocumentsAreWanted()) return;
    const std::vector<store::DataSet> waiting = store::DataSet::Waiting();
    if (waiting.empty() || !LogonUnasked(context_, connector_)) return;
    for (const store::DataSet& dataSet : waiting) {
        try {
            (void)FinishedAsPosted(dataSet, store::WaitingFiles(dataSet));
        } catch (const platform::RuntimeError&) {
            // A file that can not be read, say: it is told when its day is begun, and the other
            // days can be posted until then.
        }
    }
    CloseSAPCompany(context_, TransactionEnd::RollBack);
}

// kept: master-data-stays. Outside the transaction: a roll-back leaves in SAP what is there.
void TransferDriver::TransferMasterData() {
    platform::database::Database& store = *databases_.StoreDatabase;
    SendRows(store, kCustomers, master_status::kNew, [this](const Record& row) {
        return CreateCustomerInSAP(context_, CustomerOf(store::Customer(row)));
    });
    SendRows(store, kCustomers, master_status::kChanged, [this](const Record& row) {
        return UpdateCustomerInSAP(context_, CustomerOf(store::Customer(row)));
    });
    SendRows(store, kProducts, master_status::kNew, [this](const Record& row) {
        context_.Options.Refresh();  // the price lists may be put right while a box stands
        return CreateProductInSAP(context_, ProductOf(store::Product(row)));
    });
    SendRows(store, kProducts, master_status::kChanged, [this](const Record& row) {
        context_.Options.Refresh();
        return UpdateProductInSAP(context_, ProductOf(store::Product(row)));
    });
}

void TransferDriver::TransferSales(const store::WaitingFiles& files) {
    files.RequireUnchanged();
    const SaleLines saleLines(*runState_.PersistConnection, files.SalesLinesFile());
    context_.Options.Refresh();
    ClientRecordset& sales = *runState_.SalesRecordset;
    for (; !sales.IsEof(); sales.MoveNext()) {
        const store::Sale sale(sales);
        platform::AtPlace("Sale " + platform::ToText(sale.ID()),
                          [&] { TransferSale(sale, saleLines); });
    }
    sales.MoveFirst();
}

void TransferDriver::TransferSale(const store::Sale& sale, const SaleLines& saleLines) {
    const auto itemLines = saleLines.Open(LineKind::Items, sale.ID());
    const double receiptTotal = TotalOf(*itemLines);
    const long itemLineCount = itemLines->RecordCount();
    if (DocumentsAreWanted()) {
        CreateSalesDocument(context_, saleLines, sale, receiptTotal, itemLineCount);
    }
    const long paymentLineCount =
        saleLines.Open(LineKind::InvoicePayments, sale.ID())->RecordCount();
    if (paymentLineCount > 0 && itemLineCount == 0) {
        CreateReceiptPayments(context_, *databases_.StoreDatabase, platform::ToInt32(sale.ID()));
    }
}

void TransferDriver::Complete(const store::WaitingFiles& files) {
    if (context_.DataSetHasErrors) {
        if (DocumentsAreWanted()) CloseSAPCompany(context_, TransactionEnd::RollBack);
        return;
    }
    const bool isConfirmed =
        ui::OperatorWantsRenaming(runState_, context_.theOperator, context_.AppSettings.AppTitle);
    if (isConfirmed) {
        Commit(files);
    } else if (DocumentsAreWanted()) {
        context_.objects.SAPCompany->EndTransaction(TransactionEnd::RollBack);
        CloseSAPCompany(context_, TransactionEnd::RollBack);
    }
}

// A day that is committed but waits on would be posted again: its files have their finished names
// before the commit, beside the waiting ones, and its mark goes with it.
void TransferDriver::Commit(const store::WaitingFiles& files) {
    files.RequireUnchanged();
    files.GiveUpFinishedNames();
    store::FinishedNames finishedNames(files, clock_);
    files.RequireUnchanged();
    if (DocumentsAreWanted()) {
        platform::sapdi::Company& company = *context_.objects.SAPCompany;
        if (company.KeepsMarks()) company.AddMark(files.Mark());
        company.EndTransaction(TransactionEnd::Commit);
        CloseSAPCompany(context_, TransactionEnd::Commit);
    }
    finishedNames.Keep();
}

}  // namespace sap
