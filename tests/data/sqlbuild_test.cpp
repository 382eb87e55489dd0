// The statements of the record screens: keys and sequences computed in the statement, inserts
// and updates with the table's audit columns.
#include "testdb.h"

#include "data/dbroutines.h"
#include "data/dialect.h"
#include "data/sqlbuild.h"

using namespace Qt::StringLiterals;

class SqlBuild : public TestDb {};

TEST_F(SqlBuild, nextCodeIsTheHighestPlusOnePaddedAndNullWhenItOutgrowsTheWidth) {
    const QString next =
        u"SELECT "_s + nextCodeByMax(u"C_STORE"_s, u"STORECD"_s, 2, whereCompany());
    EXPECT_EQ(scalar(next), u"01"_s);
    exec(
        u"INSERT INTO C_STORE (COMPANY, STORECD) VALUES ('01', '01'), ('01', '07'), ('02', '50')"_s);
    EXPECT_EQ(scalar(next), u"08"_s); // gaps are not filled, other companies do not count
    exec(u"INSERT INTO C_STORE (COMPANY, STORECD) VALUES ('01', '99')"_s);
    EXPECT_EQ(scalar(u"SELECT COUNT(*) FROM (SELECT "_s +
                     nextCodeByMax(u"C_STORE"_s, u"STORECD"_s, 2, whereCompany()) +
                     u" K) WHERE K IS NULL"_s),
              u"1"_s);

    // By count: a deleted row makes the next key collide with one that exists.
    const QString byCount = u"SELECT "_s + nextCodeByCount(u"C_STORE"_s, 2, whereCompany());
    exec(u"DELETE FROM C_STORE WHERE STORECD = '99'"_s);
    EXPECT_EQ(scalar(byCount), u"03"_s);
}

TEST_F(SqlBuild, aSequenceStartsAtOneAndFollowsTheHighestOfItsScope) {
    const QString scope = whereCompany() + andEquals(u"STORECD"_s, u"01"_s);
    const QString next = u"SELECT "_s + nextSequence(u"C_STORE"_s, u"PRTPORT"_s, scope);
    EXPECT_EQ(scalar(next), u"1"_s);
    exec(
        u"INSERT INTO C_STORE (COMPANY, STORECD, PRTPORT) VALUES ('01', '01', 4), ('01', '02', 9)"_s);
    EXPECT_EQ(scalar(next), u"5"_s);
}

TEST_F(SqlBuild, insertAndUpdateTakeTheAuditColumnsTheSchemaDeclares) {
    const Assignments values{
        {u"COMPANY"_s, u"'01'"_s}, {u"BRANDCD"_s, u"'05'"_s}, {u"BRANDNAME"_s, u"'O''Neil'"_s}};
    exec(sqlInsert(u"C_BRAND"_s, values + auditOnInsert(u"C_BRAND"_s)));
    EXPECT_EQ(scalar(u"SELECT BRANDNAME || REGUSER || UPDUSER || LENGTH(REGDT) FROM C_BRAND"_s),
              u"O'Neiltestertester23"_s);
    const Assignments rename{{u"BRANDNAME"_s, u"'새 이름'"_s}};
    exec(sqlUpdate(u"C_BRAND"_s, rename + auditOnUpdate(u"C_BRAND"_s),
                   whereCompany() + andEquals(u"BRANDCD"_s, u"05"_s)));
    EXPECT_EQ(scalar(u"SELECT BRANDNAME FROM C_BRAND"_s), u"새 이름"_s);
    EXPECT_TRUE(auditOnInsert(u"C_BRANDSIZE"_s).isEmpty()); // a table without them
    EXPECT_EQ(auditOnUpdate(u"C_BRAND"_s).size(), 2);
}

TEST_F(SqlBuild, theServerSpellingIsTheOneTheStoreAndBrandKeysAreKnownBy) {
    const Dialect server(Dialect::Engine::SqlServer);
    const ScopedDialect spelling(server);
    EXPECT_EQ(nextCodeByMax(u"C_STORE"_s, u"STORECD"_s, 2, whereCompany()).simplified(),
              u"(SELECT RTRIM(REPLICATE('0', 2 - LEN(ISNULL(MAX(STORECD),0)+1)) + "
              "CAST(ISNULL(MAX(STORECD),0)+1 AS CHAR)) FROM C_STORE WITH(NOLOCK) WHERE COMPANY = "
              "'01')"_s);
    EXPECT_EQ(nextCodeByCount(u"C_BRAND"_s, 2, whereCompany()).simplified(),
              u"(SELECT RTRIM(REPLICATE('0', 2 - LEN(COUNT(*)+1)) + CAST(COUNT(*)+1 AS CHAR)) "
              "FROM C_BRAND WITH(NOLOCK) WHERE COMPANY = '01')"_s);
    EXPECT_EQ(nextSequence(u"T_ORDER"_s, u"ORDERSEQ"_s, whereCompany()).simplified(),
              u"(SELECT CASE WHEN COUNT(ORDERSEQ) = 0 THEN 1 ELSE MAX(ORDERSEQ) + 1 END FROM "
              "T_ORDER WITH(NOLOCK) WHERE COMPANY = '01')"_s);
}
