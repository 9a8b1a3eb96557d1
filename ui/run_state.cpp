#include "ui/run_state.h"

#include <memory>

namespace ui {

// kept: quiet-ends. A missing file is told, and the error flag stays clear.
bool DataSetFilesExist(const store::DataSet& dataSet, StatusLog& statusLog) {
    if (!dataSet.FindSalesFile()) {
        statusLog.AppendStatusLine("Finner ikke filen med salg. Avslutter behandling av datasett.");
        return false;
    }
    if (!dataSet.FindSalesLinesFile()) {
        statusLog.AppendStatusLine(
            "Finner ikke filen med salgslinjer. Avslutter behandling av datasett.");
        return false;
    }
    return true;
}

void OpenPersistConnection(RunState& runState) {
    runState.PersistConnection =
        std::make_unique<platform::recordset_file::PersistConnection>("Provider=MSPersist;");
    runState.DataSetHasErrors = false;
}

bool OperatorWantsRenaming(RunState& runState, platform::Operator& theOperator,
                           const std::string& appTitle) {
    runState.LastAnswer =
        theOperator.Ask({appTitle, "Skal transaksjonsfilene renames og merkes som overført?",
                         platform::Icon::Question, platform::Answer::Yes});
    return runState.LastAnswer == platform::Answer::Yes;
}

}  // namespace ui
