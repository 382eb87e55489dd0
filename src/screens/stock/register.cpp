#include "screens/screens.h"
#include "screens/stock/BAMAS330.h"
#include "shell/screenregistry.h"

// The screens of this folder make themselves known to the main window's number table here.
void registerStockScreens() {
    registerScreenFactory(QStringLiteral("BAMAS330"), [] { return new BAMAS330; });
}
