// The store screen driven as a user does: list, pick, edit, save, refuse, delete.
#include "screenfixture.h"

#include "grid/spreadroutines.h"
#include "screens/organisation/BAMAS105.h"
#include "screens/organisation/BAMAS105_NOTICE.h"

#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QRadioButton>

class Bamas105 : public ScreenTest {
protected:
    void SetUp() override {
        ScreenTest::SetUp();
        loadFixture(QStringLiteral("bamas105_stores.sql"));
        screen = openByNumber<BAMAS105>(105);
        ASSERT_NE(screen, nullptr);
        list = child<Spread>(screen, QStringLiteral("SP1"));
        presenter->boxes.clear(); // the empty program tree's message 15
    }
    QLineEdit* box(const char* name) { return child<QLineEdit>(screen, QString::fromLatin1(name)); }
    // Fills what a new store requires.
    void fillNewStore(const QString& name) {
        screen->m_clear();
        child<QComboBox>(screen, QStringLiteral("cboGT03"))->setCurrentIndex(1);
        screen->setBrand(QStringLiteral("01"),
                         QStringLiteral("청운교복")); // as the brand pop-up hands it back
        box("txtName")->setText(name);
        box("txtFullName")->setText(QStringLiteral("청운교복 ") + name);
        box("txtAddres")->setText(QStringLiteral("서울"));
        box("txtCEOName")->setText(QStringLiteral("이대표"));
        box("txtTEL")->setText(QStringLiteral("02-000-0000"));
    }
    BAMAS105* screen = nullptr;
    Spread* list = nullptr;
};

TEST_F(Bamas105, listsTheCompanysStoresOpenFirstAndCopiesARowBack) {
    ASSERT_EQ(list->maxRows(), 2);
    EXPECT_EQ(gfSpreadText(list, 1, 4), QStringLiteral("강남점"));
    EXPECT_EQ(gfSpreadText(list, 1, 2), QStringLiteral("직영점"));
    EXPECT_EQ(gfSpreadText(list, 2, 13), QStringLiteral("휴점"));
    screen->SP1_Click(1);
    EXPECT_EQ(child<QLabel>(screen, QStringLiteral("lblCode"))->text(), QStringLiteral("01"));
    EXPECT_EQ(child<QComboBox>(screen, QStringLiteral("cboGT03"))->currentText(),
              QStringLiteral("[01]직영점"));
    EXPECT_EQ(child<QComboBox>(screen, QStringLiteral("cboSet01"))->currentIndex(), 1);
    EXPECT_EQ(child<QComboBox>(screen, QStringLiteral("cboPort"))->currentText(),
              QStringLiteral("T"));
    EXPECT_TRUE(child<QRadioButton>(screen, QStringLiteral("optCBUSEYN_0"))->isChecked());
    EXPECT_EQ(box("txtSpeed")->text(), QStringLiteral("19200"));
}

TEST_F(Bamas105, remarkAndBaseYearAreCompanyWide) {
    screen->SP1_Click(2);
    box("txtRemark")->setText(QStringLiteral("환불은 영수증 지참 ('필수')"));
    child<QComboBox>(screen, QStringLiteral("cboYYYY"))->setCurrentIndex(0);
    const QString year = child<QComboBox>(screen, QStringLiteral("cboYYYY"))->currentText();
    screen->sSaveQuery();
    EXPECT_EQ(count(QStringLiteral("C_STORE"),
                    QStringLiteral("COMPANY = '01' AND REMARK = '환불은 영수증 지참 (''필수'')'")),
              2);
    EXPECT_EQ(count(QStringLiteral("C_STORE"),
                    QStringLiteral("COMPANY = '01' AND CURRYYYY = '") + year + QLatin1Char('\'')),
              2);
    EXPECT_EQ(scalar(QStringLiteral("SELECT REMARK FROM C_STORE WHERE COMPANY = '02'")),
              QStringLiteral("그대로"));
}

