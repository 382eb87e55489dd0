#pragma once

#include <QList>
#include <QString>
#include <QStringList>

class Spread;

// One heading row per size table, so that one grid can show items of different size tables:
// first the shirt table of the oldest label year still inside the last four years, then the
// tables X, J, P, T of the year in force for the store.
struct SizeHeadingRow {
    QString sizeTab;
    QStringList labels; // 24
};

// Empty store or brand codes leave that filter out. teenScope is "L" or "H". False when the
// select failed (already shown).
bool readSizeHeadings(const QString& store, const QString& brand, const QString& teenScope,
                      QList<SizeHeadingRow>& rows);

// Writes the heading rows of a stock grid: the fixed headings in the columns before the size
// table column, the size table in sizeTabCol, its 24 labels after it, and trailing headings
// after the labels. The grid gets one heading row per size table (at least one).
void writeSizeHeadings(Spread* grid, const QList<SizeHeadingRow>& rows, const QStringList& leading,
                       const QStringList& trailing);
