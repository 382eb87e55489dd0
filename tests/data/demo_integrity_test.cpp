// The demo chain hangs together: every code a row carries names a row of its master, so that
// every screen's joins find what they join to.
#include "data/database.h"
#include "data/demo/demochain.h"
#include "data/schema/schema.h"
#include "data/session.h"
#include "data/sqlitedatabase.h"
#include "support/testdb.h"

namespace {

class DemoIntegrity : public TestDb {
protected:
    void SetUp() override {
        TestDb::SetUp();
        generateDemoChain(*session().gDb, 5, 1, QDate(2025, 3, 15));
    }
    // Rows of `child` whose code has no row in `parent`.
    qint64 orphans(const QString& child, const QString& parent, const QString& on) {
        return scalar(
                   QStringLiteral(
                       "SELECT COUNT(*) FROM %1 C WHERE NOT EXISTS (SELECT 1 FROM %2 P WHERE %3)")
                       .arg(child, parent, on))
            .toLongLong();
    }
};

TEST_F(DemoIntegrity, everyCodeNamesARowOfItsMaster) {
    const QString company = QStringLiteral("P.COMPANY = C.COMPANY AND ");
    EXPECT_EQ(orphans(QStringLiteral("C_STORE"), QStringLiteral("C_BRAND"),
                      company + QStringLiteral("P.BRANDCD = C.BRANDCD")),
              0);
    EXPECT_EQ(orphans(QStringLiteral("C_STORESCHOOL"), QStringLiteral("C_SCHOOL"),
                      company + QStringLiteral("P.SCHOOLCD = C.SCHOOLCD")),
              0);
    EXPECT_EQ(orphans(QStringLiteral("C_STORESCHOOL"), QStringLiteral("C_STORE"),
                      company + QStringLiteral("P.STORECD = C.STORECD")),
              0);
    EXPECT_EQ(
        orphans(
            QStringLiteral("C_SCHOOLUNIFORM"), QStringLiteral("C_UNIFORM"),
            company +
                QStringLiteral(
                    "P.SEASON = C.SEASON AND P.DIVIDE = C.DIVIDE AND P.UNIFORMSEQ = C.UNIFORMSEQ "
                    "AND P.UNIFORMCOMSEQ = C.UNIFORMCOMSEQ")),
        0);
    EXPECT_EQ(
        orphans(QStringLiteral("S_ORDERDETAIL"), QStringLiteral("S_ORDERHEAD"),
                company +
                    QStringLiteral(
                        "P.STORECD = C.STORECD AND P.SCHOOLCD = C.SCHOOLCD AND P.ORDDT = C.ORDDT "
                        "AND P.ORDSEQ = C.ORDSEQ")),
        0);
    EXPECT_EQ(orphans(QStringLiteral("S_ORDERHEAD"), QStringLiteral("C_STORE"),
                      company + QStringLiteral("P.STORECD = C.STORECD")),
              0);
    EXPECT_EQ(orphans(QStringLiteral("C_USER_AUTH"), QStringLiteral("PROGLIST"),
                      QStringLiteral("P.PROGID = C.PROGID")),
              0);
    EXPECT_EQ(orphans(QStringLiteral("C_STORE"), QStringLiteral("C_GONGTONG"),
                      QStringLiteral("P.L_GRP_COD = '03' AND P.S_GRP_COD = C.STOREGB")),
              0);
}

TEST_F(DemoIntegrity, everyStockLineHasASellableFrameAndEveryStoreItsSizeLabels) {
    // Opening stock that no store sells would never show in a report.
    EXPECT_EQ(scalar(QStringLiteral(
                  "SELECT COUNT(*) FROM T_BASSTOCKQTY B WHERE NOT EXISTS (SELECT 1 FROM "
                  "VIW_SCHUNIFOMSIZE V WHERE V.COMPANY = B.COMPANY AND V.STORECD = B.STORECD "
                  "AND V.SCHOOLCD = B.SCHOOLCD AND V.CD = B.UNIFORMCD AND V.BSYYYY = B.YYYY)")),
              QStringLiteral("0"));
    // Each store's brand has labels for every size table in its current year.
    EXPECT_EQ(scalar(QStringLiteral(
                  "SELECT COUNT(*) FROM C_STORE S, C_GONGTONG G WHERE G.L_GRP_COD = '26' AND NOT "
                  "EXISTS (SELECT 1 FROM C_BRANDSIZE B WHERE B.COMPANY = S.COMPANY AND B.BRANDCD = "
                  "S.BRANDCD AND B.SIZETAB = G.S_GRP_COD AND B.YYYY <= S.CURRYYYY)")),
              QStringLiteral("0"));
}

TEST_F(DemoIntegrity, theChainGrowsWithItsScale) {
    const qint64 one = count(QStringLiteral("S_ORDERDETAIL"));
    exec(QStringLiteral("DELETE FROM S_ORDERDETAIL"));
    SqliteDatabase bigger(dir.filePath(QStringLiteral("scale3.db")),
                          SqliteDatabase::OpenMode::CreateIfMissing);
    createSchema(bigger, QStringLiteral("TORVIX"));
    generateDemoChain(bigger, 5, 3, QDate(2025, 3, 15));
    const qint64 three =
        bigger.select(QStringLiteral("SELECT COUNT(*) FROM S_ORDERDETAIL")).at(0, 0).toLongLong();
    EXPECT_GT(three, 2 * one);
    EXPECT_LT(three, 4 * one);
}

} // namespace
