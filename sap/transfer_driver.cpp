#include "sap/transfer_driver.h"

#include "app/field_values.h"
#include "platform/files.h"
#include "platform/norwegian.h"
#include "sap/logon.h"
#include "sap/partners_and_items.h"
#include "sap/payments.h"
#include "sap/sales_document.h"
#include "store/data_set.h"
#include "store/transaction_types.h"

namespace sap {

namespace {

using app::NzNumber;
using app::NzText;
using platform::Recordset;
using platform::sapdi::TransactionEnd;

constexpr const char* kInvoicePayments = "TransType = 15";

Customer CustomerOf(const Recordset& row) {
    const auto text = [&](const char* column) { return NzText(row.Get(column)); };
    return {text("ID"),       text("Name"),     text("Address1"),   text("Address2"),
            text("Address3"), text("Address4"), text("PostalCode"), text("PostalAddress"),
            text("Phone"),    text("Fax"),      text("CustPrGr"),   text("CustPrG2"),
            text("EMail"),    text("Discount")};
}

Product ProductOf(const Recordset& row) {
    const auto number = [&](const char* column) {
        return platform::ToDouble(NzNumber(row.Get(column)));
    };
    return {NzText(row.Get("ID")), NzText(row.Get("Description")), NzText(row.Get("BarCode")),
            number("Price"), number("CostPrice")};
}

// Hands each row of a query to `send`, and resets the Status of those that SAP has taken.
template <class Send>
void SendRows(platform::Database& storeDatabase, const char* query, Send&& send) {
    const auto rows = storeDatabase.OpenQuery(query);
    for (; !rows->IsEof(); rows->MoveNext()) {
        if (!send(*rows)) continue;
        rows->Edit();
        rows->Set("Status", store::master_status::kNothingToDo);
        rows->Update();
    }
    rows->Close();
}

double TotalOf(Recordset& lines) {
    double total = 0;
    for (; !lines.IsEof(); lines.MoveNext())
        total += platform::ToDouble(lines.Get("Amount"));
    return total;
}

}  // namespace

TransferDriver::TransferDriver(const TransferContext& context, ui::frmMain& window,
                               const platform::Clock& clock, platform::sapdi::Connector& connector)
    : context_(context), window_(window), clock_(clock), connector_(connector) {}

bool TransferDriver::TransferDataSetToSAP(const std::string& dataSetName) {
    if (!ui::DataSetFilesExist(dataSetName, window_)) return false;
    ui::OpenPersistConnection(context_.runState);
    if (!ValidateSales()) {
        context_.Warn(
            "Feil ved enkelte salg som ikke lar seg oppdatere i SAP.\n"
            "Rett feilene og forsøk dagsoppgjør igjen.");
        return false;
    }
    if (!OpenSales(dataSetName)) return false;
    if (DocumentsAreWanted() && !LogonToSAP(context_, connector_)) return false;
    TransferMasterData();
    if (DocumentsAreWanted()) context_.objects.SAPCompany->StartTransaction();
    TransferSales(dataSetName);
    Complete(dataSetName);
    return false;
}

// The place for checks before anything is sent; there are none yet.
bool TransferDriver::ValidateSales() const {
    return true;
}

bool TransferDriver::OpenSales(const std::string& dataSetName) {
    ui::RunState& runState = context_.runState;
    runState.SalesRecordset =
        runState.PersistConnection->OpenRecordset(store::SalesFileName(dataSetName));
    if (runState.SalesRecordset->AbsolutePosition() >= 0) return true;
    context_.theOperator.Show({context_.AppSettings.AppTitle, "Det er ingenting å overføre.",
                               platform::Icon::Information});
    runState.SalesRecordset->Close();
    runState.SalesRecordset.Release();
    return false;
}

// Outside the transaction: what has reached SAP stays there when the documents are rolled back.
void TransferDriver::TransferMasterData() {
    platform::Database& store = *context_.databases.StoreDatabase;
    SendRows(store, "SELECT * FROM Customers WHERE Status = 1", [this](const Recordset& row) {
        return CreateCustomerInSAP(context_, CustomerOf(row));
    });
    SendRows(store, "SELECT * FROM Customers WHERE Status = 2", [this](const Recordset& row) {
        return UpdateCustomerInSAP(context_, CustomerOf(row));
    });
    SendRows(store, "SELECT * FROM Products WHERE Status = 1",
             [this](const Recordset& row) { return CreateProductInSAP(context_, ProductOf(row)); });
    SendRows(store, "SELECT * FROM Products WHERE Status = 2",
             [this](const Recordset& row) { return UpdateProductInSAP(context_, ProductOf(row)); });
}

void TransferDriver::TransferSales(const std::string& dataSetName) {
    const SaleLines saleLines(*context_.runState.PersistConnection,
                              store::SalesLinesFileName(dataSetName));
    context_.optionsOfDay.emplace();
    Recordset& sales = *context_.runState.SalesRecordset;
    for (; !sales.IsEof(); sales.MoveNext()) {
        platform::AtPlace("Sale " + platform::ToText(sales.Get("ID")),
                          [&] { TransferSale(saleLines); });
    }
    sales.MoveFirst();
    context_.optionsOfDay.reset();
}

void TransferDriver::TransferSale(const SaleLines& saleLines) {
    const Recordset& sale = *context_.runState.SalesRecordset;
    auto& lines = context_.runState.SalesLinesRecordset;
    const auto count = [&](const char* filter) {
        lines = saleLines.Open(filter, sale.Get("ID"));
        const long records = lines->RecordCount();
        lines->Close();
        return records;
    };

    lines = saleLines.Open(kItemLines, sale.Get("ID"));
    const double receiptTotal = TotalOf(*lines);
    if (DocumentsAreWanted()) {
        const std::int16_t saleNumber = platform::ToInt16(sale.Get("ID"));
        const std::int16_t saleType = platform::ToInt16(sale.Get("SalesType"));
        CreateSalesDocument(context_, saleLines, saleNumber, saleType, receiptTotal);
    }
    lines->Close();

    const long paymentLines = count(kInvoicePayments);
    const long saleLineCount = count(kItemLines);
    if (paymentLines > 0 && saleLineCount == 0) {
        CreateReceiptPayments(context_, platform::ToInt32(sale.Get("ID")));
    }
}

void TransferDriver::Complete(const std::string& dataSetName) {
    if (context_.runState.DataSetHasErrors) {
        if (DocumentsAreWanted()) CloseSAPCompany(context_, TransactionEnd::RollBack);
        return;
    }
    const bool isConfirmed = ui::OperatorWantsRenaming(context_.runState, context_.theOperator,
                                                       context_.AppSettings.AppTitle);
    // A day that is committed but can not be renamed would be offered, and posted, again.
    if (isConfirmed) platform::RequireWritableFolderOf(store::SalesFileName(dataSetName));
    if (DocumentsAreWanted()) {
        const TransactionEnd end = isConfirmed ? TransactionEnd::Commit : TransactionEnd::RollBack;
        context_.objects.SAPCompany->EndTransaction(end);
        CloseSAPCompany(context_, end);
    }
    if (isConfirmed) store::MarkAsTransferred(dataSetName, clock_);
}

bool TransferDriver::DocumentsAreWanted() const {
    return !platform::Equals(NzNumber(context_.AppSettings.NoDayEnd), 1);
}

}  // namespace sap
