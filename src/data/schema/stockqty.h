#pragma once

#include <QString>

class Dialect;

// Which lines a read of the stock per line wants; an empty field does not narrow.
struct StockQtyScope {
    QString company;
    QString store;
    QString year; // model year, four digits
};

// The SELECT behind VIW_STOCKQTY_TEMP in the engine's own dialect: stock per store, school, sex,
// item and model year. Opening stock and receipts in, sales (less reservations not yet secured,
// still on the shelf) and every outbound row out. The arithmetic is the stock report's, quirks
// included, so that a screen reading it agrees with the report: opening stock is counted once
// per receipt row of its line, outbound rows that agree in every column but the date count once
// unless they are corrections, and a common item's sales gather under the greatest school that
// offers it. With a scope, the company, store and year stand inside every leg, next to the
// tables they narrow.
//
// A statement that wants one store's stock reads this as a derived table rather than filtering
// the view: SQLite carries no filter through the view's grouping (and none at all through a
// grouping over text compared without trailing blanks), so a filtered read of the view would
// still add up the movements of the whole chain. The text has no WITH of its own, so that it
// can stand inside another statement's common table expression on SQL Server too.
QString stockQtySelect(const Dialect& d, const StockQtyScope& scope = StockQtyScope());
