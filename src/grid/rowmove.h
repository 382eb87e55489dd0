#pragma once

#include <QString>

class Spread;

// Two lists side by side, one of rows not taken and one of rows taken, and the moves between
// them: the operator marks rows in one and moves them across. A row is filled when its key
// column holds something; empty rows are never moved nor marked.

// The filled rows of a grid, top down: the last row whose key column holds something.
int gfSpreadFilledRows(Spread* grid, int keyCol);

// Copies every row of `from` whose mark column holds `mark` (compared trimmed, by value: "1" for
// a check cell), all columns as they stand, after the last filled row of `to`, and removes it
// from `from`, the rows below closing up. Both grids then hold at least minRows rows. Returns
// the number of rows moved.
int gsSpreadMoveMarked(Spread* from, Spread* to, int markCol, int keyCol, const QString& mark,
                       int minRows);

// A double click on the heading of a check column turns every filled row's check to the
// opposite of the first row's ("1" or "0").
void gsSpreadCheckAll(Spread* grid, int checkCol, int keyCol);
// Wires that double click.
void gsSpreadCheckAllOnHeading(Spread* grid, int checkCol, int keyCol);
