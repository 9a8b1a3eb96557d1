#include "ui/run_state.h"

#include <memory>

#include "platform/files.h"
#include "store/data_set.h"

namespace ui {

bool DataSetFilesExist(const std::string& dataSetName, frmMain& window) {
    if (!platform::FileExists(store::SalesFileName(dataSetName))) {
        window.AppendStatusLine("Finner ikke filen med salg. Avslutter behandling av datasett.");
        return false;
    }
    if (!platform::FileExists(store::SalesLinesFileName(dataSetName))) {
        window.AppendStatusLine(
            "Finner ikke filen med salgslinjer. Avslutter behandling av datasett.");
        return false;
    }
    return true;
}

void OpenPersistConnection(RunState& runState) {
    runState.PersistConnection =
        std::make_unique<platform::PersistConnection>("Provider=MSPersist;");
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
