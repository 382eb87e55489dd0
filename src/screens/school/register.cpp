#include "screens/school/BAMAS110.h"
#include "screens/school/BAMAS115.h"
#include "screens/school/BAMAS125.h"
#include "screens/screens.h"
#include "shell/screenregistry.h"

// The screens of this folder make themselves known to the main window's number table here.
void registerSchoolScreens() {
    registerScreenFactory(QStringLiteral("BAMAS110"), [] { return new BAMAS110; });
    registerScreenFactory(QStringLiteral("BAMAS115"), [] { return new BAMAS115; });
    registerScreenFactory(QStringLiteral("BAMAS125"), [] { return new BAMAS125; });
}
