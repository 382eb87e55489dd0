#pragma once

#include "grid/gridcolumns.h"

#include <QStringList>

#include <functional>

class QHBoxLayout;
class QWidget;
class RecordSet;
class Spread;

// The two school lists of an item's assignment pop-ups: "미지정학교" (not assigned) and
// "지정학교" (assigned), side by side, with a check column to pick rows and buttons that move the
// picked rows across. Both lists show at least kSchoolPickRows rows; a filled row is one with a
// school code.
constexpr int kSchoolPickRows = 35;

// Check, school code (hidden), level, kind and name, filled from SCHOOLCD, SCHOOLLEVEL, DIVIDE
// and SCHOOLNAME. `divideWidth` 0 hides the kind.
GridColumns schoolPickColumns(const QString& checkHeading, double divideWidth, double nameWidth);

// Replaces the list's rows with the record set's and pads it to kSchoolPickRows.
void fillSchoolPick(Spread* grid, const GridColumns& columns, const RecordSet& rs);
// Moves the checked filled rows of `from` below the filled rows of `to`, unchecked; both keep
// at least kSchoolPickRows rows. Returns the number of rows moved.
int moveCheckedSchools(Spread* from, Spread* to, const GridColumns& columns);
// The school codes of the filled rows, top to bottom.
QStringList pickedSchoolCodes(const Spread* grid, const GridColumns& columns);

// The assigned list "SP2", the buttons "cmdLeft" (◀, runs moveIn) and "cmdRight" (▶, runs
// moveOut), and the list not assigned "SP3", side by side. Only the check column takes input; a
// double click on its heading checks every school, or clears them when the first was checked.
// `minWidth` keeps a school's name whole.
QHBoxLayout* schoolPickPair(QWidget* parent, const GridColumns& columns, int minWidth,
                            Spread*& assigned, Spread*& notAssigned,
                            const std::function<void()>& moveIn,
                            const std::function<void()>& moveOut);
