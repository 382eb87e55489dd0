// The school and item pickers of the stock and sales screens.
#include "testdb.h"

#include "data/database.h"
#include "data/dbroutines.h"
#include "data/pickers.h"
#include "data/session.h"

using namespace Qt::StringLiterals;

class Pickers : public TestDb {
protected:
    void SetUp() override {
        TestDb::SetUp();
        // Store 01 sells to a boys', a girls' and a mixed school; store 02 to another mixed one.
        exec(u"INSERT INTO C_STORE (COMPANY, STORECD, BRANDCD, STORENAME, USEYN) VALUES "
             "('01', '01', '01', '강남점', 'Y'), ('01', '02', '02', '송파점', 'Y')"_s);
        exec(u"INSERT INTO C_SCHOOL (COMPANY, SCHOOLCD, SCHOOLNAME, SCHOOLDIVIDE, SCHOOLLEVEL, "
             "USEYN) VALUES ('01', '001', '가남중', '1', '2', 'Y'), ('01', '002', '나여고', '2', "
             "'3', 'Y'), ('01', '003', '다공고', '3', '3', 'Y'), ('01', '004', '라중', '3', '2', "
             "'Y')"_s);
        exec(u"INSERT INTO C_STORESCHOOL (COMPANY, STORECD, SCHOOLCD, USEYN) VALUES "
             "('01', '01', '001', 'Y'), ('01', '01', '002', 'Y'), ('01', '01', '003', 'Y'), "
             "('01', '02', '004', 'Y')"_s);
        // A boys' jacket, a girls' skirt, a girls' shirt worn by boys too, a summer shirt.
        exec(u"INSERT INTO C_UNIFORM (COMPANY, SEASON, DIVIDE, UNIFORMSEQ, UNIFORMCOMSEQ, "
             "UNIFORMNAME, USEYN, SUBMAIN, UNITYPE, MIXUNIFORM) VALUES "
             "('01', 'N', 'B', '01', '', '남자켓', 'Y', '1', '1', '0'), "
             "('01', 'N', 'G', '02', '', '여치마', 'Y', '1', '2', '0'), "
             "('01', 'N', 'G', '03', '', '공용셔츠', 'Y', '1', '3', '1'), "
             "('01', 'S', 'B', '04', '', '하복셔츠', 'Y', '1', '3', '0')"_s);
        exec(u"INSERT INTO C_SCHOOLUNIFORM (COMPANY, SCHOOLCD, SEASON, SUDIVIDE, DIVIDE, "
             u"UNIFORMSEQ, "
             "UNIFORMCOMSEQ, USEYN) VALUES ('01', '001', 'N', '1', 'B', '01', '', 'Y'), "
             "('01', '002', 'N', '2', 'G', '02', '', 'Y'), ('01', '003', 'N', '1', 'G', '03', '', "
             "'Y'), ('01', '004', 'S', '1', 'B', '04', '', 'Y')"_s);
    }
    QStringList names(const QString& sql, int field) {
        QStringList out;
        RecordSet rs;
        EXPECT_TRUE(gfbSqlSelectDB(sql, rs));
        for (rs.moveFirst(); !rs.eof(); rs.moveNext()) {
            out << rs.value(field);
        }
        return out;
    }
    PickerScope store01() {
        PickerScope s;
        s.company = u"01"_s;
        s.store = u"01"_s;
        return s;
    }
};

TEST_F(Pickers, theSexOfTheGarmentChoosesTheKindOfSchool) {
    PickerScope s = store01();
    EXPECT_EQ(names(schoolPickerSql(s), 1), (QStringList{u"가남중"_s, u"나여고"_s, u"다공고"_s}));
    s.sex = u"B"_s;
    EXPECT_EQ(names(schoolPickerSql(s), 1), (QStringList{u"가남중"_s, u"다공고"_s}));
    s.sex = u"G"_s;
    s.schoolLevel = 3;
    EXPECT_EQ(names(schoolPickerSql(s), 1), (QStringList{u"나여고"_s, u"다공고"_s}));
    s.store.clear();
    s.schoolLevel = 2;
    EXPECT_EQ(names(schoolPickerSql(s), 1), (QStringList{u"라중"_s})); // every store's
}

TEST_F(Pickers, itemsAreThoseTheStoresSchoolsOfferAndAMixedItemIsOfBothSexes) {
    PickerScope s = store01();
    EXPECT_EQ(names(itemPickerSql(s), 1), (QStringList{u"남자켓"_s, u"여치마"_s, u"공용셔츠"_s}));
    EXPECT_EQ(names(itemPickerSql(s), 0).first(), u"NB01"_s);
    s.sex = u"B"_s;
    EXPECT_EQ(names(itemPickerSql(s), 1), (QStringList{u"남자켓"_s, u"공용셔츠"_s}));
    s.sex = u"G"_s;
    EXPECT_EQ(names(itemPickerSql(s), 1), (QStringList{u"여치마"_s, u"공용셔츠"_s}));
    s = store01();
    s.season = u"S"_s;
    EXPECT_TRUE(names(itemPickerSql(s), 1).isEmpty()); // the summer shirt is store 02's
    s.store = u"02"_s;
    EXPECT_EQ(names(itemPickerSql(s), 1), (QStringList{u"하복셔츠"_s}));
}
