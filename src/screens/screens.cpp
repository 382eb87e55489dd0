#include "screens/screens.h"

void registerScreens() {
    registerOrganisationScreens();
    registerSchoolScreens();
    registerContractScreens();
    registerStockScreens();
    registerSalesScreens();
}
