#include "screens/screens.h"
#include "shell/startup.h"

int main(int argc, char** argv) {
    registerScreens();
    return torvixMain(argc, argv);
}
