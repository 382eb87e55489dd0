// The demo chain's stock looks like a shop's: goods arrive before they are sold, so the stock
// report of every store stands at or above zero but for the few lines whose goods are on order.
#include "data/database.h"
#include "data/demo/demochain.h"
#include "data/dialect.h"
#include "data/recordset.h"
#include "data/session.h"
#include "screens/stock/stockstatement.h"
#include "support/testdb.h"

using namespace Qt::StringLiterals;

namespace {

class DemoStock : public TestDb {
protected:
    struct Lines {
        qsizetype all = 0;
        QStringList negative; // "school/item/year"
    };

    // The stock report of one store over every model year.
    Lines report(const QString& store, const QString& brand) {
        StockFilter f;
        f.company = u"01"_s;
        f.store = store;
        f.brand = brand;
        f.yearFrom = scalar(u"SELECT MIN(BSYYYY) FROM VIW_BSYYYY"_s);
        f.yearTo = scalar(u"SELECT MAX(BSYYYY) FROM VIW_BSYYYY"_s);
        Database& db = *session().gDb;
        const RecordSet rs = db.select(stockStatement(f, StockReport::Split, db.dialect()));
        Lines out;
        out.all = rs.recordCount();
        const int c01 = rs.fieldIndex(u"C01QTY"_s);
        for (qsizetype row = 0; row < rs.recordCount(); ++row) {
            for (int size = 0; size < 24; ++size) {
                if (rs.at(row, c01 + size).toInt() < 0) {
                    out.negative << rs.at(row, rs.fieldIndex(u"SCHOOLNAME"_s)) + u'/' +
                                        rs.at(row, rs.fieldIndex(u"UNIFORMNAME"_s)) + u'/' +
                                        rs.at(row, rs.fieldIndex(u"BSYYYY"_s));
                    break;
                }
            }
        }
        return out;
    }

    // Every store's report: at least nine lines in ten at or above zero, and a line below zero
    // only where an order of the last week has not been booked in yet.
    void expectAShopsStock(const QDate& day) {
        generateDemoChain(*session().gDb, 4, 2, day);
        const RecordSet stores = session().gDb->select(
            u"SELECT STORECD, BRANDCD FROM C_STORE WHERE COMPANY = '01' ORDER BY STORECD"_s);
        ASSERT_GT(stores.recordCount(), 3);
        qsizetype all = 0;
        for (qsizetype row = 0; row < stores.recordCount(); ++row) {
            const QString store = stores.at(row, 0);
            const Lines lines = report(store, stores.at(row, 1));
            all += lines.all;
            EXPECT_GT(lines.all, 20) << qPrintable(store);
            EXPECT_LE(lines.negative.size() * 10, lines.all)
                << qPrintable(store) << ": " << qPrintable(lines.negative.join(u", "_s));
            for (const QString& line : lines.negative) {
                const QString item = line.section(u'/', 1, 1);
                const QString year = line.section(u'/', 2, 2);
                EXPECT_GT(count(u"T_ORDER O"_s,
                                uR"(O.STORECD = '%1' AND O.ORDYYYY = '%2' AND O.ORDERDT >= '%3'
                                    AND O.UNIFORMCD IN (SELECT RTRIM(SEASON) || RTRIM(DIVIDE) ||
                                        SUBSTR(RTRIM(UNIFORMSEQ) || '  ', 1, 2) ||
                                        RTRIM(UNIFORMCOMSEQ) FROM C_UNIFORM
                                        WHERE UNIFORMNAME = '%4')
                                    AND NOT EXISTS (SELECT 1 FROM T_INBOUND I
                                        WHERE I.STORECD = O.STORECD AND I.ORDERDT = O.ORDERDT
                                          AND I.ORDERSEQ = O.ORDERSEQ))"_s.arg(
                                    store, year, day.addDays(-9).toString(u"yyyyMMdd"_s), item)),
                          0)
                    << qPrintable(store) << " " << qPrintable(line);
            }
        }
        EXPECT_GT(all, 200);
    }
};

TEST_F(DemoStock, everyStoresReportStandsAboveZero_inSpringWhenTheSummerBuyIsOnOrder) {
    expectAShopsStock(QDate(2025, 3, 15));
}

TEST_F(DemoStock, everyStoresReportStandsAboveZero_inAutumnAfterTheWinterBuy) {
    expectAShopsStock(QDate(2025, 11, 20));
}

TEST_F(DemoStock, goodsArriveBeforeTheyAreSold_andTransfersAreBookedInWhereTheyGo) {
    const QDate day(2025, 3, 15);
    generateDemoChain(*session().gDb, 4, 2, day);
    // The first receipt of each store's goods comes before its first sale of them, unless the
    // goods were there as opening stock. The first receipts are gathered once and joined, so
    // that the check does not read the receipts again for every slip line.
    EXPECT_EQ(scalar(uR"(SELECT COUNT(*) FROM S_ORDERDETAIL OD
                          JOIN (SELECT STORECD, UNIFORMCD, INYYYY, MIN(INBOUNDDT) DAY
                                  FROM T_INBOUND GROUP BY STORECD, UNIFORMCD, INYYYY) I
                            ON I.STORECD = OD.STORECD AND I.UNIFORMCD = OD.UNIFORMCD
                           AND I.INYYYY = OD.YYYY
                          LEFT JOIN (SELECT DISTINCT STORECD, UNIFORMCD, YYYY
                                       FROM T_BASSTOCKQTY) B
                            ON B.STORECD = OD.STORECD AND B.UNIFORMCD = OD.UNIFORMCD
                           AND B.YYYY = OD.YYYY
                         WHERE OD.SIZE <> 'A/S' AND B.STORECD IS NULL AND OD.ORDDT < I.DAY)"_s),
              u"0"_s);
    // Each transfer out is a receipt without order at the receiving store, the same day.
    EXPECT_GT(count(u"T_OUTBOUND"_s, u"OUTBOUNDGB = 'M'"_s), 0);
    EXPECT_EQ(
        count(u"T_OUTBOUND O"_s, uR"(O.OUTBOUNDGB = 'M' AND NOT EXISTS (SELECT 1 FROM T_INBOUND I
                          WHERE I.STORECD = O.INBOUNDSTORE AND I.OUTBOUNDSTORE = O.STORECD
                            AND I.INBOUNDDT = O.OUTBOUNDDT AND I.UNIFORMCD = O.UNIFORMCD
                            AND I.INBOUNDGB = 'B'))"_s),
        0);
    // Nothing is received before it was ordered.
    EXPECT_EQ(count(u"T_INBOUND"_s, u"INBOUNDGB = 'A' AND INBOUNDDT < ORDERDT"_s), 0);
}

} // namespace