TEST_F(Bamas105, newStoreTakesTheNextCodeAndADuplicateNameIsRefused) {
    fillNewStore(QStringLiteral("강남점"));
    screen->sSaveQuery();
    ASSERT_EQ(presenter->boxes.size(), 1);
    EXPECT_EQ(presenter->boxes[0].text,
              QStringLiteral("동일한 명칭이 입력되어 있습니다. 명칭을 바꿔서 등록하시오."));

    fillNewStore(QStringLiteral("노원'점"));
    screen->sSaveQuery();
    EXPECT_EQ(scalar(QStringLiteral("SELECT STORENAME || '|' || POSID || '|' || PRTPORT FROM "
                                    "C_STORE WHERE COMPANY = '01' AND STORECD = '03'")),
              QStringLiteral("노원'점| |1"));

    screen->SP1_Click(2); // an existing store may take a name in use
    box("txtName")->setText(QStringLiteral("강남점"));
    screen->sSaveQuery();
    EXPECT_EQ(
        count(QStringLiteral("C_STORE"), QStringLiteral("COMPANY = '01' AND STORENAME = '강남점'")),
        2);
}

TEST_F(Bamas105, requiredFieldsAndTheHundredthStore) {
    screen->m_clear();
    box("txtName")->setText(QStringLiteral("빈칸"));
    screen->sSaveQuery();
    ASSERT_EQ(presenter->boxes.size(), 1);
    EXPECT_EQ(presenter->boxes[0].text,
              QStringLiteral("초록색깔은 필수입력입니다. 입력해 주십시오."));

    exec(QStringLiteral(
        "UPDATE C_STORE SET STORECD = '99' WHERE COMPANY = '01' AND STORECD = '02'"));
    fillNewStore(QStringLiteral("백번째점"));
    screen->sSaveQuery();
    EXPECT_EQ(count(QStringLiteral("C_STORE"), QStringLiteral("STORENAME = '백번째점'")), 0);
    EXPECT_EQ(count(QStringLiteral("C_ERROR")), 1);
}

TEST_F(Bamas105, deleteAsksMessage95) {
    screen->SP1_Click(2);
    presenter->answerNo();
    screen->cmdDelete_Click();
    EXPECT_EQ(count(QStringLiteral("C_STORE"), QStringLiteral("COMPANY = '01'")), 2);
    EXPECT_TRUE(presenter->boxes.last().text.startsWith(QStringLiteral("공통코드 삭제시")));
    presenter->answerYes();
    screen->cmdDelete_Click();
    EXPECT_EQ(count(QStringLiteral("C_STORE"), QStringLiteral("COMPANY = '01'")), 1);
    EXPECT_EQ(list->maxRows(), 1);
}

TEST_F(Bamas105, schoolNoticeSavesWithThreeDigitNumbersAndUpdatesThePeriodInForce) {
    exec(QStringLiteral("INSERT INTO C_SCHOOL (COMPANY, SCHOOLCD, SCHOOLNAME, USEYN) VALUES ('01', "
                        "'001', '한빛중', 'Y')"));
    BAMAS105_NOTICE notice;
    child<QComboBox>(&notice, QStringLiteral("cboSchool"))->setCurrentIndex(1);
    notice.cmdNew_Click();
    child<QDateEdit>(&notice, QStringLiteral("dtpStart"))->setDate(QDate(2026, 3, 1));
    child<QDateEdit>(&notice, QStringLiteral("dtpEnd"))->setDate(QDate(2026, 3, 31));
    child<QLineEdit>(&notice, QStringLiteral("txtNotice"))
        ->setText(QStringLiteral("입학식 전 교복 수령"));
    notice.cmdSave_Click();
    EXPECT_EQ(scalar(QStringLiteral("SELECT NOTICESEQ || STARTDT FROM C_SCHOOLNOTICE")),
              QStringLiteral("0012026-03-01"));
    child<QLineEdit>(&notice, QStringLiteral("txtNotice"))->setText(QStringLiteral("고친 공지"));
    notice.cmdSave_Click(); // the same period: the notice in force is updated
    EXPECT_EQ(count(QStringLiteral("C_SCHOOLNOTICE")), 1);
    child<QDateEdit>(&notice, QStringLiteral("dtpStart"))->setDate(QDate(2026, 4, 1));
    child<QDateEdit>(&notice, QStringLiteral("dtpEnd"))->setDate(QDate(2026, 4, 30));
    notice.cmdSave_Click();
    EXPECT_EQ(scalar(QStringLiteral("SELECT MAX(NOTICESEQ) FROM C_SCHOOLNOTICE")),
              QStringLiteral("002"));
    child<QLineEdit>(&notice, QStringLiteral("txtNotice"))->clear();
    notice.cboSchool_Click();
    EXPECT_EQ(child<QLineEdit>(&notice, QStringLiteral("txtNotice"))->text(),
              QStringLiteral("고친 공지"));
}
