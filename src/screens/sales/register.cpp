#include "screens/screens.h"

// The screens of this folder make themselves known to the main window's number table here.
void registerSalesScreens() {}
