// The statement routines on a real embedded database: results, trace, failures, transactions.
#include "testdb.h"

#include "data/database.h"
#include "data/dbroutines.h"
#include "data/session.h"
#include "data/sqlvalue.h"

class Statements : public TestDb {
protected:
    void SetUp() override {
        TestDb::SetUp();
        exec(QStringLiteral(
            "CREATE TABLE ITEMS (CODE TEXT COLLATE RTRIM, NAME TEXT COLLATE RTRIM, QTY INTEGER)"));
    }
    qint64 traces() {
        return scalarUpdate(QStringLiteral("SELECT COUNT(*) FROM SQLTEXT")).toLongLong();
    }
};

TEST_F(Statements, selectGivesExactCountFieldsByNameAndWalksBothWays) {
    exec(QStringLiteral("INSERT INTO ITEMS VALUES ('A', '동복 자켓', 3), ('B', NULL, 5)"));
    RecordSet rs;
    qint64 count = -1;
    ASSERT_TRUE(gfbSqlSelectDB(QStringLiteral("SELECT CODE, NAME, QTY FROM ITEMS ORDER BY CODE"),
                               rs, count));
    EXPECT_EQ(count, 2);
    EXPECT_EQ(rs.field(QStringLiteral("name")), QStringLiteral("동복 자켓"));
    rs.moveLast();
    EXPECT_EQ(rs.field(QStringLiteral("NAME")), QString()); // NULL reads as ""
    EXPECT_EQ(rs.field(QStringLiteral("QTY")), QStringLiteral("5"));
    rs.movePrevious();
    EXPECT_EQ(rs.field(QStringLiteral("CODE")), QStringLiteral("A"));
    rs.moveNext();
    rs.moveNext();
    EXPECT_TRUE(rs.eof());
    EXPECT_THROW(rs.field(QStringLiteral("CODE")), DbError);
}

TEST_F(Statements, blankTextReachesNeitherServerNorTrace) {
    RecordSet rs;
    qint64 n = 0;
    EXPECT_FALSE(gfbSqlSelectDB(QStringLiteral("   "), rs, n));
    EXPECT_FALSE(gfbSqlExecuteDB(QStringLiteral("")));
    ASSERT_EQ(presenter->boxes.size(), 2);
    EXPECT_EQ(presenter->boxes[0].text, QStringLiteral("입력을 취소 하시겠습니까?"));
    EXPECT_EQ(presenter->boxes[1].text, QStringLiteral("SQL문을 실행할 수 없습니다."));
    EXPECT_EQ(traces(), 0);
}

TEST_F(Statements, executeTracesFirstWithBackQuotesAndStoresTextAsTyped) {
    const QString typed = QStringLiteral("O'Brien'); DROP TABLE ITEMS; --");
    qint64 affected = 0;
    ASSERT_TRUE(gfbSqlExecuteDB(QStringLiteral("INSERT INTO ITEMS VALUES ('X', ") + quoted(typed) +
                                    QStringLiteral(", 1)"),
                                affected));
    EXPECT_EQ(affected, 1);
    EXPECT_EQ(scalar(QStringLiteral("SELECT NAME FROM ITEMS WHERE CODE = 'X'")), typed);
    const QString trace = scalarUpdate(QStringLiteral("SELECT SQLTEXT FROM SQLTEXT"));
    EXPECT_TRUE(trace.contains(QStringLiteral("`O``Brien``); DROP TABLE ITEMS; --`")))
        << trace.toStdString();
    EXPECT_FALSE(trace.contains(QLatin1Char('\'')));
    EXPECT_EQ(scalarUpdate(QStringLiteral("SELECT LENGTH(REGDTTM) FROM SQLTEXT")),
              QStringLiteral("19"));
}

TEST_F(Statements, failingStatementIsTracedShownAndLogged) {
    EXPECT_FALSE(gfbSqlExecuteDB(QStringLiteral("INSERT INTO NO_SUCH_TABLE VALUES ('it''s')")));
    EXPECT_EQ(traces(), 2); // the failing statement, then the C_ERROR insert
    ASSERT_EQ(presenter->boxes.size(), 1);
    EXPECT_EQ(presenter->boxes[0].title, QStringLiteral("경  고"));
    EXPECT_TRUE(presenter->boxes[0].text.contains(QStringLiteral("NO_SUCH_TABLE")));
    EXPECT_EQ(scalar(QStringLiteral("SELECT ERRPROG FROM C_ERROR")),
              QStringLiteral("basDatabase : gfbSqlExecuteDB"));
    EXPECT_EQ(scalar(QStringLiteral("SELECT ERROTHER FROM C_ERROR")),
              QStringLiteral("INSERT INTO NO_SUCH_TABLE VALUES (`it``s`) "));
    EXPECT_EQ(endedWith, -1);
}

