#pragma once

#include "shell/screen.h"
#include "shell/screenregistry.h"

// Stands in for a program that is not built yet: says which program it is and takes all seven
// commands without doing anything.
class PlaceholderScreen : public Screen {
    Q_OBJECT
public:
    explicit PlaceholderScreen(const ScreenInfo& info);

protected:
    void setupScreen() override;

private:
    ScreenInfo m_info;
};
