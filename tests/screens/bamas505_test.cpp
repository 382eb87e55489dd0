// The school upload driven as a user does: a sheet pasted into the grid, checked, and written
// in one transaction or not at all.
#include "screenfixture.h"
#include "userinput.h"

#include "data/dbroutines.h"
#include "data/dialect.h"
#include "grid/spreadroutines.h"
#include "screens/organisation/BAMAS505.h"
#include "screens/school/BAMAS110.h"

#include <QClipboard>
#include <QPushButton>
#include <QTableView>

class Bamas505 : public ScreenTest {
protected:
    void SetUp() override {
        ScreenTest::SetUp();
        loadFixture(QStringLiteral("schools.sql"));
        screen = openByNumber<BAMAS505>(505);
        ASSERT_NE(screen, nullptr);
        sheet = child<Spread>(screen, QStringLiteral("SP1"));
        presenter->boxes.clear();
    }
    // Rows of tab-separated cells pasted at the first cell with Ctrl+V.
    void paste(const QString& rows) {
        QApplication::clipboard()->setText(rows);
        clickCell(sheet, 1, 1);
        QTest::keyClick(sheet->view(), Qt::Key_V, Qt::ControlModifier);
        QApplication::processEvents();
    }
    void upload() {
        QTest::mouseClick(child<QPushButton>(screen, QStringLiteral("cmdUpload")), Qt::LeftButton);
        QApplication::processEvents();
    }
    qint64 schools() { return count(QStringLiteral("C_SCHOOL"), QStringLiteral("COMPANY = '01'")); }
    BAMAS505* screen = nullptr;
    Spread* sheet = nullptr;
};

TEST_F(Bamas505, codesArePaddedAndTheSchoolScreenNumbersOnFromTheGreatest) {
    paste(QStringLiteral("7\t1\t서울칠중학교\t칠중\t1\n 12 \t3\t열둘초등학교\t열둘초\t3\n"));
    upload();
    EXPECT_TRUE(presenter->boxes.isEmpty());
    EXPECT_EQ(gfSpreadText(sheet, 1, 1), QStringLiteral("007"));
    EXPECT_EQ(scalar(QStringLiteral("SELECT GROUP_CONCAT(SCHOOLCD || SCHOOLLEVEL || SCHOOLNAME || "
                                    "SCHOOLDIVIDE || USEYN || REGUSER, ',') FROM (SELECT * FROM "
                                    "C_SCHOOL WHERE SCHOOLCD > '004' ORDER BY SCHOOLCD)")),
              QStringLiteral("0071칠중1Ytester,0123열둘초3Ytester"));

    auto* school = openByNumber<BAMAS110>(110);
    ASSERT_NE(school, nullptr);
    clickToolButton(mainWindow(), QStringLiteral("Clear"));
    typeText(child<QLineEdit>(school, QStringLiteral("txtName")), QStringLiteral("새학교"));
    QTest::keyClicks(child<QLineEdit>(school, QStringLiteral("txtGT25")), QStringLiteral("1"));
    QTest::keyClicks(child<QLineEdit>(school, QStringLiteral("txtGT24")), QStringLiteral("3"));
    clickToolButton(mainWindow(), QStringLiteral("Save"));
    EXPECT_EQ(scalar(QStringLiteral("SELECT SCHOOLCD FROM C_SCHOOL WHERE SCHOOLNAME = '새학교'")),
              QStringLiteral("013"));
}

TEST_F(Bamas505, aPasteLongerThanTheSheetIsTakenWhole) {
    QString rows;
    for (int n = 1; n <= 80; ++n) {
        rows += QStringLiteral("%1\t1\t학교%1\t교%1\t3\n").arg(100 + n);
    }
    paste(rows);
    EXPECT_EQ(gfSpreadText(sheet, 80, 3), QStringLiteral("학교180"));
    upload();
    EXPECT_TRUE(presenter->boxes.isEmpty());
    EXPECT_EQ(count(QStringLiteral("C_SCHOOL"), QStringLiteral("SCHOOLCD > '100'")), 80);
}

