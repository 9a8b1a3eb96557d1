// KVDayEndServer: the server behind the operator window.

#include <QApplication>

#include "app/options.h"
#include "app/server.h"
#include "platform/process.h"
#include "ui/window/window_operator.h"

int main(int argc, char** argv) {
    platform::PrepareProcess();
    const app::ParsedOptions parsed = app::ParseOptions(app::Program::Window, argc, argv);
    if (!parsed.options) return parsed.exitStatus;

    int toolkitArguments = 1;  // the options are ours alone
    const QApplication application(toolkitArguments, argv);
    QApplication::setDesktopFileName("KVDayEndServer");
    QApplication::setWindowIcon(ui::window::ProgramIcon());

    ui::window::WindowOperator face;
    return app::RunServer(
        *parsed.options, face, [&face](app::StartUp& server, platform::Operator& theOperator) {
            ui::window::MainWindow window(server.Window(), server.Driver(), theOperator);
            face.ConnectTo(window);
            window.show();
            return QApplication::exec();
        });
}
