// Store transfers on the benchmark chain: the entry grid of the largest store for every school
// ("전체학교"), from the click to the filled grid with the sender's stock, and the engine's own
// time for the stock statement the screen sends.
#include "benchsupport.h"

#include "data/dbroutines.h"
#include "data/demo/demochain.h"
#include "data/sqlitedatabase.h"
#include "data/sqlitefunctions.h"
#include "grid/spread.h"
#include "grid/spreadroutines.h"
#include "screens/stock/BAMAS320.h"

#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>

#include <sqlite3.h>

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

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

void choose(QWidget* screen, const QString& name, int index) {
    screen->findChild<QComboBox*>(name)->setCurrentIndex(index);
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    openBenchSession(u"stock"_s);
    if (demoChainMissing(gDb())) {
        generateDemoChain(gDb(), 1, kDemoBenchmarkScale);
    }
    RecordSet top;
    gfbSqlSelectDB(u"SELECT OD.STORECD, ST.STORENAME, COUNT(*) N FROM S_ORDERDETAIL OD "
                   "JOIN C_STORE ST ON ST.COMPANY = OD.COMPANY AND ST.STORECD = OD.STORECD "
                   "WHERE OD.COMPANY = '01' GROUP BY OD.STORECD, ST.STORENAME "
                   "ORDER BY N DESC LIMIT 1"_s,
                   top);
    auto* screen = new BAMAS320;
    screen->load();
    auto* sender = screen->findChild<QComboBox*>(u"cboOutStore_0"_s);
    const int senderRow = sender->findText(top.field(u"STORENAME"_s));
    choose(screen, u"cboOutStore_0"_s, senderRow);
    choose(screen, u"cboInStore_0"_s, senderRow == 1 ? 2 : 1);
    choose(screen, u"cboGT29"_s, 1);
    auto* schools = screen->findChild<Spread*>(u"SP1"_s);
    if (gfSpreadText(schools, 1, 2) != u"**"_s) {
        std::fprintf(stderr, "no school list for store %s\n", qPrintable(top.field(u"STORECD"_s)));
        return 1;
    }
    emit schools->clicked(1, 1); // 전체학교
    auto* grid = screen->findChild<Spread*>(u"SP3"_s);
    auto* db = dynamic_cast<SqliteDatabase*>(&gDb());
    double screenMs = 1e12;
    double engine = 1e12;
    int stockRows = 0;
    for (int run = 0; run < 3; ++run) {
        QElapsedTimer clock;
        clock.start();
        screen->cmdView_Click(false);
        screenMs = std::min(screenMs, clock.nsecsElapsed() / 1e6);
        engine = std::min(engine, engineMs(db->handle(), screen->stockSql(), stockRows));
    }
    ::report("transfer_stock_lines", grid->maxRows() / 4, "lines");
    ::report("transfer_stock_engine_ms", engine, "ms");
    ::report("transfer_stock_ms", screenMs, "ms");
    delete screen;
    return 0;
}
