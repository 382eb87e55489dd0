#pragma once

#include <QString>

class Dialect;

// What the stock report is asked for. Codes are empty where the screen's list has no choice.
struct StockFilter {
    QString company;
    QString store;
    QString brand;
    QString yearFrom; // four digits, already in order
    QString yearTo;
    QString sex;         // garment sex "B" or "G"
    QString season;      // the all-season "A" always stays in beside it
    QString subMain;     // empty: main and sub items
    QString uniform;     // item code without the common-set part
    QString school;      // a chosen school overrides level and contract class
    QString schoolLevel; // "1", "2", "3"
    int contractRow = 0; // 2: schools without a joint-purchase contract, 3: with one
    QString currentYear; // the screen's year for the contracts
};

enum class StockReport { Split, Merged, CarryOver };

// One statement computes stock from opening stock, receipts, outbound rows and the tills'
// sales for one store. Stock is kept nowhere else, so every figure of the chain is read this
// way, its oddities included: opening stock is added once per receipt row of its line,
// identical ordinary outbound rows count once, a common item's sales gather under the greatest
// school offering it, and an unsecured reservation stays on the shelf.
// Fields: merge key, store, school, sex, item, year label, total (empty), size table, the 24
// quantities, model year, last correction date.
QString stockStatement(const StockFilter& filter, StockReport report, const Dialect& d);

// The statement's first three named sub-selects (V_SALE, V_Title, T_VIEW_STOCKQTY), comma
// separated and without the WITH, for the statements that read stock line by line as the
// report does (registration and correction) and add sub-selects of their own after them.
QString stockQuantitySteps(const StockFilter& filter, const Dialect& d);
