#include "data/database.h"
#include "data/demo/ddlscript.h"
#include "data/demo/demochain.h"
#include "data/recordset.h"
#include "data/schema/schema.h"
#include "data/session.h"
#include "data/sqlitedatabase.h"
#include "support/testdb.h"

#include <QCryptographicHash>
#include <QFile>

namespace {

const QDate kDay(2025, 3, 15);

class DemoTest : public TestDb {
protected:
    // A digest of every row of every main table, in key order.
    QByteArray digest(Database& db) {
        QCryptographicHash hash(QCryptographicHash::Sha256);
        for (const TableDef& table : schemaTables()) {
            if (table.database != QLatin1String("TORVIX")) {
                continue;
            }
            const RecordSet rs = db.select(QStringLiteral("SELECT * FROM ") + table.name +
                                           QStringLiteral(" ORDER BY ROWID"));
            hash.addData(table.name.toUtf8());
            for (qsizetype row = 0; row < rs.recordCount(); ++row) {
                for (int column = 0; column < rs.fieldCount(); ++column) {
                    hash.addData(rs.at(row, column).toUtf8());
                    hash.addData(QByteArrayView("\x1f"));
                }
            }
        }
        return hash.result();
    }

    QByteArray chainDigest(int seed) {
        SqliteDatabase db(dir.filePath(QStringLiteral("chain%1.db").arg(++m_chains)),
                          SqliteDatabase::OpenMode::CreateIfMissing);
        createSchema(db, QStringLiteral("TORVIX"));
        generateDemoChain(db, seed, 1, kDay);
        return digest(db);
    }

private:
    int m_chains = 0;
};

TEST_F(DemoTest, sameSeedGivesTheSameChain_anotherSeedAnother) {
    const QByteArray first = chainDigest(7);
    EXPECT_EQ(first, chainDigest(7));
    EXPECT_NE(first, chainDigest(8));
}

TEST_F(DemoTest, aFirstStartFindsNoChain_thenEveryTableAScreenReadsHasRows) {
    Database& db = *session().gDb;
    EXPECT_TRUE(demoChainMissing(db));
    generateDemoChain(db, 1, 1, kDay);
    EXPECT_FALSE(demoChainMissing(db));
    for (const TableDef& table : schemaTables()) {
        const bool filledElsewhere = table.database != QLatin1String("TORVIX") ||
                                     table.name.endsWith(QLatin1String("_DEL_BACK")) ||
                                     table.name.startsWith(QLatin1String("C_LOG")) ||
                                     table.name == QLatin1String("C_USERLOG") ||
                                     table.name == QLatin1String("C_ERROR");
        if (!filledElsewhere) {
            EXPECT_GT(count(table.name), 0) << qPrintable(table.name);
        }
    }
    for (const char* view : {"VIW_SCHUNIFOMSIZE", "VIW_T_INBOUND", "VIW_STOCKQTY_TEMP"}) {
        EXPECT_GT(count(QString::fromLatin1(view)), 0) << view;
    }
    // The user the program starts with sees the whole tree, three levels deep.
    EXPECT_EQ(scalar(QStringLiteral("SELECT USERNAME || '/' || USERAUT FROM C_USER WHERE COMPANY = "
                                    "'01' AND USERID = 'admin'")),
              QStringLiteral("관리자/S"));
    EXPECT_EQ(
        scalar(QStringLiteral("SELECT COUNT(DISTINCT GUBUN) FROM PROGLIST WHERE USEYN = 'Y'")),
        QStringLiteral("3"));
    EXPECT_EQ(count(QStringLiteral("PROGLIST"),
                    QStringLiteral("GUBUN = '3' AND PROGID = 'BAMAS' || FORMNO")),
              24);
    EXPECT_EQ(count(QStringLiteral("PROGLIST P"),
                    QStringLiteral("USEYN = 'Y' AND GUBUN <> '1' AND NOT EXISTS "
                                   "(SELECT 1 FROM PROGLIST U WHERE U.PROGID = P.UPPROGID)")),
              0);
    for (const char* code : {"'27', 'L'", "'27', 'H'", "'26', 'X'", "'26', 'J'", "'26', 'P'",
                             "'26', 'T'", "'29', 'B'", "'29', 'J'"}) {
        EXPECT_EQ(
            count(QStringLiteral("C_GONGTONG"),
                  QStringLiteral("(L_GRP_COD, S_GRP_COD) = (%1)").arg(QString::fromLatin1(code))),
            1)
            << code;
    }
}

TEST_F(DemoTest, slipsKeepTheTillsRules) {
    generateDemoChain(*session().gDb, 3, 1, kDay);
    // A billed slip is complete, and its bill number belongs to its store.
    EXPECT_EQ(count(QStringLiteral("S_ORDERHEAD"),
                    QStringLiteral("IFNULL(BILLNO, '') > '' AND (STATNM <> '완료' OR BILLNO NOT "
                                   "LIKE '0' || STORECD || 'A____')")),
              0);
    EXPECT_EQ(count(QStringLiteral("S_ORDERHEAD"),
                    QStringLiteral("STATNM = '완료' AND IFNULL(BILLNO, '') = ''")),
              0);
    // A piece is empty, "●" or a day.
    for (const char* column : {"RESERVEDT", "REPAIRDT", "DELIVERY"}) {
        EXPECT_EQ(count(QStringLiteral("S_REPAIRDETAIL"),
                        QStringLiteral(
                            "%1 NOT IN ('', '●') AND %1 NOT GLOB '20[0-9][0-9][01][0-9][0-3][0-9]'")
                            .arg(QString::fromLatin1(column))),
                  0)
            << column;
    }
    EXPECT_GT(count(QStringLiteral("S_REPAIRDETAIL"), QStringLiteral("RESERVEDT = '●'")), 0);
    EXPECT_GT(count(QStringLiteral("S_REPAIRDETAIL"), QStringLiteral("LENGTH(RESERVEDT) = 8")), 0);
    // Every piece hangs from a line, every line from a head, and a line's key holds its garment.
    EXPECT_EQ(
        count(QStringLiteral("S_REPAIRDETAIL RD"),
              QStringLiteral(
                  "NOT EXISTS (SELECT 1 FROM S_ORDERDETAIL OD WHERE OD.COMPANY = RD.COMPANY AND "
                  "OD.STORECD = RD.STORECD AND OD.ORDDT = RD.ORDDT AND OD.ORDSEQ = RD.ORDSEQ AND "
                  "OD.PKEY = RD.PKEY)")),
        0);
    EXPECT_EQ(count(QStringLiteral("S_ORDERDETAIL OD"),
                    QStringLiteral("NOT EXISTS (SELECT 1 FROM S_ORDERHEAD OH WHERE OH.COMPANY = "
                                   "OD.COMPANY AND OH.STORECD = OD.STORECD "
                                   "AND OH.SCHOOLCD = OD.SCHOOLCD AND OH.ORDDT = OD.ORDDT AND "
                                   "OH.ORDSEQ = OD.ORDSEQ)")),
              0);
    EXPECT_EQ(count(QStringLiteral("S_ORDERDETAIL"),
                    QStringLiteral("PKEY NOT LIKE SUBSTR(UNIFORMCD || '      ', 1, 6) || "
                                   "SUBSTR(YYYY, 4, 1) || SEASON || '__'")),
              0);
    // What a completed slip's payments add up to is what it asked for.
    EXPECT_EQ(
        count(
            QStringLiteral("S_ORDERHEAD OH"),
            QStringLiteral(
                "STATNM = '완료' AND CANCELDT IS NULL AND RECVAMT <> (SELECT IFNULL(SUM(APPAMT), "
                "0) FROM S_ADJUST AJ "
                "WHERE AJ.COMPANY = OH.COMPANY AND AJ.STORECD = OH.STORECD AND AJ.ORDDT = OH.ORDDT "
                "AND AJ.ORDSEQ = OH.ORDSEQ AND AJ.PAYNAME NOT LIKE '%취소')")),
        0);
    // Goods sold are goods the stock can see: each size is a label of its line.
    EXPECT_EQ(count(QStringLiteral("S_ORDERDETAIL OD"),
                    QStringLiteral("SIZE <> 'A/S' AND NOT EXISTS (SELECT 1 FROM VIW_SCHUNIFOMSIZE "
                                   "VS WHERE VS.COMPANY = OD.COMPANY "
                                   "AND VS.STORECD = OD.STORECD AND VS.SCHOOLCD = OD.SCHOOLCD AND "
                                   "VS.CD = OD.UNIFORMCD "
                                   "AND VS.BSYYYY = OD.YYYY AND OD.SIZE IN (VS.C01, VS.C02, "
                                   "VS.C03, VS.C04, VS.C05, VS.C06, "
                                   "VS.C07, VS.C08, VS.C09, VS.C10, VS.C11, VS.C12))")),
              0);
    // Joint-purchase pupils who bought carry the bill of a slip of their school.
    EXPECT_GT(count(QStringLiteral("C_G2B_Student"), QStringLiteral("BILLNO > ''")), 0);
    EXPECT_EQ(
        count(
            QStringLiteral("C_G2B_Student GS"),
            QStringLiteral(
                "BILLNO > '' AND NOT EXISTS (SELECT 1 FROM S_ORDERHEAD OH WHERE OH.BILLNO = "
                "GS.BILLNO "
                "AND OH.SCHOOLCD = GS.SCHOOLCD AND OH.G2BAMT > 0 AND OH.CUSTNAME = GS.STUDNAME)")),
        0);
}

TEST_F(DemoTest, exclusiveGroupsHaveTheirOwnNumbersAndTwoSchoolsOrMore) {
    generateDemoChain(*session().gDb, 2, 1, kDay);
    ASSERT_GT(count(QStringLiteral("C_TRANSUNIFORM")), 1);
    // One item a number: the school list of a number belongs to one item.
    EXPECT_EQ(scalar(QStringLiteral("SELECT COUNT(*) FROM (SELECT TRANSSEQ FROM C_TRANSUNIFORM "
                                    "GROUP BY COMPANY, TRANSCD, TRANSSEQ HAVING COUNT(*) > 1)")),
              QStringLiteral("0"));
    EXPECT_EQ(count(QStringLiteral("C_TRANSUNIFORM TU"),
                    QStringLiteral("(SELECT COUNT(*) FROM C_TRANSSCHOOL TS WHERE TS.COMPANY = "
                                   "TU.COMPANY AND TS.TRANSCD = TU.TRANSCD AND TS.TRANSSEQ = "
                                   "TU.TRANSSEQ) < 2")),
              0);
    // And each school of a group wears the item.
    EXPECT_EQ(count(QStringLiteral("C_TRANSSCHOOL TS"),
                    QStringLiteral(
                        "NOT EXISTS (SELECT 1 FROM C_TRANSUNIFORM TU, C_SCHOOLUNIFORM SU WHERE "
                        "TU.COMPANY = TS.COMPANY AND TU.TRANSSEQ = TS.TRANSSEQ AND SU.COMPANY = "
                        "TS.COMPANY AND SU.SCHOOLCD = TS.SCHOOLCD AND RTRIM(SU.SEASON) || "
                        "RTRIM(SU.DIVIDE) || RTRIM(SU.UNIFORMSEQ) || RTRIM(SU.UNIFORMCOMSEQ) = "
                        "TU.UNIFORMCD)")),
              0);
}

TEST_F(DemoTest, recentOrdersStandPartlyReceivedAndStoresSellAsTheirSizeGoes) {
    generateDemoChain(*session().gDb, 2, 1, kDay);
    // Order lines of the last three weeks with goods booked in and some still to come.
    const QString remainder = QStringLiteral(
        "O.ORDERDT >= '20250201' AND O.FINISHGB IN ('A', 'I') AND EXISTS (SELECT 1 FROM "
        "T_INBOUND I WHERE I.COMPANY = O.COMPANY AND I.STORECD = O.STORECD AND I.ORDERDT = "
        "O.ORDERDT AND I.ORDERSEQ = O.ORDERSEQ AND I.%1 < O.%2)");
    QStringList shortBySize;
    for (int size = 1; size <= 24; ++size) {
        const QString n = QStringLiteral("%1").arg(size, 2, 10, QLatin1Char('0'));
        shortBySize << remainder.arg(QStringLiteral("I") + n, QStringLiteral("O") + n);
    }
    const qint64 open = count(QStringLiteral("T_ORDER O"),
                              QStringLiteral("(") + shortBySize.join(QStringLiteral(") OR (")) +
                                  QStringLiteral(")"));
    EXPECT_GE(open, qint64(count(QStringLiteral("C_STORE")) * 3));
    // Slips by store differ: the busiest store sells well over the quietest.
    const qint64 most = scalar(QStringLiteral("SELECT MAX(N) FROM (SELECT COUNT(*) N FROM "
                                              "S_ORDERHEAD GROUP BY STORECD)"))
                            .toLongLong();
    const qint64 least = scalar(QStringLiteral("SELECT MIN(N) FROM (SELECT COUNT(*) N FROM "
                                               "S_ORDERHEAD GROUP BY STORECD)"))
                             .toLongLong();
    EXPECT_GT(most, least * 3 / 2);
}

TEST(DemoDdl, theServerScriptSaysWhatTheReadmeSaysAndReadsAsUtf8WithoutTheFlag) {
    const QByteArray file = serverDdlFile();
    // A byte-order mark: sqlcmd reads the file as UTF-8 even without "-f 65001".
    ASSERT_TRUE(file.startsWith("\xEF\xBB\xBF"));
    const QString script = QString::fromUtf8(file.mid(3));
    EXPECT_TRUE(script.contains(QStringLiteral("'완료'")));

    QFile readme(QStringLiteral(TORVIX_FIXTURES "/../../README.md"));
    ASSERT_TRUE(readme.open(QIODevice::ReadOnly | QIODevice::Text));
    QString command;
    for (const QString& line : QString::fromUtf8(readme.readAll()).split(QLatin1Char('\n'))) {
        if (line.startsWith(QStringLiteral("sqlcmd "))) {
            command = line.trimmed();
        }
    }
    ASSERT_TRUE(command.contains(QStringLiteral(" -f 65001 ")));
    // The header's command takes the README's options, server and user left to the DBA.
    const QString options = command.mid(command.indexOf(QStringLiteral(" -b ")));
    const QString header = script.section(QLatin1Char('\n'), 0, 5);
    EXPECT_TRUE(header.contains(QStringLiteral("sqlcmd -S <server> -U <user>") + options))
        << header.toStdString();
}

} // namespace
