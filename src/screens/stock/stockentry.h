#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

class Dialect;
class QComboBox;
class QButtonGroup;
class QDateEdit;
class QRadioButton;
class QWidget;
class RecordSet;
class Spread;

// What the entry screens of the stock cycle (orders, receipts, transfers) share around their
// entry grids: the year lists, the store's school list, the date rule and the school text.

// The chain's current business year: the latest of the stores, else the server's year.
QString stockCurrentYear();
// An empty row, then the two-digit years current + offset for each offset, the current one
// selected.
void fillEntryYears(QComboBox* combo, const QString& currentYear, const QList<int>& offsets);
// "20" + the two digits of the combo; "" on its empty row.
QString entryYear(const QComboBox* combo);

// "학교명[남]": CS.SCHOOLNAME + '[' + GT24.GRP_NAM + ']', GT24 being the sex code group.
QString schoolSexText(const Dialect& d);

// The store's schools for the school lists: SCHOOLNAME, SCHOOLCD, by the level's display order
// and name; levelCode "" for every level.
QString storeSchoolListSql(const QString& store, const QString& levelCode);
// The school list grid: "학교" and the hidden "학교코드".
void setUpSchoolList(Spread* grid);
// Fills it; withAll puts a row "전체" (code "") first. Answers the rows of schools.
int fillSchoolList(Spread* grid, const RecordSet& rs, bool withAll);

// The date of a box as "YYYYMMDD".
QString ymdOf(const QDateEdit* box);
// A document dated after today is refused: message 8083, the box back to today; true then.
bool refuseFutureDate(QDateEdit* box);

// The statement of each row of a list whose tick column is on, in grid order.
QStringList checkedRowStatements(Spread* grid, int checkCol,
                                 const std::function<QString(int row)>& statement);
// Runs the statements as one unit: all or none. False when one failed (already shown and
// logged); nothing is left written then.
bool executeAsUnit(const QStringList& statements);

// An option button with its control name, one of a group.
QRadioButton* optionButton(QWidget* parent, const QString& name, const QString& caption,
                           QButtonGroup* group);
