// Code lists into combos and button arrays, and the find routines.
#include "testdb.h"

#include "shell/buttonarray.h"
#include "shell/codecontrols.h"

#include <QAbstractButton>
#include <QComboBox>

class CodeLists : public TestDb {
protected:
    void SetUp() override {
        TestDb::SetUp();
        loadFixture(QStringLiteral("code_lists.sql"));
    }
    QStringList items() {
        QStringList texts;
        for (int i = 0; i < combo.count(); ++i) {
            texts << combo.itemText(i);
        }
        return texts;
    }
    QComboBox combo;
    CodeArray arr;
};

TEST_F(CodeLists, allRowAndCodesInBracketsInDisplayOrder) {
    gsReadCode(&combo, arr, QStringLiteral("GT22"), QString(), true);
    EXPECT_EQ(items(), (QStringList{QStringLiteral("(전체)"), QStringLiteral("[N]동복"), QStringLiteral("[S]하복"),
                                    QStringLiteral("[A]사계절")}));
    EXPECT_EQ(arr.code(0), QStringLiteral("**"));
    EXPECT_EQ(arr.name(2), QStringLiteral("하복"));
    EXPECT_EQ(combo.currentIndex(), 0);
    EXPECT_EQ(codeListSql(QStringLiteral("GT22")), codeListSql(QStringLiteral("22")));
}

TEST_F(CodeLists, nullNameStillShowsAndBlankRowWithoutAll) {
    gsReadCode(&combo, arr, QStringLiteral("GT23"));
    EXPECT_EQ(items(), (QStringList{QStringLiteral(" "), QStringLiteral("[B]남"), QString()}));
    EXPECT_EQ(arr.code(0), QStringLiteral("*"));
    EXPECT_EQ(arr.code(2), QStringLiteral("G"));
    EXPECT_EQ(arr.name(2), QString());
}

TEST_F(CodeLists, mastersAndCompanyCodesStayInTheCompany) {
    gsReadCode(&combo, arr, QStringLiteral("CGT01"));
    EXPECT_EQ(items(), (QStringList{QStringLiteral(" "), QStringLiteral("[10]정장"), QStringLiteral("[20]체육복")}));
    gsReadCode(&combo, arr, QStringLiteral("BRD"));
    EXPECT_EQ(items(), (QStringList{QStringLiteral(" "), QStringLiteral("스쿨룩"), QStringLiteral("아이비")}));
    gsReadCode(&combo, arr, QStringLiteral("BRDSTORE"), QStringLiteral("01"));
    EXPECT_EQ(items(), (QStringList{QStringLiteral(" "), QStringLiteral("강남점")}));
    EXPECT_EQ(arr.name(1), QStringLiteral("스쿨룩"));
    gsReadCode(&combo, arr, QStringLiteral("STORE3"));
    EXPECT_EQ(items(), (QStringList{QStringLiteral(" "), QStringLiteral("강남점"), QStringLiteral("노원점"),
                                    QStringLiteral("스쿨룩"), QStringLiteral("아이비")}));
}

TEST_F(CodeLists, findRoutinesAnswerFalseForAStoppedCode) {
    gsReadCode(&combo, arr, QStringLiteral("GT22"));
    EXPECT_TRUE(gfComboFindCode(&combo, arr, QStringLiteral("S")));
    EXPECT_EQ(combo.currentIndex(), 2);
    EXPECT_EQ(gfComboCode(&combo, arr), QStringLiteral("S"));
    EXPECT_FALSE(gfComboFindCode(&combo, arr, QStringLiteral("X")));
    EXPECT_EQ(combo.currentIndex(), 0);
    EXPECT_TRUE(gfComboFindName(&combo, arr, QStringLiteral("사계절")));
    EXPECT_EQ(combo.currentIndex(), 3);
    EXPECT_TRUE(gfComboFindDisplay(&combo, arr, QStringLiteral("[N]")));
    EXPECT_EQ(combo.currentIndex(), 1);
    EXPECT_FALSE(gfComboFindCode(&combo, arr, QString()));
    EXPECT_EQ(combo.currentIndex(), 0);
}

TEST_F(CodeLists, failedSelectKeepsTheComboAsItWas) {
    gsReadCode(&combo, arr, QStringLiteral("GT22"));
    exec(QStringLiteral("DROP TABLE C_GONGTONG"));
    gsReadCode(&combo, arr, QStringLiteral("GT23"));
    EXPECT_EQ(combo.count(), 4);
    EXPECT_EQ(arr.size(), 4);
}

TEST_F(CodeLists, optionArraysShowStoppedCodesOnlyForKindE) {
    ButtonArray options(ButtonArray::Kind::Option);
    gsReadCodeOptions(&options, arr, QStringLiteral("G22"), 2);
    EXPECT_EQ(options.count(), 3);
    gsReadCodeOptions(&options, arr, QStringLiteral("E22"), 2);
    ASSERT_EQ(options.count(), 4);
    EXPECT_EQ(options.element(4)->text(), QStringLiteral("[X]폐기"));
    EXPECT_TRUE(gfOptionFindCode(&options, arr, QStringLiteral("S")));
    EXPECT_TRUE(options.element(2)->isChecked());
    EXPECT_EQ(gfOptionCode(&options, arr), QStringLiteral("S"));
    EXPECT_TRUE(gfOptionFindName(&options, arr, QStringLiteral("동복")));
    EXPECT_FALSE(options.element(2)->isChecked());
    EXPECT_FALSE(gfOptionFindCode(&options, arr, QStringLiteral("Q")));
    EXPECT_EQ(options.checkedIndex(), 0);

    ButtonArray checks(ButtonArray::Kind::Check);
    gsReadCodeChecks(&checks, arr, QStringLiteral("C01"), 3);
    EXPECT_EQ(checks.count(), 2);
    EXPECT_EQ(arr.code(2), QStringLiteral("20"));
}
