#include "data/database.h"
#include "data/dialect.h"
#include "data/recordset.h"
#include "data/schema/stockqty.h"
#include "data/schema/storefunctions.h"
#include "data/schema/views.h"
#include "data/session.h"
#include "data/sqlitedatabase.h"
#include "support/testdb.h"

#include <QRegularExpression>

#include <algorithm>

namespace {

class ViewsTest : public TestDb {
protected:
    void SetUp() override {
        TestDb::SetUp();
        loadFixture(QStringLiteral("views_small.sql"));
    }

    // The labels of one row of VIW_SCHUNIFOMSIZE, "SIZETAB:C01,C02,C03".
    QString labels(const QString& school, const QString& cd, const QString& year) {
        return scalar(
            QStringLiteral("SELECT SIZETAB || ':' || C01 || ',' || C02 || ',' || C03 "
                           "FROM VIW_SCHUNIFOMSIZE WHERE STORECD = '01' AND SCHOOLCD = '%1' "
                           "AND CD = '%2' AND BSYYYY = '%3'")
                .arg(school, cd, year));
    }
    QString stock(const QString& school, const QString& cd, const QString& year,
                  const QString& columns = QStringLiteral("C01 || ',' || C02 || ',' || C03")) {
        return scalar(QStringLiteral("SELECT %4 FROM VIW_STOCKQTY_TEMP WHERE COMPANY = '01' AND "
                                     "STORECD = '01' AND SCHOOLCD = '%1' AND UNIFORMCD = '%2' AND "
                                     "YYYY = '%3'")
                          .arg(school, cd, year, columns));
    }
};

TEST_F(ViewsTest, modelYearsRunFromFirstLabelYearToYearAfterCurrent_eachOnce) {
    EXPECT_EQ(count(QStringLiteral("VIW_BSYYYY")), 6);
    EXPECT_EQ(scalar(QStringLiteral("SELECT MIN(BSYYYY) || '-' || MAX(BSYYYY) FROM VIW_BSYYYY")),
              QStringLiteral("2020-2025"));
    EXPECT_EQ(scalar(QStringLiteral("SELECT COUNT(DISTINCT BSYYYY) FROM VIW_BSYYYY")),
              QStringLiteral("6"));
    // Text, so that it compares with the text year columns.
    EXPECT_EQ(
        count(QStringLiteral("VIW_BSYYYY"), QStringLiteral("BSYYYY BETWEEN '2022' AND '2024'")), 3);
}

TEST_F(ViewsTest, modelYearsSpanMoreThanACenturyWithoutRecursion) {
    // An old label year stretches the list past the server's default recursion limit of 100,
    // which a view cannot lift: the list is counted, not recursed.
    exec(QStringLiteral("INSERT INTO C_BRANDSIZE (COMPANY, BRANDCD, YYYY, TEENSCOPE, SIZETAB) "
                        "VALUES ('01', '09', '1890', 'H', 'X'), ('01', '09', '19x0', 'H', 'X')"));
    EXPECT_EQ(count(QStringLiteral("VIW_BSYYYY")), 2025 - 1890 + 1);
    EXPECT_EQ(scalar(QStringLiteral("SELECT COUNT(DISTINCT BSYYYY) || ' ' || MIN(BSYYYY) || '-' || "
                                    "MAX(BSYYYY) FROM VIW_BSYYYY")),
              QStringLiteral("136 1890-2025"));
    for (const ViewDef& view : schemaViews()) {
        EXPECT_FALSE(view.sqliteBody.contains(QStringLiteral("RECURSIVE")))
            << qPrintable(view.name);
    }
    // No common table expression of the server's text reads itself.
    const QString server = viewDdl(
        *std::find_if(schemaViews().begin(), schemaViews().end(),
                      [](const ViewDef& v) { return v.name == QLatin1String("VIW_BSYYYY"); }),
        true);
    static const QRegularExpression cte(
        QStringLiteral(R"((\w+) \([\w, ]+\) AS \(((?:[^()]|\((?:[^()]|\([^()]*\))*\))*)\))"));
    int ctes = 0;
    for (auto it = cte.globalMatch(server); it.hasNext(); ++ctes) {
        const auto match = it.next();
        EXPECT_FALSE(match.captured(2).contains(match.captured(1)))
            << qPrintable(match.captured(1));
    }
    EXPECT_EQ(ctes, 2);
}

TEST_F(ViewsTest, schoolItemSizes_oneRowPerStoreSchoolItemYear_withLabelsInForce) {
    // School 001: jacket and common shirt; school 002: the same (its own shirt is stopped);
    // six model years each.
    EXPECT_EQ(count(QStringLiteral("VIW_SCHUNIFOMSIZE")), 2 * 2 * 6);
    EXPECT_EQ(scalar(QStringLiteral("SELECT COUNT(*) FROM (SELECT DISTINCT STORECD, SCHOOLCD, CD, "
                                    "BSYYYY FROM VIW_SCHUNIFOMSIZE)")),
              QStringLiteral("24"));
    EXPECT_EQ(labels(QStringLiteral("001"), QStringLiteral("NB01"), QStringLiteral("2022")),
              QStringLiteral("X:90,95,100"));
    EXPECT_EQ(labels(QStringLiteral("001"), QStringLiteral("NB01"), QStringLiteral("2023")),
              QStringLiteral("X:95,100,105"));
    EXPECT_EQ(labels(QStringLiteral("001"), QStringLiteral("NB01"), QStringLiteral("2025")),
              QStringLiteral("X:95,100,105"));
    // Kids read the small range, whose only label year is 2020.
    EXPECT_EQ(labels(QStringLiteral("002"), QStringLiteral("NB01"), QStringLiteral("2024")),
              QStringLiteral("X:70,75,80"));
    EXPECT_EQ(labels(QStringLiteral("001"), QStringLiteral("NB0301"), QStringLiteral("2024")),
              QStringLiteral("J:85,90,95"));
    EXPECT_EQ(count(QStringLiteral("VIW_SCHUNIFOMSIZE"), QStringLiteral("CD = 'NB03'")), 0);
    EXPECT_EQ(count(QStringLiteral("VIW_SCHUNIFOMSIZE"), QStringLiteral("SUDIVIDE <> '1'")), 0);
    EXPECT_EQ(count(QStringLiteral("VIW_SCHUNIFOMSIZE2")),
              count(QStringLiteral("VIW_SCHUNIFOMSIZE")));

    // A store that stops serving a school drops its rows.
    exec(QStringLiteral("UPDATE C_STORESCHOOL SET USEYN = 'N' WHERE SCHOOLCD = '002'"));
    EXPECT_EQ(count(QStringLiteral("VIW_SCHUNIFOMSIZE")), 2 * 6);
}

TEST_F(ViewsTest, receiptsAreSummedPerOrderLine_receiptsWithoutOrderLeftOut) {
    exec(QStringLiteral(
        "INSERT INTO T_INBOUND (COMPANY, STORECD, INBOUNDDT, INBOUNDSEQ, SCHOOLCD, SUDIVIDE, "
        "UNIFORMCD, INYYYY, I01, I02, ORDERDT, ORDERSEQ, OUTBOUNDSTORE, INBOUNDGB) VALUES "
        "('01', '01', '20240210', 1, '001', '1', 'NB01', '2024', 3, 1, '20240201', 1, '본사', 'A'),"
        "('01', '01', '20240215', 1, '001', '1', 'NB01', '2024', 2, NULL, '20240201', 1, '본사', "
        "'A'),"
        "('01', '01', '20240215', 2, '001', '1', 'NB01', '2024', 4, 4, '20240201', 2, '본사', 'A'),"
        "('01', '01', '20240216', 1, '001', '1', 'NB01', '2024', 9, 9, '', 0, '02', 'B')"));
    EXPECT_EQ(count(QStringLiteral("VIW_T_INBOUND")), 2);
    EXPECT_EQ(scalar(QStringLiteral("SELECT I01 || ',' || I02 || ',' || I03 FROM VIW_T_INBOUND "
                                    "WHERE ORDERDT = '20240201' AND ORDERSEQ = 1")),
              QStringLiteral("5,1,0"));
}

TEST_F(ViewsTest, stockOfALine_followsTheStockReportsArithmetic) {
    // Opening 5 at size 95, received twice 1: the opening stock counts once per receipt row.
    exec(QStringLiteral(
        "INSERT INTO T_BASSTOCKQTY (COMPANY, STORECD, SCHOOLCD, UNIFORMCD, YYYY, SIZETAB, "
        "SUDIVIDE, C01, C02) "
        "VALUES ('01', '01', '001', 'NB01', '2022', 'X', '1', 2, 5);"
        "INSERT INTO T_INBOUND (COMPANY, STORECD, INBOUNDDT, INBOUNDSEQ, SCHOOLCD, SUDIVIDE, "
        "UNIFORMCD, INYYYY, I02, INBOUNDGB) VALUES "
        "('01', '01', '20240210', 1, '001', '1', 'NB01', '2022', 1, 'B'),"
        "('01', '01', '20240211', 1, '001', '1', 'NB01', '2022', 1, 'B')"));
    EXPECT_EQ(stock(QStringLiteral("001"), QStringLiteral("NB01"), QStringLiteral("2022")),
              QStringLiteral("4,12,0"));

    // Two equal ordinary outbound rows on two days go out once; corrections count each.
    exec(QStringLiteral(
        "INSERT INTO T_OUTBOUND (COMPANY, STORECD, OUTBOUNDDT, OUTBOUNDSEQ, SCHOOLCD, SUDIVIDE, "
        "UNIFORMCD, OUTYYYY, O01, O02, INBOUNDSTORE, OUTBOUNDGB) VALUES "
        "('01', '01', '20240301', 1, '001', '1', 'NB01', '2022', 1, 0, '02', 'M'),"
        "('01', '01', '20240302', 1, '001', '1', 'NB01', '2022', 1, 0, '02', 'M'),"
        "('01', '01', '20240303', 1, '001', '1', 'NB01', '2022', 0, -1, '', 'D'),"
        "('01', '01', '20240304', 1, '001', '1', 'NB01', '2022', 0, -1, '', 'D')"));
    EXPECT_EQ(stock(QStringLiteral("001"), QStringLiteral("NB01"), QStringLiteral("2022")),
              QStringLiteral("3,14,0"));

    // Completed sales go out, less pieces reserved and not yet secured; open, unbilled and
    // cancelled slips and unknown sizes do not count.
    exec(QStringLiteral(
        "INSERT INTO S_ORDERHEAD (COMPANY, STORECD, SCHOOLCD, ORDDT, ORDSEQ, BILLNO, STATNM, "
        "CANCELDT) VALUES "
        "('01', '01', '001', '20240305', '0001', '001A0001', '완료', NULL),"
        "('01', '01', '001', '20240305', '0002', NULL, '보류', NULL),"
        "('01', '01', '001', '20240305', '0003', '001A0003', '완료', '2024-03-06 10:00:00.000');"
        "INSERT INTO S_ORDERDETAIL (COMPANY, STORECD, SCHOOLCD, ORDDT, ORDSEQ, PKEY, UNIFORMCD, "
        "YYYY, SEASON, SIZETAB, SIZE, CNT, AMT) VALUES "
        "('01', '01', '001', '20240305', '0001', 'NB01  2N01', 'NB01', '2022', 'N', 'X', '95', 3, "
        "1),"
        "('01', '01', '001', '20240305', '0001', 'NB01  2N02', 'NB01', '2022', 'N', 'X', '999', 1, "
        "1),"
        "('01', '01', '001', '20240305', '0002', 'NB01  2N01', 'NB01', '2022', 'N', 'X', '95', 5, "
        "1),"
        "('01', '01', '001', '20240305', '0003', 'NB01  2N01', 'NB01', '2022', 'N', 'X', '95', 5, "
        "1);"
        "INSERT INTO S_REPAIRDETAIL (COMPANY, STORECD, ORDDT, ORDSEQ, PKEY, RESEQ, RESERVEDT, "
        "USEYN) VALUES "
        "('01', '01', '20240305', '0001', 'NB01  2N01', 1, '●', 'Y'),"
        "('01', '01', '20240305', '0001', 'NB01  2N01', 2, '20240310', 'Y')"));
    EXPECT_EQ(stock(QStringLiteral("001"), QStringLiteral("NB01"), QStringLiteral("2022")),
              QStringLiteral("3,12,0"));
}

TEST_F(ViewsTest, commonItemSales_gatherUnderTheGreatestSchoolOfferingIt) {
    exec(QStringLiteral("INSERT INTO S_ORDERHEAD (COMPANY, STORECD, SCHOOLCD, ORDDT, ORDSEQ, "
                        "BILLNO, STATNM) VALUES "
                        "('01', '01', '001', '20240305', '0001', '001A0001', '완료');"
                        "INSERT INTO S_ORDERDETAIL (COMPANY, STORECD, SCHOOLCD, ORDDT, ORDSEQ, "
                        "PKEY, UNIFORMCD, YYYY, SEASON, SIZETAB, SIZE, CNT, AMT) VALUES "
                        "('01', '01', '001', '20240305', '0001', 'NB03014N01', 'NB0301', '2024', "
                        "'N', 'J', '90', 2, 1)"));
    // Sold at school 001, booked to 002: the Kids school reads other labels, so the size
    // 90 finds no position there and nothing is taken from 001 either.
    EXPECT_EQ(stock(QStringLiteral("001"), QStringLiteral("NB0301"), QStringLiteral("2024"),
                    QStringLiteral("C01 + C02 + C03")),
              QStringLiteral("0"));
    exec(QStringLiteral("UPDATE S_ORDERDETAIL SET SIZE = '70'"));
    EXPECT_EQ(stock(QStringLiteral("002"), QStringLiteral("NB0301"), QStringLiteral("2024")),
              QStringLiteral("0,-2,0"));
}

TEST_F(ViewsTest, storeFunctions_readTheStoreThroughTheDboSpelling) {
    auto* db = dynamic_cast<SqliteDatabase*>(session().gDb.get());
    ASSERT_NE(db, nullptr);
    registerStoreFunctions(db->handle());
    EXPECT_EQ(scalar(QStringLiteral("SELECT DBO.FN_STOREFULLNAME('01', '01')")),
              QStringLiteral("청운교복 강남점"));
    EXPECT_EQ(scalar(QStringLiteral("SELECT dbo.FN_STOREADDRES('01', '01')")),
              QStringLiteral("서울특별시 강남구 학교로 12"));
    EXPECT_EQ(scalar(QStringLiteral("SELECT DBO.FN_STORETEL('01', '01')")),
              QStringLiteral("02-555-1234"));
    EXPECT_EQ(scalar(QStringLiteral("SELECT IFNULL(DBO.FN_STORETEL('01', '99'), 'none')")),
              QStringLiteral("none"));
    // As a transfer writes them: copies of the receiver's data at the time.
    exec(QStringLiteral("INSERT INTO T_OUTBOUND (COMPANY, STORECD, OUTBOUNDDT, OUTBOUNDSEQ, "
                        "INBOUNDSTORE, OUTBOUNDGB, "
                        "INSTOREFULLNAME, INSTORETEL) SELECT '01', '02', '20240301', 1, '01', 'M', "
                        "DBO.FN_STOREFULLNAME('01', '01'), DBO.FN_STORETEL('01', '01')"));
    EXPECT_EQ(scalar(QStringLiteral("SELECT INSTOREFULLNAME FROM T_OUTBOUND")),
              QStringLiteral("청운교복 강남점"));
}

// Two stores selling the same lines over four model years: one store's stock read through its
// own scoped select is, row for row and figure for figure, what the whole view holds for it.
class StoreStockTest : public ViewsTest {
protected:
    void SetUp() override {
        ViewsTest::SetUp();
        loadFixture(QStringLiteral("stock_history.sql"));
    }
    // Every row of a select, "field|field|..." in key order.
    QStringList rows(const QString& select) {
        Database& db = *session().gDb;
        const RecordSet rs = db.select(QStringLiteral("SELECT * FROM (") + select +
                                       QStringLiteral(") R ORDER BY COMPANY, STORECD, SCHOOLCD, "
                                                      "SUDIVIDE, YYYY, UNIFORMCD"));
        QStringList out;
        for (qsizetype row = 0; row < rs.recordCount(); ++row) {
            QStringList fields;
            for (int field = 0; field < rs.fieldCount(); ++field) {
                fields << rs.at(row, field);
            }
            out << fields.join(QLatin1Char('|'));
        }
        return out;
    }
    QStringList scoped(const StockQtyScope& scope) {
        return rows(stockQtySelect(session().gDb->dialect(), scope));
    }
    QStringList fromView(const QString& where) {
        return rows(QStringLiteral("SELECT * FROM VIW_STOCKQTY_TEMP WHERE ") + where);
    }
};

TEST_F(StoreStockTest, aStoresScopedStock_isTheViewsRowsForThatStore) {
    const QStringList gangnam = scoped({QStringLiteral("01"), QStringLiteral("01"), QString()});
    const QStringList seocho = scoped({QStringLiteral("01"), QStringLiteral("03"), QString()});
    // Two schools, two items, six model years each.
    ASSERT_EQ(gangnam.size(), 24);
    EXPECT_EQ(gangnam, fromView(QStringLiteral("COMPANY = '01' AND STORECD = '01'")));
    EXPECT_EQ(seocho, fromView(QStringLiteral("COMPANY = '01' AND STORECD = '03'")));
    EXPECT_EQ(scoped({QStringLiteral("01"), QStringLiteral("03"), QStringLiteral("2023")}),
              fromView(QStringLiteral("COMPANY = '01' AND STORECD = '03' AND YYYY = '2023'")));
    EXPECT_EQ(scoped({QStringLiteral("01"), QString(), QString()}).size(),
              count(QStringLiteral("VIW_STOCKQTY_TEMP")));
    EXPECT_TRUE(scoped({QStringLiteral("02"), QStringLiteral("01"), QString()}).isEmpty());

    // Figures counted by hand, so that view and scoped select cannot agree on a wrong sum.
    // 서초점's 2023 jacket: opening 6 at 100; 4 sold at 95, one of them reserved and unsecured.
    EXPECT_TRUE(seocho.contains(QStringLiteral("01|03|001|1|2023|NB01|-3|6|0|") +
                                QStringLiteral("0|").repeated(20) + QStringLiteral("0")));
    // 강남점's 2022 jacket: opening (2, 5) twice for two receipt rows, 1 + 1 received at 95, two
    // equal transfers of 1 at 90 counted once, 3 sold at 95 less one unsecured reservation;
    // none of 서초점's sales of the same line.
    EXPECT_TRUE(gangnam.contains(QStringLiteral("01|01|001|1|2022|NB01|3|10|0|") +
                                 QStringLiteral("0|").repeated(20) + QStringLiteral("0")));
    // The common shirt sold at 한빛중 belongs to 한빛초, whose Kids labels have no 90.
    EXPECT_TRUE(gangnam.contains(QStringLiteral("01|01|001|1|2024|NB0301|-1|2|0|") +
                                 QStringLiteral("0|").repeated(20) + QStringLiteral("0")));
}

TEST_F(StoreStockTest, theScopedSelectIsPlainTsqlOnTheServer) {
    const QString server = stockQtySelect(Dialect(Dialect::Engine::SqlServer),
                                          {QStringLiteral("01"), QStringLiteral("03"),
                                           QStringLiteral("2024")});
    for (const char* sqliteOnly : {"||", "IFNULL", "SUBSTR(", "LENGTH(", "WITH "}) {
        EXPECT_FALSE(server.contains(QString::fromLatin1(sqliteOnly))) << sqliteOnly;
    }
    EXPECT_TRUE(server.contains(QStringLiteral("CONVERT(CHAR(2), RTRIM(UF.UNIFORMSEQ))")));
    // The store stands in each leg: titles (twice), slips and outbound rows.
    EXPECT_EQ(server.count(QStringLiteral(".STORECD = '03'")), 4);
    EXPECT_EQ(server.count(QStringLiteral("'2024'")), 4);
}

} // namespace
