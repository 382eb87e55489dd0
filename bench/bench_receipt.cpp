// Goods receipt and purchase orders on the benchmark chain: the receipt list of the store with
// the most receipts over a whole year, against the engine running the same statement text alone,
// and the order entry grid of the school with the most items, each from the click to the filled
// grid.
#include "benchsupport.h"

#include "data/dbroutines.h"
#include "data/demo/demochain.h"
#include "data/sqlitedatabase.h"
#include "data/sqlitefunctions.h"
#include "grid/spread.h"
#include "grid/spreadroutines.h"
#include "screens/stock/BAMAS310.h"
#include "screens/stock/BAMAS315.h"

#include <QApplication>
#include <QComboBox>
#include <QDate>
#include <QDateEdit>
#include <QElapsedTimer>

#include <sqlite3.h>

namespace {

void choose(QWidget* screen, const QString& name, const QString& text) {
    auto* combo = screen->findChild<QComboBox*>(name);
    combo->setCurrentIndex(combo->findText(text));
}

// Prepare and step through every row, nothing else.
double engineMs(sqlite3* db, const QString& sql, int& rows) {
    const QByteArray text = rewriteForSqlite(sql).toUtf8();
    QElapsedTimer clock;
    clock.start();
    sqlite3_stmt* stmt = nullptr;
    sqlite3_prepare_v2(db, text.constData(), int(text.size()), &stmt, nullptr);
    rows = 0;
    while (sqlite3_step(stmt) == SQLITE_ROW) {
        ++rows;
    }
    sqlite3_finalize(stmt);
    return clock.nsecsElapsed() / 1e6;
}

template <typename F> double bestOfThree(F run) {
    double best = 1e12;
    for (int i = 0; i < 3; ++i) {
        QElapsedTimer clock;
        clock.start();
        run();
        best = std::min(best, clock.nsecsElapsed() / 1e6);
    }
    return best;
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    openBenchSession(QStringLiteral("stock"));
    if (demoChainMissing(gDb())) {
        generateDemoChain(gDb(), 1, kDemoBenchmarkScale);
    }

    // The receipt list: the store with the most receipts, every receipt of the last year.
    RecordSet top;
    gfbSqlSelectDB(QStringLiteral("SELECT ST.STORENAME, COUNT(*) N FROM T_INBOUND TIN "
                                  "JOIN C_STORE ST ON ST.COMPANY = TIN.COMPANY "
                                  "AND ST.STORECD = TIN.STORECD WHERE TIN.COMPANY = '01' "
                                  "GROUP BY ST.STORENAME ORDER BY N DESC LIMIT 1"),
                   top);
    auto* receipts = new BAMAS315;
    receipts->load();
    choose(receipts, QStringLiteral("cboStore_1"), top.field(QStringLiteral("STORENAME")));
    receipts->findChild<QDateEdit*>(QStringLiteral("dtpStart_1"))
        ->setDate(QDate::currentDate().addYears(-1));
    auto* list = receipts->findChild<Spread*>(QStringLiteral("SP21"));
    const QString sql = receipts->receiptListSql();
    auto* db = dynamic_cast<SqliteDatabase*>(&gDb());
    int rows = 0;
    double engine = 1e12;
    double listMs = 1e12;
    for (int run = 0; run < 3; ++run) {
        engine = std::min(engine, engineMs(db->handle(), sql, rows));
        QElapsedTimer clock;
        clock.start();
        receipts->cmdViewSale_Click();
        while (receipts->reportRunning()) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
        listMs = std::min(listMs, clock.nsecsElapsed() / 1e6);
    }
    if (list->maxRows() != rows) {
        std::fprintf(stderr, "grid %d rows, engine %d rows\n", list->maxRows(), rows);
        return 1;
    }
    ::report("receipt_list_rows", list->maxRows(), "rows");
    ::report("receipt_engine_ms", engine, "ms");
    ::report("receipt_list_ms", listMs, "ms");
    ::report("receipt_list_ratio", listMs / engine, "x");

    // The order entry grid: the school offering the most items, at a store that sells to it.
    RecordSet school;
    gfbSqlSelectDB(
        QStringLiteral("SELECT SS.STORECD, ST.STORENAME, SC.SCHOOLNAME, COUNT(*) N "
                       "FROM C_SCHOOLUNIFORM SU JOIN C_STORESCHOOL SS ON SS.COMPANY = SU.COMPANY "
                       "AND SS.SCHOOLCD = SU.SCHOOLCD JOIN C_STORE ST ON ST.COMPANY = SS.COMPANY "
                       "AND ST.STORECD = SS.STORECD JOIN C_SCHOOL SC ON SC.COMPANY = SU.COMPANY "
                       "AND SC.SCHOOLCD = SU.SCHOOLCD WHERE SU.COMPANY = '01' AND SU.USEYN = 'Y' "
                       "GROUP BY SS.STORECD, ST.STORENAME, SC.SCHOOLNAME ORDER BY N DESC LIMIT 1"),
        school);
    auto* orders = new BAMAS310;
    orders->load();
    choose(orders, QStringLiteral("cboStore_0"), school.field(QStringLiteral("STORENAME")));
    auto* schools = orders->findChild<Spread*>(QStringLiteral("SP1"));
    const int row = gfSpreadFindRow(schools, 1, school.field(QStringLiteral("SCHOOLNAME")));
    schools->setActiveCell(row, 1);
    auto* entry = orders->findChild<Spread*>(QStringLiteral("SP3"));
    const double entryMs = bestOfThree([&] { orders->m_Search(); });
    ::report("order_entry_lines", entry->maxRows() / 2, "lines");
    ::report("order_entry_fill_ms", entryMs, "ms");
    delete orders;
    delete receipts;
    return 0;
}
