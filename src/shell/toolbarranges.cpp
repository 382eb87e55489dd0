#include "shell/toolbarranges.h"

#include <QStringList>

ToolBarRanges toolBarRanges(const QString& screenName) {
    // Screens that work with buttons of their own keep only what they use; "Exit" is always on.
    static const struct {
        QStringList screens;
        ToolBarRanges ranges;
    } table[] = {
        {{QStringLiteral("BAMAS105"), QStringLiteral("BAMAS145"), QStringLiteral("BAMAS150"),
          QStringLiteral("BAMAS170"), QStringLiteral("BAMAS205")},
         {0, 0, 2, 3}},
        {{QStringLiteral("BAMAS110"), QStringLiteral("BAMAS115"), QStringLiteral("BAMAS125"),
          QStringLiteral("BAMAS162")},
         {4, 4, 1, 3}},
        {{QStringLiteral("BAMAS155"), QStringLiteral("BAMAS160"), QStringLiteral("BAMAS210"),
          QStringLiteral("BAMAS315"), QStringLiteral("BAMAS320"), QStringLiteral("BAMAS330"),
          QStringLiteral("BAMAS340"), QStringLiteral("BAMAS345"), QStringLiteral("BAMAS350"),
          QStringLiteral("BAMAS355")},
         {2, 4, 1, 3}},
        {{QStringLiteral("BAMAS165"), QStringLiteral("BAMAS310"), QStringLiteral("BAMAS325"),
          QStringLiteral("BAMAS335"), QStringLiteral("BAMAS360"), QStringLiteral("BAMAS505")},
         {1, 4, 1, 3}},
    };
    for (const auto& row : table) {
        if (row.screens.contains(screenName)) {
            return row.ranges;
        }
    }
    return {};
}
