// One statement text, two engines: each helper runs on SQLite and spells the SQL Server text.
#include "testdb.h"

#include "data/dialect.h"
#include "data/sqlitefunctions.h"
#include "data/sqlvalue.h"

namespace {
const Dialect server(Dialect::Engine::SqlServer);
const Dialect lite(Dialect::Engine::Sqlite);
} // namespace

class DialectTest : public TestDb {
protected:
    QString eval(const QString& expr) { return scalar(QStringLiteral("SELECT ") + expr); }
};

TEST_F(DialectTest, concatenationPropagatesNull) {
    EXPECT_EQ(server.cat({QStringLiteral("'('"), QStringLiteral("FORMNO"), QStringLiteral("')'")}),
              QStringLiteral("'(' + FORMNO + ')'"));
    EXPECT_EQ(
        eval(lite.cat({QStringLiteral("'('"), QStringLiteral("'105'"), QStringLiteral("')'")})),
        QStringLiteral("(105)"));
    EXPECT_EQ(scalar(QStringLiteral("SELECT ") +
                     lite.cat({QStringLiteral("'a'"), QStringLiteral("NULL")}) +
                     QStringLiteral(" IS NULL")),
              QStringLiteral("1"));
}

TEST_F(DialectTest, convertsToCharPadToTheirWidth) {
    EXPECT_EQ(server.toChar(QStringLiteral("X"), 2), QStringLiteral("CONVERT(CHAR(2), X)"));
    EXPECT_EQ(server.toChar(QStringLiteral("X")), QStringLiteral("CONVERT(CHAR, X)"));
    EXPECT_EQ(eval(lite.toChar(QStringLiteral("'1'"), 2)), QStringLiteral("1 "));
    EXPECT_EQ(eval(lite.toChar(QStringLiteral("'123'"), 2)), QStringLiteral("12"));
    EXPECT_EQ(eval(lite.toChar(QStringLiteral("5"))).size(), 30);
}

TEST_F(DialectTest, datesAsText) {
    EXPECT_EQ(server.ymd(QStringLiteral("GETDATE()")),
              QStringLiteral("CONVERT(CHAR(8), GETDATE(), 112)"));
    EXPECT_EQ(server.iso(QStringLiteral("D")), QStringLiteral("CONVERT(VARCHAR, D, 120)"));
    EXPECT_EQ(eval(lite.ymd(QStringLiteral("'2026-03-01 10:11:12.123'"))),
              QStringLiteral("20260301"));
    EXPECT_EQ(eval(lite.iso(QStringLiteral("'2026-03-01 10:11:12.123'"))),
              QStringLiteral("2026-03-01 10:11:12"));
    EXPECT_EQ(eval(lite.addDaysYmd(QStringLiteral("'20260228'"), QStringLiteral("1"))),
              QStringLiteral("20260301"));
    EXPECT_EQ(server.addDaysYmd(QStringLiteral("D"), QStringLiteral("-1")),
              QStringLiteral("CONVERT(CHAR(8), DATEADD(DAY, -1, CONVERT(DATETIME, D)), 112)"));
}

TEST_F(DialectTest, tsqlFunctionsBehaveAsOnTheServer) {
    EXPECT_EQ(eval(QStringLiteral("LEN('ab  ')")), QStringLiteral("2"));
    EXPECT_EQ(eval(QStringLiteral("LEN('학교')")), QStringLiteral("2"));
    EXPECT_EQ(eval(QStringLiteral("REPLICATE('0', 3)")), QStringLiteral("000"));
    EXPECT_EQ(eval(QStringLiteral("REPLICATE('0', -1) IS NULL")), QStringLiteral("1"));
    EXPECT_EQ(eval(QStringLiteral("LEFT('서울중앙', 2)")), QStringLiteral("서울"));
    EXPECT_EQ(eval(QStringLiteral("RIGHT ('0' + '7', 2)")).isEmpty(), false);
    EXPECT_EQ(eval(QStringLiteral("RIGHT('2024', 2)")), QStringLiteral("24"));
    EXPECT_EQ(eval(QStringLiteral("ISNULL(NULL, 'x')")), QStringLiteral("x"));
    EXPECT_EQ(eval(QStringLiteral("YEAR('2024-05-01')")), QStringLiteral("2024"));
    EXPECT_EQ(eval(QStringLiteral("CHARINDEX('b', 'abc')")), QStringLiteral("2"));
    EXPECT_EQ(eval(QStringLiteral("DBO.LEN('abc')")), QStringLiteral("3"));
    EXPECT_EQ(eval(QStringLiteral("LENGTH(GETDATE())")), QStringLiteral("23"));
}

