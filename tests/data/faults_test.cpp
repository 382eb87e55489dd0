// Faults of the quoting routine, the error log and the trace: what a user can paste, another
// process holding a database, a full disk, and a save killed half-way.
#include "testdb.h"

#include "data/database.h"
#include "data/dbroutines.h"
#include "data/session.h"
#include "data/sqlitedatabase.h"
#include "data/sqlvalue.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QRandomGenerator>
#include <QThread>

#include <csignal>
#include <utility>

using namespace Qt::StringLiterals;

class Faults : public TestDb {
protected:
    QString brandName(const QString& code) {
        return scalar(u"SELECT BRANDNAME FROM C_BRAND WHERE BRANDCD = "_s + quoted(code));
    }
    bool insertBrand(const QString& code, const QString& name) {
        return gfbSqlExecuteDB(u"INSERT INTO C_BRAND (COMPANY, BRANDCD, BRANDNAME, USEYN) "_s +
                               u"VALUES ('01', "_s + quoted(code) + u", "_s + quoted(name) +
                               u", 'Y')"_s);
    }
    QString path(const QString& target) { return ConnectionConfig::sqlitePath(target); }
};

TEST_F(Faults, controlCharactersNeverReachAStatementAndTheRestIsStoredAsTyped) {
    const QString pasted = u"가\0나\x01\x1f\tA\r\nB'"_s;
    EXPECT_EQ(quoted(pasted), u"'가나\tA\r\nB'''"_s);
    ASSERT_TRUE(insertBrand(u"91"_s, pasted));
    EXPECT_EQ(brandName(u"91"_s), u"가나\tA\r\nB'"_s);
    EXPECT_TRUE(presenter->boxes.isEmpty());
    EXPECT_EQ(endedWith, -1);
    EXPECT_EQ(scalarUpdate(u"SELECT COUNT(*) FROM SQLTEXT WHERE SQLTEXT LIKE '%가나%'"_s), u"1"_s);
}

TEST_F(Faults, theErrorLogStoresAStatementHoldingANul) {
    gsErrorLog(-1, u"it's broken"_s, u"place's"_s, u"SELECT 'a\0b'"_s);
    EXPECT_EQ(endedWith, -1);
    EXPECT_EQ(scalar(u"SELECT ERRPROG || '|' || ERRMSG || '|' || ERROTHER FROM C_ERROR"_s),
              u"place`s|it`s broken |SELECT `ab` "_s);
}

TEST_F(Faults, aLockedDatabaseIsNamedInKoreanAndTheProgramGoesOn) {
    session().gDb->setLockWait(200);
    SqliteDatabase other(path(session().config.torvix), SqliteDatabase::OpenMode::ExistingOnly);
    other.begin();
    other.execute(u"INSERT INTO C_BRAND (COMPANY, BRANDCD, BRANDNAME) VALUES ('01', '92', 'x')"_s);
    EXPECT_FALSE(insertBrand(u"93"_s, u"잠김"_s));
    // One box, that says what happened with the engine's words; the log row is given up.
    ASSERT_EQ(presenter->boxes.size(), 1);
    EXPECT_TRUE(presenter->boxes[0].text.startsWith(u"데이터베이스가 사용 중입니다"_s));
    EXPECT_TRUE(presenter->boxes[0].text.contains(u"locked"_s))
        << presenter->boxes[0].text.toStdString();
    EXPECT_EQ(endedWith, -1);
    other.rollback();
    EXPECT_TRUE(insertBrand(u"93"_s, u"풀림"_s));
    EXPECT_EQ(brandName(u"93"_s), u"풀림"_s);
}

TEST_F(Faults, aFullDiskIsNamedInKoreanAndTheProgramGoesOn) {
    const QString pages = scalar(u"PRAGMA page_count"_s);
    exec(u"PRAGMA max_page_count = "_s + pages);
    EXPECT_FALSE(insertBrand(u"94"_s, QString(200000, u'가')));
    ASSERT_GE(presenter->boxes.size(), 1);
    EXPECT_TRUE(presenter->boxes[0].text.startsWith(u"디스크 공간이 부족합니다"_s))
        << presenter->boxes[0].text.toStdString();
    EXPECT_EQ(endedWith, -1);
    exec(u"PRAGMA max_page_count = 1000000"_s);
    EXPECT_TRUE(insertBrand(u"94"_s, u"여유"_s));
}

