#include "screens/screens.h"
#include "screens/stock/BAMAS310.h"
#include "screens/stock/BAMAS315.h"
#include "screens/stock/BAMAS320.h"
#include "screens/stock/BAMAS330.h"
#include "shell/screenregistry.h"

// The screens of this folder make themselves known to the main window's number table here.
void registerStockScreens() {
    registerScreenFactory(QStringLiteral("BAMAS310"), [] { return new BAMAS310; });
    registerScreenFactory(QStringLiteral("BAMAS315"), [] { return new BAMAS315; });
    registerScreenFactory(QStringLiteral("BAMAS320"), [] { return new BAMAS320; });
    registerScreenFactory(QStringLiteral("BAMAS330"), [] { return new BAMAS330; });
}
