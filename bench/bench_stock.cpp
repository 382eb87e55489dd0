// The stock report on the benchmark chain for its largest store: the screen from the click to
// the filled grid with totals, against the engine running the same statement text alone; then
// the stock per line of that store as a transfer reads it. Then the report of every store over
// every model year: the chain's stock must look like a shop's, at most one line in ten below
// zero in any store.
//
// BENCH_SCALE sets the chain's size (default the benchmark scale). BENCH_CHAIN names a folder
// to keep the chain in between runs (made there on the first run, reused after); without it
// the chain is made afresh by this build of the generator.
#include "benchsupport.h"

#include "data/dbroutines.h"
#include "data/demo/demochain.h"
#include "data/dialect.h"
#include "data/schema/stockqty.h"
#include "data/session.h"
#include "data/sqlitedatabase.h"
#include "data/sqlitefunctions.h"
#include "grid/spread.h"
#include "screens/stock/BAMAS330.h"
#include "screens/stock/stockstatement.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>

#include <sqlite3.h>

#include <ctime>

using namespace Qt::StringLiterals;

namespace {

// CPU time of the process so far: on a machine shared with other work the wall clock measures
// the others too, so each figure is also given in CPU time.
double cpuMs() {
    timespec t{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
    return double(t.tv_sec) * 1e3 + double(t.tv_nsec) / 1e6;
}

// The best of several runs, by the wall clock and by CPU time.
struct Best {
    double wall = 1e12;
    double cpu = 1e12;
    template <typename F> void time(F run) {
        QElapsedTimer clock;
        clock.start();
        const double cpu0 = cpuMs();
        run();
        cpu = std::min(cpu, cpuMs() - cpu0);
        wall = std::min(wall, clock.nsecsElapsed() / 1e6);
    }
};

// Prepare and step through every row, nothing else.
int engineRows(sqlite3* db, const QString& sql) {
    const QByteArray text = rewriteForSqlite(sql).toUtf8();
    sqlite3_stmt* stmt = nullptr;
    sqlite3_prepare_v2(db, text.constData(), int(text.size()), &stmt, nullptr);
    int rows = 0;
    while (sqlite3_step(stmt) == SQLITE_ROW) {
        ++rows;
    }
    sqlite3_finalize(stmt);
    return rows;
}

void choose(QWidget* screen, const char* name, const QString& text) {
    auto* combo = screen->findChild<QComboBox*>(QString::fromLatin1(name));
    combo->setCurrentIndex(combo->findText(text));
}

// Lines of a store's report over every model year, and those with a size below zero.
struct StockLines {
    qsizetype lines = 0;
    qsizetype negative = 0;
};

StockLines stockLines(const QString& store, const QString& brand, const QString& from,
                      const QString& to) {
    StockFilter f;
    f.company = QStringLiteral("01");
    f.store = store;
    f.brand = brand;
    f.yearFrom = from;
    f.yearTo = to;
    RecordSet rs;
    gfbSqlSelectDB(stockStatement(f, StockReport::Split, dialect()), rs);
    StockLines out;
    out.lines = rs.recordCount();
    const int c01 = rs.fieldIndex(QStringLiteral("C01QTY"));
    for (qsizetype row = 0; row < rs.recordCount(); ++row) {
        for (int size = 0; size < 24; ++size) {
            if (rs.at(row, c01 + size).toInt() < 0) {
                ++out.negative;
                break;
            }
        }
    }
    return out;
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    const int scale = benchScale();
    const QString kept = qEnvironmentVariable("BENCH_CHAIN");
    QString folder = QDir(kept).absolutePath();
    if (kept.isEmpty()) {
        // A chain made by this build of the generator, not one left by an earlier run.
        folder = QDir(qEnvironmentVariable("TORVIX_BENCH_DIR", QDir::tempPath()))
                     .absoluteFilePath(u"stock"_s);
        for (const char* suffix : {"", "-wal", "-shm"}) {
            QFile::remove(QDir(folder).filePath(u"torvix.db"_s + QString::fromLatin1(suffix)));
        }
    }
    openBenchChain(folder, scale);
    ::report("bench_scale", scale, "x");
    RecordSet slipLines;
    gfbSqlSelectDB(u"SELECT COUNT(*) N FROM S_ORDERDETAIL"_s, slipLines);
    ::report("demo_slip_lines", slipLines.field(u"N"_s).toDouble(), "rows");
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
    Best engine;
    Best screenRun;
    for (int run = 0; run < 3; ++run) {
        engine.time([&] { rows = engineRows(db->handle(), sql); });
        screenRun.time([&] {
            screen->cmdViewSale_Click(StockReport::Split);
            // The report runs off the window thread: the clock stops when its rows are in the grid.
            while (screen->reportRunning()) {
                QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
            }
        });
    }
    if (grid->maxRows() != rows) {
        std::fprintf(stderr, "grid %d rows, engine %d rows\n", grid->maxRows(), rows);
        return 1;
    }
    ::report("stock_report_rows", rows, "rows");
    ::report("stock_engine_ms", engine.wall, "ms");
    ::report("stock_report_ms", screenRun.wall, "ms");
    ::report("stock_report_ratio", screenRun.wall / engine.wall, "x");
    ::report("stock_engine_cpu_ms", engine.cpu, "ms");
    ::report("stock_report_cpu_ms", screenRun.cpu, "ms");
    ::report("stock_report_cpu_ratio", screenRun.cpu / engine.cpu, "x");

    // The store's stock per line as a transfer reads it: all model years, and the screen's year.
    const auto view = [&](const char* name, const StockQtyScope& scope) {
        const QString text = u"SELECT * FROM ("_s + stockQtySelect(dialect(), scope) + u") SC"_s;
        Best best;
        int lines = 0;
        for (int run = 0; run < 3; ++run) {
            best.time([&] { lines = engineRows(db->handle(), text); });
        }
        const QByteArray prefix = QByteArray("stock_view_") + name;
        ::report(QByteArray(prefix + "_rows").constData(), lines, "rows");
        ::report(QByteArray(prefix + "_ms").constData(), best.wall, "ms");
        ::report(QByteArray(prefix + "_cpu_ms").constData(), best.cpu, "ms");
    };
    view("store", {u"01"_s, top.field(u"STORECD"_s), QString()});
    view("store_year", {u"01"_s, top.field(u"STORECD"_s), screen->currentYear()});
    delete screen;
    if (scale != kDemoBenchmarkScale) {
        return 0; // the chain's shape is checked at the benchmark scale
    }

    RecordSet years;
    gfbSqlSelectDB(u"SELECT MIN(BSYYYY) LO, MAX(BSYYYY) HI FROM VIW_BSYYYY"_s, years);
    RecordSet stores;
    gfbSqlSelectDB(u"SELECT STORECD, BRANDCD FROM C_STORE WHERE COMPANY = '01' ORDER BY STORECD"_s,
                   stores);
    qsizetype allLines = 0;
    qsizetype negative = 0;
    double worst = 100.0;
    for (qsizetype row = 0; row < stores.recordCount(); ++row) {
        const QString store = stores.at(row, 0);
        const StockLines s =
            stockLines(store, stores.at(row, 1), years.field(u"LO"_s), years.field(u"HI"_s));
        const double share =
            s.lines ? 100.0 * double(s.lines - s.negative) / double(s.lines) : 100.0;
        std::fprintf(stderr, "store %s: %lld lines, %lld negative\n", qPrintable(store),
                     (long long)s.lines, (long long)s.negative);
        allLines += s.lines;
        negative += s.negative;
        worst = std::min(worst, share);
    }
    ::report("stock_lines_all_stores", double(allLines), "rows");
    ::report("stock_lines_negative_all_stores", double(negative), "rows");
    ::report("stock_lines_nonnegative_worst_store", worst, "%");
    if (worst < 90.0) {
        std::fprintf(stderr,
                     "a store's stock report has %.1f%% of its lines at or above zero; "
                     "at least 90%% expected\n",
                     worst);
        return 1;
    }
    return 0;
}
