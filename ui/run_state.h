// What one run over the data sets shares between the driver, the transfers and their routines, and
// the contract between them. Knows neither transfer.
#pragma once

#include <functional>
#include <string>

#include "platform/database/recordset.h"
#include "platform/object_variable.h"
#include "platform/operator.h"
#include "platform/recordset_file/persist_connection.h"
#include "ui/frm_main.h"

namespace ui {

// Lives as long as the program; the recordsets stay open after a transfer, until the next one
// replaces them.
struct RunState {
    std::string CurrentDataSetName;  // the prefix; empty for the unnamed data set
    bool DataSetHasErrors = false;
    platform::Answer LastAnswer = platform::Answer::No;
    platform::ObjectVariable<platform::PersistConnection> PersistConnection{"PersistConnection"};
    platform::ObjectVariable<platform::Recordset> SalesRecordset{"SalesRecordset"};
    platform::ObjectVariable<platform::Recordset> SalesLinesRecordset{"SalesLinesRecordset"};
};

// A transfer takes the data set's prefix. Its answer is always false and means nothing; the outcome
// is in RunState::DataSetHasErrors. An error that leaves it ends the program.
using TransferEntryPoint = std::function<bool(const std::string& dataSetName)>;

struct Transfers {
    TransferEntryPoint ExportDataSet;
    TransferEntryPoint TransferDataSetToSAP;
};

// Whether both files of the data set are there; a missing one is told in the status log.
[[nodiscard]] bool DataSetFilesExist(const std::string& dataSetName, frmMain& window);

// Makes the connection through which the data-set files are opened anew, and clears the error flag.
void OpenPersistConnection(RunState& runState);

// The question whether the data set's files are to be renamed and marked as transferred; the answer
// is left in LastAnswer.
[[nodiscard]] bool OperatorWantsRenaming(RunState& runState, platform::Operator& theOperator,
                                         const std::string& appTitle);

}  // namespace ui
