// A select off the window thread, on both roads: the embedded engine and ODBC (the SQLite ODBC
// driver over the same file).
#include "testdb.h"

#include "data/connectionconfig.h"
#include "data/database.h"
#include "data/reportquery.h"
#include "data/session.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>

namespace {

// Runs long in the engine whatever the tables hold; one row at the end.
const QString kEndless = QStringLiteral(
    "WITH RECURSIVE N(I) AS (SELECT 1 UNION ALL SELECT I + 1 FROM N WHERE I < 2000000000) "
    "SELECT MAX(I) FROM N");

} // namespace

class ReportQueryTest : public TestDb, public ::testing::WithParamInterface<bool> {
protected:
    void SetUp() override {
        TestDb::SetUp();
        config = session().config;
        if (GetParam()) {
            config.torvix = QStringLiteral("odbc:DRIVER=SQLite3;Database=") +
                            ConnectionConfig::sqlitePath(config.torvix);
        }
    }
    bool finish(ReportQuery& query, int ms = 20000) {
        QElapsedTimer clock;
        clock.start();
        while (query.isRunning() && clock.elapsed() < ms) {
            QTest::qWait(10);
        }
        return !query.isRunning();
    }
    ConnectionConfig config;
};

TEST_P(ReportQueryTest, everyRowComesOverInOrderWhileTheWindowThreadWaits) {
    // A slip table of 30,000 lines, made by the engine.
    exec(QStringLiteral(
        "CREATE TABLE SLIPS (SEQ INTEGER, STORECD TEXT, NAME TEXT); "
        "INSERT INTO SLIPS WITH RECURSIVE N(I) AS (SELECT 1 UNION ALL SELECT I + 1 FROM N "
        "WHERE I < 30000) SELECT I, printf('%03d', I % 7), CASE WHEN I % 5 = 0 THEN NULL "
        "ELSE '한빛' || I END FROM N"));
    ReportQuery query;
    QSignalSpy batches(&query, &ReportQuery::rowsArrived);
    ASSERT_TRUE(
        query.start(QStringLiteral("SELECT SEQ, STORECD, NAME FROM SLIPS ORDER BY SEQ"), config));
    EXPECT_FALSE(query.start(QStringLiteral("SELECT 1"), config)); // one at a time
    ASSERT_TRUE(finish(query));
    ASSERT_EQ(query.outcome(), ReportQuery::Outcome::Done);
    EXPECT_GE(batches.size(), 1);
    EXPECT_EQ(batches.last().at(0).toLongLong(), 30000);
    const RecordSet rs = query.takeRows();
    ASSERT_EQ(rs.recordCount(), 30000);
    EXPECT_EQ(rs.fieldIndex(QStringLiteral("name")), 2);
    EXPECT_EQ(rs.at(0, 0), QStringLiteral("1"));
    EXPECT_EQ(rs.at(29999, 0), QStringLiteral("30000"));
    EXPECT_EQ(rs.at(4, 2), QString()); // NULL reads as ""
    EXPECT_EQ(rs.at(6, 1), QStringLiteral("000"));
    EXPECT_EQ(rs.at(6, 2), QStringLiteral("한빛7"));

    // The connection stays for the next run; a statement without rows is Done with none.
    ASSERT_TRUE(query.start(QStringLiteral("SELECT SEQ FROM SLIPS WHERE SEQ < 0"), config));
    ASSERT_TRUE(finish(query));
    EXPECT_EQ(query.outcome(), ReportQuery::Outcome::Done);
    EXPECT_EQ(query.takeRows().recordCount(), 0);
}

TEST_P(ReportQueryTest, aCancelStopsTheEngineAndTheNextRunGoesOn) {
    ReportQuery query;
    ASSERT_TRUE(query.start(kEndless, config));
    QTest::qWait(300);
    ASSERT_TRUE(query.isRunning());
    QElapsedTimer clock;
    clock.start();
    query.cancel();
    ASSERT_TRUE(finish(query, 5000)) << "the engine went on after the cancel";
    EXPECT_LT(clock.elapsed(), 3000);
    EXPECT_EQ(query.outcome(), ReportQuery::Outcome::Cancelled);
    EXPECT_FALSE(query.error().has_value());
    EXPECT_EQ(query.takeRows().recordCount(), 0);

    ASSERT_TRUE(query.start(QStringLiteral("SELECT COUNT(*) FROM C_BRAND"), config));
    ASSERT_TRUE(finish(query));
    EXPECT_EQ(query.outcome(), ReportQuery::Outcome::Done);
}

TEST_P(ReportQueryTest, theStatementLimitEndsItWithTheTimeoutText) {
    config.statementTimeoutSeconds = 1;
    ReportQuery query;
    QElapsedTimer clock;
    clock.start();
    ASSERT_TRUE(query.start(kEndless, config));
    ASSERT_TRUE(finish(query, 10000));
    EXPECT_LT(clock.elapsed(), 6000);
    ASSERT_EQ(query.outcome(), ReportQuery::Outcome::Failed);
    ASSERT_TRUE(query.error().has_value());
    EXPECT_TRUE(query.error()->description().contains(QStringLiteral("timeout")))
        << query.error()->description().toStdString();
}

TEST_P(ReportQueryTest, goingAwayWhileItRunsStopsTheWorker) {
    QElapsedTimer clock;
    {
        ReportQuery query;
        ASSERT_TRUE(query.start(kEndless, config));
        QTest::qWait(200);
        clock.start();
    }
    EXPECT_LT(clock.elapsed(), 3000);
}

TEST_P(ReportQueryTest, aFailureIsTheEnginesAndNoDatabaseIsNoConnection) {
    ReportQuery query;
    ASSERT_TRUE(query.start(QStringLiteral("SELECT * FROM NO_SUCH_TABLE"), config));
    ASSERT_TRUE(finish(query));
    ASSERT_EQ(query.outcome(), ReportQuery::Outcome::Failed);
    EXPECT_TRUE(query.error()->description().contains(QStringLiteral("NO_SUCH_TABLE")));

    ReportQuery elsewhere;
    config.torvix = GetParam() ? QStringLiteral("odbc:DRIVER=NoSuchDriver;SERVER=127.0.0.1")
                               : dir.filePath(QStringLiteral("nowhere/torvix.db"));
    ASSERT_TRUE(elsewhere.start(QStringLiteral("SELECT 1"), config));
    ASSERT_TRUE(finish(elsewhere));
    EXPECT_EQ(elsewhere.outcome(), ReportQuery::Outcome::NoConnection);
}

INSTANTIATE_TEST_SUITE_P(Engines, ReportQueryTest, ::testing::Values(false, true),
                         [](const ::testing::TestParamInfo<bool>& info) {
                             return info.param ? "Odbc" : "Sqlite";
                         });
