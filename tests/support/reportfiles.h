#pragma once

#include <QString>
#include <QStringList>

class Spread;

// Reading back what a report wrote, through the tools a user would open it with.

// The output of a program (pdftotext, pdfinfo, unzip -p), or "" when it did not run.
QString toolOutput(const QString& program, const QStringList& arguments);
// The text of one page of a PDF (1-based), a line per text run (the blanks between words are
// not kept reliably), its page count, and whether its pages lie wider than tall.
QString pdfPageText(const QString& path, int page);
int pdfPageCount(const QString& path);
bool pdfLandscape(const QString& path);
// One member of a zip file (an .xlsx), as text.
QString zipMember(const QString& path, const QString& member);

// A report grid laid out as the stock report is: a hidden key column, store and school names
// merged down their heading rows, a total, a size table column with 24 size columns whose labels
// differ by heading row, and a trailing date heading. Data row r holds the school "R001"..., a
// total of r and a size quantity of -r in its first size column.
void fillStockLikeGrid(Spread* grid, int rows, int headRows);
