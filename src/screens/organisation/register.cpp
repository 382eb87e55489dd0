#include "screens/organisation/BAMAS105.h"
#include "screens/organisation/BAMAS170.h"
#include "screens/organisation/BAMAS505.h"
#include "screens/screens.h"
#include "shell/screenregistry.h"

// The screens of this folder make themselves known to the main window's number table here.
void registerOrganisationScreens() {
    registerScreenFactory(QStringLiteral("BAMAS105"), [] { return new BAMAS105; });
    registerScreenFactory(QStringLiteral("BAMAS170"), [] { return new BAMAS170; });
    registerScreenFactory(QStringLiteral("BAMAS505"), [] { return new BAMAS505; });
}
