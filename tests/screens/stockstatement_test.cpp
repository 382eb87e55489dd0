// The stock report's figures on two stores that sell the same lines over four model years. The
// statement may be reshaped for speed; these lines may not move.
#include "testdb.h"

#include "data/database.h"
#include "data/recordset.h"
#include "data/session.h"
#include "screens/stock/stockstatement.h"

using namespace Qt::StringLiterals;

namespace {

class StockStatement : public TestDb {
protected:
    void SetUp() override {
        TestDb::SetUp();
        loadFixture(u"views_small.sql"_s);
        loadFixture(u"stock_history.sql"_s);
    }
    // The report's lines as "store|school|sex|item|year label|size table|C01|C02|C03|model
    // year|last correction"; the fixture uses three sizes only.
    QStringList report(const QString& store, const QString& from, const QString& to,
                       StockReport kind = StockReport::Split, const QString& school = QString()) {
        StockFilter f;
        f.company = u"01"_s;
        f.brand = u"01"_s;
        f.store = store;
        f.yearFrom = from;
        f.yearTo = to;
        f.school = school;
        Database& db = *session().gDb;
        const RecordSet rs = db.select(stockStatement(f, kind, db.dialect()));
        QStringList lines;
        for (qsizetype row = 0; row < rs.recordCount(); ++row) {
            QStringList fields;
            for (int field : {1, 2, 3, 4, 5, 7, 8, 9, 10, 32, 33}) {
                fields << rs.at(row, field);
            }
            for (int field = 11; field < 32; ++field) {
                EXPECT_EQ(rs.at(row, field).toInt(), 0) << qPrintable(fields.join(u'|'));
            }
            lines << fields.join(u'|');
        }
        return lines;
    }
};

TEST_F(StockStatement, eachStoresLinesByYear_fromItsOwnMovementsOnly) {
    // 강남점: the common shirt's lines gather under "공통" from both schools; 2024's sale at
    // 한빛중 went to 한빛초 whose Kids labels have no 90, so only the outbound 1 at 85 shows.
    // The jacket of 2022 has its opening stock twice (two receipt rows), one of two equal
    // transfers and its sale less the unsecured reservation; 2023 has two corrections and the
    // date of the last; 2024 at 한빛초 a correction that raised stock by 2 and a Kids sale at 75.
    EXPECT_EQ(report(u"01"_s, u"2020"_s, u"2025"_s),
              (QStringList{u"강남점|공통|남|공통셔츠|4N|J|4|2|0|2024|"_s,
                           u"강남점|공통|남|공통셔츠|3N|J|0|6|0|2023|"_s,
                           u"강남점|한빛중|남|동복자켓|5N|X|1|0|1|2025|"_s,
                           u"강남점|한빛중|남|동복자켓|3N|X|4|1|1|2023|20240304"_s,
                           u"강남점|한빛중|남|동복자켓|2N|X|3|10|0|2022|"_s,
                           u"강남점|한빛초|남|동복자켓|4N|X|3|4|3|2024|20240305"_s}));
    // 서초점 sells the same lines; none of 강남점's rows reach it, nor the other way round.
    EXPECT_EQ(report(u"03"_s, u"2020"_s, u"2025"_s),
              (QStringList{u"서초점|공통|남|공통셔츠|4N|J|0|0|7|2024|"_s,
                           u"서초점|한빛중|남|동복자켓|4N|X|3|-1|0|2024|"_s,
                           u"서초점|한빛중|남|동복자켓|3N|X|-3|6|0|2023|"_s,
                           u"서초점|한빛중|남|동복자켓|1N|X|1|1|1|2021|"_s}));
}

TEST_F(StockStatement, aNarrowerRangeOfYearsDropsLinesButMovesNoFigure) {
    EXPECT_EQ(report(u"01"_s, u"2023"_s, u"2024"_s),
              (QStringList{u"강남점|공통|남|공통셔츠|4N|J|4|2|0|2024|"_s,
                           u"강남점|공통|남|공통셔츠|3N|J|0|6|0|2023|"_s,
                           u"강남점|한빛중|남|동복자켓|3N|X|4|1|1|2023|20240304"_s,
                           u"강남점|한빛초|남|동복자켓|4N|X|3|4|3|2024|20240305"_s}));
    EXPECT_EQ(report(u"03"_s, u"2021"_s, u"2021"_s),
              QStringList{u"서초점|한빛중|남|동복자켓|1N|X|1|1|1|2021|"_s});
    EXPECT_TRUE(report(u"03"_s, u"2022"_s, u"2022"_s).isEmpty());
}

TEST_F(StockStatement, mergedYearsAddUpTheSplitLines_andASchoolKeepsTheCommonItems) {
    EXPECT_EQ(report(u"01"_s, u"2020"_s, u"2025"_s, StockReport::Merged),
              (QStringList{u"강남점|공통|남|공통셔츠|통합|J|4|8|0|2025|"_s,
                           u"강남점|한빛중|남|동복자켓|통합|X|8|11|2|2025|20240304"_s,
                           u"강남점|한빛초|남|동복자켓|통합|X|3|4|3|2025|20240305"_s}));
    EXPECT_EQ(report(u"01"_s, u"2020"_s, u"2025"_s, StockReport::Split, u"002"_s),
              (QStringList{u"강남점|공통|남|공통셔츠|4N|J|4|2|0|2024|"_s,
                           u"강남점|공통|남|공통셔츠|3N|J|0|6|0|2023|"_s,
                           u"강남점|한빛초|남|동복자켓|4N|X|3|4|3|2024|20240305"_s}));
}

} // namespace
