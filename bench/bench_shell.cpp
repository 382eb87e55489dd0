// The main window with its program tree, from construction to the first painted frame.
#include "benchsupport.h"

#include "data/dbroutines.h"
#include "data/demo/demochain.h"
#include "data/session.h"
#include "screens/screens.h"
#include "shell/mainmdi.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTreeWidget>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    openBenchSession(QStringLiteral("shell"));
    if (demoChainMissing(gDb())) {
        generateDemoChain(gDb(), 1, 1);
    }
    session().gsUserClass = QString::fromUtf8(kDemoUserClass);
    registerScreens();
    double best = 1e9;
    for (int run = 0; run < 5; ++run) {
        QElapsedTimer clock;
        clock.start();
        auto window = std::make_unique<MAINMDI>();
        window->show();
        QApplication::processEvents();
        best = std::min(best, clock.nsecsElapsed() / 1e6);
        if (window->tree()->topLevelItemCount() == 0) {
            return 1;
        }
        window->closeWithoutAsking();
    }
    report("main_window_ms", best, "ms");
    return 0;
}