TEST_F(DialectTest, guardedInsertAddsOnceAndRowLimitsOnBothEngines) {
    exec(QStringLiteral("CREATE TABLE K (A TEXT COLLATE RTRIM, B INTEGER)"));
    const QString insert =
        lite.insertIfMissing(QStringLiteral("K"), QStringLiteral("A, B"), QStringLiteral("'x', 1"),
                             QStringLiteral("A = 'x'"));
    exec(insert);
    exec(insert);
    EXPECT_EQ(count(QStringLiteral("K")), 1);
    EXPECT_EQ(server.insertIfMissing(QStringLiteral("K"), QStringLiteral("A"),
                                     QStringLiteral("'x'"), QStringLiteral("A = 'x'")),
              QStringLiteral(
                  "INSERT INTO K (A) SELECT 'x' WHERE NOT EXISTS (SELECT 1 FROM K WHERE A = 'x')"));
    exec(QStringLiteral("INSERT INTO K VALUES ('y', 2), ('z', 3)"));
    EXPECT_EQ(scalar(QStringLiteral("SELECT") + lite.topPrefix(1) +
                     QStringLiteral("A FROM K ORDER BY B DESC") + lite.limitSuffix(1)),
              QStringLiteral("z"));
    EXPECT_EQ(server.topPrefix(1) + QStringLiteral("A") + server.limitSuffix(1),
              QStringLiteral(" TOP 1 A"));
    EXPECT_EQ(eval(lite.toInt(QStringLiteral("'0042'"))), QStringLiteral("42"));
    EXPECT_EQ(server.toInt(QStringLiteral("X")), QStringLiteral("CONVERT(INT, X)"));
    EXPECT_EQ(scalar(QStringLiteral("SELECT ") + lite.listAgg(QStringLiteral("A")) +
                     QStringLiteral(" FROM (SELECT A FROM K ORDER BY A)")),
              QStringLiteral("x,y,z"));
}

TEST_F(DialectTest, trailingBlanksAreIgnoredInComparisons) {
    exec(QStringLiteral("CREATE TABLE T (A TEXT COLLATE RTRIM); INSERT INTO T VALUES ('01  ')"));
    EXPECT_EQ(count(QStringLiteral("T"), QStringLiteral("A = '01'")), 1);
}

TEST(SqliteRewrite, leavesLiteralsAndCommentsAlone) {
    EXPECT_EQ(rewriteForSqlite(QStringLiteral("SELECT ISNULL(A,'') FROM T LEFT JOIN U ON 1=1")),
              QStringLiteral("SELECT IFNULL(A,'') FROM T LEFT JOIN U ON 1=1"));
    EXPECT_EQ(
        rewriteForSqlite(QStringLiteral("SELECT 'LEFT(' , \"RIGHT(\" -- ISNULL(\n, LEFT (X,1)")),
        QStringLiteral("SELECT 'LEFT(' , \"RIGHT(\" -- ISNULL(\n, TSQL_LEFT (X,1)"));
    EXPECT_EQ(rewriteForSqlite(QStringLiteral("/* it's LEFT( */ SELECT 'a''LEFT(b' , MYLEFT(1)")),
              QStringLiteral("/* it's LEFT( */ SELECT 'a''LEFT(b' , MYLEFT(1)"));
    EXPECT_EQ(rewriteForSqlite(QStringLiteral("SELECT dbo.FN_STORETEL('01') FROM dbo_t")),
              QStringLiteral("SELECT FN_STORETEL('01') FROM dbo_t"));
}

TEST(SqlValue, quotingDoublesApostrophesAndNumbersFallBackToZero) {
    EXPECT_EQ(quoted(QStringLiteral("O'Neil")), QStringLiteral("'O''Neil'"));
    EXPECT_EQ(quoted(QString()), QStringLiteral("''"));
    EXPECT_EQ(numeric(QStringLiteral("1,200")), QStringLiteral("1200"));
    EXPECT_EQ(numeric(QStringLiteral("1; DROP")), QStringLiteral("0"));
    EXPECT_EQ(numeric(QString()), QStringLiteral("0"));
}
