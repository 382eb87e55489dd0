#pragma once

#include <QString>

#include <functional>
#include <vector>

class Screen;

// The number table of the main window: which number opens which screen.
struct ScreenInfo {
    int number;
    QString name;          // BAMASnnn: the screen's object name and PROGLIST.PROGID
    QString designCaption; // caption until PROGLIST gives the run-time title
};

const std::vector<ScreenInfo>& screenTable();
const ScreenInfo* findScreenByNumber(int number);
const ScreenInfo* findScreenByName(const QString& name);

using ScreenFactory = std::function<Screen*()>;
// A screen module registers how to build itself; a number without a factory opens a placeholder.
void registerScreenFactory(const QString& name, ScreenFactory factory);
Screen* createScreen(const ScreenInfo& info);