TEST_F(Statements, rolledBackSaveLeavesTraceAndNoData) {
    {
        Transaction tx;
        ASSERT_TRUE(tx.ok());
        ASSERT_TRUE(gfbSqlExecuteDB(QStringLiteral("INSERT INTO ITEMS VALUES ('T', '하복', 1)")));
        ASSERT_TRUE(gfbSqlExecuteDB(QStringLiteral("INSERT INTO ITEMS VALUES ('U', '하복', 2)")));
        // leaving the scope without commit rolls back
    }
    EXPECT_EQ(count(QStringLiteral("ITEMS")), 0);
    EXPECT_EQ(traces(), 2);
    {
        Transaction tx;
        ASSERT_TRUE(gfbSqlExecuteDB(QStringLiteral("INSERT INTO ITEMS VALUES ('V', '하복', 1)")));
        EXPECT_TRUE(tx.commit());
    }
    EXPECT_EQ(count(QStringLiteral("ITEMS")), 1);
}

TEST_F(Statements, failureInsideATransactionKeepsItsLogRowAfterTheRollback) {
    {
        Transaction tx;
        ASSERT_TRUE(gfbSqlExecuteDB(QStringLiteral("INSERT INTO ITEMS VALUES ('T', '하복', 1)")));
        EXPECT_FALSE(gfbSqlExecuteDB(QStringLiteral("INSERT INTO NO_SUCH_TABLE VALUES (1)")));
    }
    EXPECT_EQ(count(QStringLiteral("ITEMS")), 0);
    EXPECT_EQ(count(QStringLiteral("C_ERROR"), QStringLiteral("ERROTHER LIKE '%NO_SUCH_TABLE%'")),
              1);
}

TEST_F(Statements, saveWorksWithoutTraceWhenUpdateDatabaseIsGone) {
    session().gDbUpdate.reset();
    session().config.update = dir.filePath(QStringLiteral("missing/update.db"));
    EXPECT_TRUE(gfbSqlExecuteDB(QStringLiteral("INSERT INTO ITEMS VALUES ('A', 'x', 1)")));
    EXPECT_EQ(count(QStringLiteral("ITEMS")), 1);
    EXPECT_TRUE(presenter->boxes.isEmpty());
}

TEST_F(Statements, unreachableDatabaseAnswersFalseWithoutMessage) {
    session().gDb.reset();
    session().config.torvix = dir.filePath(QStringLiteral("nowhere/torvix.db"));
    RecordSet rs;
    qint64 n = 0;
    EXPECT_FALSE(gfbSqlSelectDB(QStringLiteral("SELECT 1"), rs, n));
    EXPECT_FALSE(gfbSqlExecuteDB(QStringLiteral("DELETE FROM ITEMS")));
    EXPECT_TRUE(presenter->boxes.isEmpty());
    EXPECT_EQ(gfRdoGetDbSysDate(), QString());
}

TEST_F(Statements, statementPastTheTimeLimitFailsThroughTheTrap) {
    session().gDb->setStatementTimeout(1);
    RecordSet rs;
    qint64 n = 0;
    EXPECT_FALSE(gfbSqlSelectDB(
        QStringLiteral(
            "WITH RECURSIVE N(I) AS (SELECT 1 UNION ALL SELECT I + 1 FROM N) SELECT MAX(I) FROM N"),
        rs, n));
    ASSERT_EQ(presenter->boxes.size(), 1);
    EXPECT_TRUE(presenter->boxes[0].text.contains(QStringLiteral("timeout")))
        << presenter->boxes[0].text.toStdString();
    session().gDb->setStatementTimeout(90);
    EXPECT_TRUE(
        scalar(QStringLiteral("SELECT ERRMSG FROM C_ERROR")).contains(QStringLiteral("timeout")));
    EXPECT_EQ(scalar(QStringLiteral("SELECT ERRPROG FROM C_ERROR")),
              QStringLiteral("basDatabase : gfbSqlSelectDB"));
}

TEST_F(Statements, serverDateIsEightDigits) {
    EXPECT_EQ(gfRdoGetDbSysDate(), QDate::currentDate().toString(QStringLiteral("yyyyMMdd")));
}

TEST(RecordSetTest, emptySetAndNamesWithoutCase) {
    RecordSet empty(QStringList{QStringLiteral("Code")});
    EXPECT_TRUE(empty.eof());
    EXPECT_TRUE(empty.bof());
    EXPECT_EQ(empty.recordCount(), 0);
    EXPECT_THROW(empty.field(QStringLiteral("CODE")), DbError);

    RecordSet rs(QStringList{QStringLiteral("Code"), QStringLiteral("NAME")});
    rs.appendRow({QStringLiteral("01")}); // a short row reads its missing fields as ""
    EXPECT_EQ(rs.fieldIndex(QStringLiteral("code")), 0);
    EXPECT_EQ(rs.fieldIndex(QStringLiteral("nope")), -1);
    EXPECT_EQ(rs.field(QStringLiteral("CODE")), QStringLiteral("01"));
    EXPECT_EQ(rs.field(QStringLiteral("name")), QString());
    EXPECT_THROW(rs.field(QStringLiteral("NOPE")), DbError);
}
