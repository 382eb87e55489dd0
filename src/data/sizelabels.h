#pragma once

#include <QString>

// The size model: for a brand and a year, the label of each of the 24 size positions of every
// pair of teen range and size table (C_BRANDSIZE), as every stock and sales screen shows them.

// Size positions of every quantity row and label row.
constexpr int kSizePositions = 24;

// "C01" .. "C24": the label column of a size position (1 to 24).
QString sizeLabelColumn(int position);

// The label year in force for a year asked for, as a sub-select: the greatest year with labels
// of the brand not above it, or the server's present year when there is none.
QString labelYearInForce(const QString& brand, const QString& year);

// Every pair of size table (code group 26) and teen range (group 27), once each, with the labels
// stored for the brand in the year in force, empty where none are: TEENSCOPE (the range's
// name), GT27CD, SIZETAB, C01 .. C24, DISP_SEQ; ordered by range and the table's display order.
QString sizeLabelPairsSql(const QString& brand, const QString& year);
