// Statement routines: reading a large select back by field name, and traced single-row inserts.
#include "benchsupport.h"

#include "data/database.h"
#include "data/dbroutines.h"
#include "data/session.h"
#include "data/sqlvalue.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QDir(qEnvironmentVariable("TORVIX_BENCH_DIR", QDir::tempPath())).removeRecursively();
    openBenchSession(QStringLiteral("data"));
    Database& db = gDb();
    db.execute(QStringLiteral("DROP TABLE IF EXISTS BENCH_ROWS; CREATE TABLE BENCH_ROWS (ID INTEGER, "
                              "STORECD TEXT COLLATE RTRIM, NAME TEXT COLLATE RTRIM, QTY INTEGER)"));
    db.begin();
    db.execute(QStringLiteral("WITH RECURSIVE N(I) AS (SELECT 1 UNION ALL SELECT I + 1 FROM N WHERE "
                              "I < 100000) INSERT INTO BENCH_ROWS SELECT I, printf('%02d', I % 40), "
                              "'교복 ' || I, I % 17 FROM N"));
    db.commit();

    QElapsedTimer clock;
    clock.start();
    RecordSet rs;
    qint64 count = 0;
    gfbSqlSelectDB(QStringLiteral("SELECT ID, STORECD, NAME, QTY FROM BENCH_ROWS"), rs, count);
    qint64 checksum = 0;
    for (rs.moveFirst(); !rs.eof(); rs.moveNext()) {
        checksum += rs.field(QStringLiteral("QTY")).toLongLong() +
                    rs.field(QStringLiteral("NAME")).size() + rs.field(QStringLiteral("STORECD")).size();
    }
    const double selectSeconds = clock.nsecsElapsed() / 1e9;
    report("select_rows_per_s", double(count) / selectSeconds, "rows/s");

    const int inserts = 2000;
    clock.restart();
    for (int i = 0; i < inserts; ++i) {
        gfbSqlExecuteDB(QStringLiteral("INSERT INTO C_LOG (LOGID, COMPANY, USERID, PROGID, VERSION) "
                                       "VALUES (GETDATE(), '01', ") +
                        quoted(QStringLiteral("user'%1").arg(i)) +
                        QStringLiteral(", 'BENCH', 'ver. 1.0.0')"));
    }
    report("execute_per_s", inserts / (clock.nsecsElapsed() / 1e9), "statements/s");
    return checksum > 0 ? 0 : 1;
}
