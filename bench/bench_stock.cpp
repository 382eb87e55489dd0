// The stock report on the benchmark chain for its largest store: the screen from the click to
// the filled grid with totals, against the engine running the same statement text alone.
#include "benchsupport.h"

#include "data/dbroutines.h"
#include "data/demo/demochain.h"
#include "data/dialect.h"
#include "data/session.h"
#include "data/sqlitedatabase.h"
#include "data/sqlitefunctions.h"
#include "grid/spread.h"
#include "screens/stock/BAMAS330.h"
#include "screens/stock/stockstatement.h"

#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>

#include <sqlite3.h>

namespace {

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

void choose(QWidget* screen, const char* name, const QString& text) {
    auto* combo = screen->findChild<QComboBox*>(QString::fromLatin1(name));
    combo->setCurrentIndex(combo->findText(text));
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    openBenchSession(QStringLiteral("stock"));
    if (demoChainMissing(gDb())) {
        generateDemoChain(gDb(), 1, kDemoBenchmarkScale);
    }
    RecordSet top;
    gfbSqlSelectDB(
        QStringLiteral(
            "SELECT OD.STORECD, ST.STORENAME, CB.BRANDNAME, COUNT(*) N FROM S_ORDERDETAIL OD "
            "JOIN C_STORE ST ON ST.COMPANY = OD.COMPANY AND ST.STORECD = OD.STORECD "
            "JOIN C_BRAND CB ON CB.COMPANY = ST.COMPANY AND CB.BRANDCD = ST.BRANDCD "
            "WHERE OD.COMPANY = '01' GROUP BY OD.STORECD, ST.STORENAME, CB.BRANDNAME "
            "ORDER BY N DESC LIMIT 1"),
        top);
    auto* screen = new BAMAS330;
    screen->load();
    choose(screen, "cboBrand", top.field(QStringLiteral("BRANDNAME")));
    choose(screen, "cboStore", top.field(QStringLiteral("STORENAME")));
    auto* low = screen->findChild<QComboBox*>(QStringLiteral("cboYY1_0"));
    low->setCurrentIndex(low->count() - 1); // the widest range of model years
    auto* grid = screen->findChild<Spread*>(QStringLiteral("SP31"));

    const QString sql = stockStatement(screen->currentFilter(), StockReport::Split, dialect());
    auto* db = dynamic_cast<SqliteDatabase*>(&gDb());
    int rows = 0;
    double engine = 1e12;
    double screenMs = 1e12;
    for (int run = 0; run < 3; ++run) {
        engine = std::min(engine, engineMs(db->handle(), sql, rows));
        QElapsedTimer clock;
        clock.start();
        screen->cmdViewSale_Click(StockReport::Split);
        screenMs = std::min(screenMs, clock.nsecsElapsed() / 1e6);
    }
    if (grid->maxRows() != rows) {
        std::fprintf(stderr, "grid %d rows, engine %d rows\n", grid->maxRows(), rows);
        return 1;
    }
    ::report("stock_report_rows", rows, "rows");
    ::report("stock_engine_ms", engine, "ms");
    ::report("stock_report_ms", screenMs, "ms");
    ::report("stock_report_ratio", screenMs / engine, "x");
    delete screen;
    return 0;
}
