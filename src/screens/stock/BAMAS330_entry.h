#pragma once

#include "data/sizelabels.h"
#include "screens/stock/stockstatement.h"

#include <QString>

class Dialect;

// Tab 0 of the stock screen: opening stock registered, a count entered against computed stock,
// or stock of a scope set to zero. Each adds movement rows of kind 'D'; none changes one.

// The tab's modes, as its Label2 names them.
inline const QString kRegisterMode = QStringLiteral("재고등록");
inline const QString kCorrectMode = QStringLiteral("재고보정");

enum class StockEntryMode {
    Register, // one row a line and year, quantities 0, to be typed
    Correct,  // two rows a line and year: "재고" (the stock) and "보정" (to be counted)
    Clear,    // the stock of the scope, for "DATA삭제"
};

// SP3: merge key, school code, names, item code, store, year label, the row's caption, total,
// size table, 24 sizes, model year.
enum StockEntryCol {
    SenKey = 1,
    SenSchoolCd,
    SenSchool,
    SenSex,
    SenUniform,
    SenUniformCd,
    SenStore,
    SenYear,
    SenCaption,
    SenTotal,
    SenSizeTab,
    SenFirstSize,
    SenModelYear = SenFirstSize + kSizePositions,
    SenCount = SenModelYear
};

// The stock of the store line by line as the stock report computes it, with the filters of the
// tab, for one school ("**": every school). Common items come once for the store under the
// greatest school that carries them, school items by school; lines at stock 0 are kept.
// Register and Correct give SP3's fields in column order (Correct two rows a line, TTSEQ 1 and
// 2); Clear gives SCHOOLCD, SUDIVIDE, CD, BSYYYY and C01QTY..C24QTY.
QString stockEntrySql(const StockFilter& filter, const QString& school, StockEntryMode mode,
                      const Dialect& d);
