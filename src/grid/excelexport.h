#pragma once

#include <QString>

#include <functional>

class Spread;

// Spreadsheet column letters for grid column n, kept exactly as the old export placed them:
// 1 "A" .. 25 "Y", then 26 "AA", 27 "AB", 51 "AZ", 52 "BA" (no "Z": from 26 on every column
// lands one letter further right). Defined for 1 to 259; "" otherwise.
QString gsExcelColName(int n);
void gsExcelColName(int n, QString& s);
// Zero-based sheet column of a letter name ("A" 0, "AA" 26).
int excelColumnIndex(const QString& name);

// Copies a grid into a new workbook in the data folder's Report/ folder and opens it in the
// desktop's spreadsheet program: title row (merged, "돋움" 16), the server date and sub-title,
// the heading rows merged as on screen, then the data rows, columns 1 to lastCol; hidden columns
// stay empty with width 0; negative numbers red. The sheet is set up to print (sheetprint.h).
// A grid without data exports nothing and says nothing. A failure shows the box
// "엑셀화일 생성시 오류" and removes the file. Where no program opens the workbook, the user is
// told where it is and offered its folder. Returns the written file, or "" when none.
// Opening is skipped when TORVIX_NO_OPEN is set or the platform has no screen (offscreen).
QString gsExcelExport(const QString& title, int lastCol, Spread* grid,
                      const QString& subTitle = QString());

// Replaces the desktop's opening of a file or folder (tests); an empty function restores it.
void setDesktopOpener(std::function<bool(const QString& path)> open);
// The file name a report title gives: without the characters file systems refuse (":" among
// them) and without runs of blanks; "Report" for a title with nothing left.
QString reportFileName(const QString& title);

// The same sheet written to a given file without opening it; the date is passed as "YYYYMMDD".
// False when the file cannot be written.
bool writeGridWorkbook(const QString& path, const QString& title, int lastCol, Spread* grid,
                       const QString& subTitle, const QString& date);