TEST_F(Faults, aLockedTraceNeitherStallsNorStopsASave) {
    // Both connections would wait two seconds for a lock.
    session().gDb->setStatementTimeout(2);
    session().gDbUpdate.reset();
    session().config.statementTimeoutSeconds = 2;
    SqliteDatabase trace(path(session().config.update), SqliteDatabase::OpenMode::ExistingOnly);
    trace.begin();
    trace.execute(u"INSERT INTO SQLTEXT (SQLTEXT, REGDTTM) VALUES ('held', '')"_s);
    QElapsedTimer clock;
    clock.start();
    {
        Transaction tx;
        for (int n = 1; n <= 8; ++n) {
            ASSERT_TRUE(insertBrand(QString::number(80 + n), u"쌍%1"_s.arg(n)));
        }
        EXPECT_TRUE(tx.commit());
    }
    EXPECT_LT(clock.elapsed(), 1000);
    EXPECT_EQ(count(u"C_BRAND"_s, u"BRANDCD BETWEEN '81' AND '88'"_s), 8);
    EXPECT_TRUE(presenter->boxes.isEmpty());
    trace.rollback();
}

// The probe: a child process saves in a loop (a delete and 24 inserts in one transaction, each
// traced) and is killed with SIGKILL at a random moment. Each time, both files pass the engine's
// integrity check and the brand's rows are one whole save: 24 rows of one generation, never
// fewer, never mixed, never older than the last seen. The savers are forked by a helper that
// holds no connection (torvix_savechild), so that each starts in milliseconds.
TEST_F(Faults, aSaveKilledAnywhereLeavesAllOrNothing) {
    exec(u"INSERT INTO C_BRANDSIZE (COMPANY, BRANDCD, YYYY, TEENSCOPE, SIZETAB, C01) "_s
         u"SELECT '01', '99', '2024', T.V, S.V, '0' FROM "_s
         u"(SELECT 'H' AS V UNION ALL SELECT 'M' UNION ALL SELECT 'E') T, "_s
         u"(SELECT 'A' AS V UNION ALL SELECT 'B' UNION ALL SELECT 'C' UNION ALL SELECT 'D' "_s
         u"UNION ALL SELECT 'E' UNION ALL SELECT 'F' UNION ALL SELECT 'G' UNION ALL "_s
         u"SELECT 'H') S"_s);
    SqliteDatabase trace(path(session().config.update), SqliteDatabase::OpenMode::ExistingOnly);
    QProcess server;
    server.start(QStringLiteral(TORVIX_SAVECHILD), {dir.path()});
    ASSERT_TRUE(server.waitForStarted(5000));
    const auto reply = [&server] {
        while (!server.canReadLine() && server.waitForReadyRead(5000)) {
        }
        return QString::fromLatin1(server.readLine()).trimmed();
    };
    QRandomGenerator random(20240917);
    int last = 0;
    for (int round = 0; round < 40; ++round) {
        server.write("go\n");
        // The saver may say "ready" before the server has said its pid.
        QString forked = reply();
        QString ready = reply();
        if (!forked.startsWith(u"pid "_s)) {
            std::swap(forked, ready);
        }
        const QString pid = forked.mid(4);
        ASSERT_GT(pid.toInt(), 0) << server.readAllStandardError().toStdString();
        ASSERT_EQ(ready, u"ready"_s) << server.readAllStandardError().toStdString();
        QThread::usleep(random.bounded(100, 25000));
        ::kill(pid.toInt(), SIGKILL);
        server.write("wait " + pid.toLatin1() + "\n");
        ASSERT_EQ(reply(), u"gone"_s);
        EXPECT_EQ(scalar(u"PRAGMA integrity_check"_s), u"ok"_s);
        EXPECT_EQ(trace.select(u"PRAGMA integrity_check"_s).at(0, 0), u"ok"_s);
        const QString rows = scalar(
            u"SELECT COUNT(*) || '|' || COUNT(DISTINCT C01) || '|' || MAX(CAST(C01 AS INTEGER)) "_s
            u"FROM C_BRANDSIZE WHERE BRANDCD = '99'"_s);
        const QStringList parts = rows.split(u'|');
        ASSERT_EQ(parts.size(), 3) << rows.toStdString();
        EXPECT_EQ(parts[0], u"24"_s) << "round " << round;
        EXPECT_EQ(parts[1], u"1"_s) << "round " << round;
        EXPECT_GE(parts[2].toInt(), last);
        last = parts[2].toInt();
    }
    server.closeWriteChannel();
    server.waitForFinished(5000);
    EXPECT_GE(last, 5) << "the kills should land among and inside whole saves";
}
