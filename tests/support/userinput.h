#pragma once

#include <QString>

class MAINMDI;
class QWidget;
class Screen;
class Spread;

// Driving widgets as a user does, through Qt's event loop.

// Text as an input method commits it (Korean included) into the widget with the focus.
void typeText(QWidget* widget, const QString& text);
// A click (or double click) on a data cell of a grid's scrolling view.
void clickCell(Spread* grid, int row, int col, bool doubleClick = false);
// Starts typing into a cell: a click on it, then the text as keys, without Enter.
void typeIntoCell(Spread* grid, int row, int col, const QString& text);
// A tool-bar button of the main window by its key ("Save"), clicked as a mouse does: the
// button takes no focus.
void clickToolButton(MAINMDI* window, const QString& key);
// A double click on a heading cell of a grid (first heading row), where the heading band lies
// over the scrolling view.
void doubleClickHeading(Spread* grid, int col);
// Lets the event loop run until the screen's report is through and its grid filled (at most
// timeoutMs); false when it still runs.
bool waitForReport(Screen* screen, int timeoutMs = 60000);
