// What one run over the data sets shares between the driver, the transfers and their routines, and
// the contract between them. Knows neither transfer.
#pragma once

#include <functional>
#include <string>

#include "platform/database/client_recordset.h"
#include "platform/object_variable.h"
#include "platform/operator.h"
#include "platform/recordset_file/persist_connection.h"
#include "store/data_set.h"
#include "ui/status_log.h"

namespace ui {

// kept: state-stays. It lives as long as the program; the next transfer replaces what is open.
struct RunState {
    std::string CurrentDataSetName;  // the prefix; empty for the unnamed data set
    bool DataSetHasErrors = false;
    platform::Answer LastAnswer = platform::Answer::No;
    platform::ObjectVariable<platform::recordset_file::PersistConnection> PersistConnection{
        "PersistConnection"};
    platform::ObjectVariable<platform::database::ClientRecordset> SalesRecordset{"SalesRecordset"};
    platform::ObjectVariable<platform::database::Recordset> SalesLinesRecordset{
        "SalesLinesRecordset"};
};

// The outcome is in RunState::DataSetHasErrors. An error that leaves a transfer ends the program.
// kept: answers-always-false. Nothing reads them.
using TransferEntryPoint = std::function<bool(const store::DataSet& dataSet)>;

struct Transfers {
    TransferEntryPoint ExportDataSet;
    TransferEntryPoint TransferDataSetToSAP;
};

// Whether both files of the data set are there; a missing one is told in the status log.
[[nodiscard]] bool DataSetFilesExist(const store::DataSet& dataSet, StatusLog& statusLog);

// Makes the connection through which the data-set files are opened anew, and clears the error flag.
void OpenPersistConnection(RunState& runState);

// Asks whether the data set's files are to be renamed; the answer is left in LastAnswer.
[[nodiscard]] bool OperatorWantsRenaming(RunState& runState, platform::Operator& theOperator,
                                         const std::string& appTitle);

}  // namespace ui
