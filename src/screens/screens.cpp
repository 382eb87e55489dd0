#include "screens/screens.h"

void registerScreens() {}