TEST_F(Bamas505, everyFindingOfARowIsCollectedAndNothingIsWritten) {
    paste(QStringLiteral("1\t4\t새솔중학교\t한빛중\tx\n"
                         "abc\t2\t좋은고등학교\t좋은고\t2\n"
                         "20\t2\t스무고등학교\t스무고\t2\n"));
    upload();
    EXPECT_EQ(
        gfSpreadText(sheet, 1, 6),
        QStringLiteral(" 코드값 중복 오류 등급 오류 학교명 중복 오류 학교명 중복 오류 구분 오류"));
    EXPECT_EQ(gfSpreadText(sheet, 2, 6), QStringLiteral(" 코드값 오류"));
    EXPECT_TRUE(gfSpreadText(sheet, 3, 6).isEmpty());
    ASSERT_EQ(presenter->boxes.size(), 1);
    EXPECT_TRUE(presenter->boxes[0].text.startsWith(
        QStringLiteral("오류가 있는 데이터를 정리 후 등록하시오.")));
    EXPECT_EQ(schools(), 4);

    // Cleared, a good sheet goes in.
    QTest::mouseClick(child<QPushButton>(screen, QStringLiteral("cmdViewSale2")), Qt::LeftButton);
    EXPECT_EQ(sheet->dataRowCnt(), 0);
    paste(QStringLiteral("20\t2\t스무고등학교\t스무고\t2\n"));
    upload();
    EXPECT_EQ(schools(), 5);
}

TEST_F(Bamas505, oneCodeTwiceInAPasteRollsEveryRowBack) {
    paste(QStringLiteral("30\t1\t삼십중학교\t삼십중\t1\n31\t1\t삼십일중학교\t삼십일중\t1\n"
                         "030\t2\t또삼십고등학교\t또삼십고\t2\n"));
    upload();
    EXPECT_TRUE(gfSpreadText(sheet, 3, 6).isEmpty()); // the checks see only the table
    EXPECT_EQ(schools(), 4);
    EXPECT_EQ(presenter->boxes.size(), 1);
    // The statement routine's row, then the upload's own place: the log says which screen.
    EXPECT_EQ(scalar(QStringLiteral("SELECT GROUP_CONCAT(ERRPROG, '|') FROM (SELECT ERRPROG FROM "
                                    "C_ERROR ORDER BY ROWID)")),
              QStringLiteral("basDatabase : gfbSqlExecuteDB|BAMAS505 : sSelectQuery2"));
    EXPECT_EQ(endedWith, -1);
}

TEST_F(Bamas505, anOverLongNameIsAFindingOfItsRowAndWhatFitsIsStoredAsTyped) {
    upload(); // an empty sheet
    EXPECT_TRUE(presenter->boxes.isEmpty());
    EXPECT_EQ(schools(), 4);

    // Cut to its bytes the short name would pass the duplicate check as "한빛중", a name the
    // sheet does not have; the sheet keeps what was pasted and the row says what is wrong.
    paste(QStringLiteral("40\t1\t'); DELETE FROM C_SCHOOL; --아주긴이름\t한빛중학교부설\t1\n"
                         "41\t1\t사십일중학교\t사십일중\t1\n"));
    upload();
    EXPECT_EQ(gfSpreadText(sheet, 1, 3), QStringLiteral("'); DELETE FROM C_SCHOOL; --아주긴이름"));
    EXPECT_EQ(gfSpreadText(sheet, 1, 4), QStringLiteral("한빛중학교부설"));
    EXPECT_EQ(gfSpreadText(sheet, 1, 6), QStringLiteral(" 학교명 길이 오류 단축명 길이 오류"));
    EXPECT_TRUE(gfSpreadText(sheet, 2, 6).isEmpty());
    ASSERT_EQ(presenter->boxes.size(), 1);
    EXPECT_EQ(schools(), 4);

    QTest::mouseClick(child<QPushButton>(screen, QStringLiteral("cmdViewSale2")), Qt::LeftButton);
    paste(QStringLiteral("40\t1\t'); DELETE --%_😀\t사십%_😀중\t1\n"));
    upload();
    EXPECT_EQ(presenter->boxes.size(), 1);
    EXPECT_EQ(scalar(QStringLiteral("SELECT SCHOOLFULLNAME || '|' || SCHOOLNAME FROM C_SCHOOL "
                                    "WHERE SCHOOLCD = '040'")),
              QStringLiteral("'); DELETE --%_😀|사십%_😀중"));
    EXPECT_EQ(schools(), 5);
}

TEST_F(Bamas505, theServerTextCarriesNoSqliteSpelling) {
    paste(QStringLiteral("7\t1\t칠중학교\t칠중\t1\n"));
    const Dialect server(Dialect::Engine::SqlServer);
    const ScopedDialect spelling(server);
    const QString sql = keepServerText(screen->insertStatement(1));
    EXPECT_FALSE(sql.contains(QStringLiteral("||")));
    EXPECT_TRUE(sql.contains(QStringLiteral("GETDATE()")));
    EXPECT_EQ(BAMAS505::formatCode(QStringLiteral(" 7 ")), QStringLiteral("007"));
    EXPECT_EQ(BAMAS505::formatCode(QStringLiteral("1234")), QStringLiteral("1234"));
    EXPECT_EQ(BAMAS505::formatCode(QStringLiteral("x1")), QStringLiteral("x1"));
}
