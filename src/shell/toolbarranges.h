#pragma once

#include <QString>

// Which buttons a screen turns off on activation (0 = none), after all were turned on.
struct ToolBarRanges {
    int bar1First = 0;
    int bar1Last = 0;
    int bar2First = 0;
    int bar2Last = 0;
};

ToolBarRanges toolBarRanges(const QString& screenName);
