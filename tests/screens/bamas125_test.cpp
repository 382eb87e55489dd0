// The store-school screen driven as a user does: stores with their counts, a store chosen, its
// schools starred and moved, each move saved at once.
#include "screenfixture.h"
#include "userinput.h"

#include "data/dbroutines.h"
#include "data/dialect.h"
#include "grid/spreadroutines.h"
#include "screens/school/BAMAS125.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>

class Bamas125 : public ScreenTest {
protected:
    void SetUp() override {
        ScreenTest::SetUp();
        loadFixture(QStringLiteral("schools.sql"));
        screen = openByNumber<BAMAS125>(125);
        ASSERT_NE(screen, nullptr);
        list = child<Spread>(screen, QStringLiteral("SP1"));
        served = child<Spread>(screen, QStringLiteral("SP2"));
        notServed = child<Spread>(screen, QStringLiteral("SP3"));
        presenter->boxes.clear();
    }
    QStringList row(Spread* grid, int r, int last) {
        QStringList cells;
        for (int col = 1; col <= last; ++col) {
            cells << gfSpreadText(grid, r, col);
        }
        return cells;
    }
    QStringList codes(Spread* grid) {
        QStringList cells;
        for (int r = 1; r <= grid->maxRows(); ++r) {
            if (!gfSpreadText(grid, r, 2).isEmpty()) {
                cells << gfSpreadText(grid, r, 2);
            }
        }
        return cells;
    }
    QString storeRows(const char* store) {
        return scalar(QStringLiteral("SELECT GROUP_CONCAT(SCHOOLCD || USEYN || REGUSER, ',') FROM "
                                     "(SELECT * FROM C_STORESCHOOL WHERE STORECD = '") +
                      QString::fromLatin1(store) + QStringLiteral("' ORDER BY SCHOOLCD)"));
    }
    void press(const char* name) {
        QTest::mouseClick(child<QPushButton>(screen, QString::fromLatin1(name)), Qt::LeftButton);
        QApplication::processEvents();
    }
    BAMAS125* screen = nullptr;
    Spread* list = nullptr;
    Spread* served = nullptr;
    Spread* notServed = nullptr;
};

TEST_F(Bamas125, storesShowTheirSchoolsByLevelAndThoseWithoutAreMarked) {
    ASSERT_EQ(list->dataRowCnt(), 3);
    // 강남점 serves two middle schools and the high school on hold: the count reads the
    // assignment, not the school's own state.
    EXPECT_EQ(row(list, 1, 5), (QStringList{"01", "강남점", "0", "2", "1"}));
    EXPECT_EQ(row(list, 2, 5), (QStringList{"02", "노원점", "0", "0", "0"}));
    EXPECT_EQ(row(list, 3, 2), (QStringList{"03", "닫은점"}));
    EXPECT_EQ(list->model()->foreColor(1, 2), 0u);
    EXPECT_EQ(list->model()->foreColor(2, 2), gfRGB(192, 0, 0));

    child<QCheckBox>(screen, QStringLiteral("chkSerch"))->click();
    clickToolButton(mainWindow(), QStringLiteral("Search"));
    ASSERT_EQ(list->dataRowCnt(), 2);
    EXPECT_EQ(gfSpreadText(list, 1, 2), QStringLiteral("노원점"));
}

TEST_F(Bamas125, starredSchoolsMoveAndSaveAtOnceAndAnOnHoldSchoolDrops) {
    clickCell(list, 1, 2);
    EXPECT_EQ(child<QLabel>(screen, QStringLiteral("lblStoreName"))->text(),
              QStringLiteral("강남점"));
    EXPECT_EQ(child<QLabel>(screen, QStringLiteral("lblCode"))->text(), QStringLiteral("01"));
    // The school on hold shows in neither list; another company's school never.
    EXPECT_EQ(codes(served), (QStringList{"001", "003"}));
    EXPECT_EQ(row(served, 1, 5), (QStringList{"", "001", "중등", "남", "한빛중"}));
    EXPECT_EQ(codes(notServed), (QStringList{"002"}));

    clickCell(notServed, 1, 3);
    EXPECT_EQ(gfSpreadText(notServed, 1, 1), QStringLiteral("*"));
    press("cmdLeft");
    EXPECT_EQ(storeRows("01"), QStringLiteral("001Ytester,002Ytester,003Ytester"));
    EXPECT_EQ(codes(served), (QStringList{"001", "003", "002"}));
    EXPECT_TRUE(codes(notServed).isEmpty());
    EXPECT_EQ(notServed->maxRows(), BAMAS125::kSchoolRows);
    EXPECT_EQ(row(list, 1, 5), (QStringList{"01", "강남점", "0", "2", "1"}));

    // A moved row arrives without its star, so the move back takes only what is starred
    // then; a second click takes a star back and an empty row takes none.
    EXPECT_EQ(gfSpreadText(served, 3, 1), QString());
    clickCell(served, 2, 2);
    clickCell(served, 1, 2);
    clickCell(served, 1, 2);
    clickCell(served, 10, 2);
    EXPECT_TRUE(gfSpreadText(served, 10, 1).isEmpty());
    EXPECT_EQ(gfSpreadText(served, 2, 1), QStringLiteral("*"));
    press("cmdRight");
    EXPECT_EQ(storeRows("01"), QStringLiteral("001Ytester,002Ytester"));
    EXPECT_EQ(codes(notServed), (QStringList{"003"}));
    EXPECT_EQ(gfSpreadText(notServed, 1, 1), QString());
    // The chosen store's name in the box is no filter: the list keeps every store.
    EXPECT_EQ(list->dataRowCnt(), 3);
    EXPECT_EQ(child<QLineEdit>(screen, QStringLiteral("txtFullName"))->text(),
              QStringLiteral("강남점"));

    clickToolButton(mainWindow(), QStringLiteral("Save")); // the same grid a second time
    EXPECT_EQ(storeRows("01"), QStringLiteral("001Ytester,002Ytester"));
    EXPECT_TRUE(presenter->boxes.isEmpty());
}

TEST_F(Bamas125, aSaveWithoutAStoreWritesNothingAndTheNameFilterIsExact) {
    clickToolButton(mainWindow(), QStringLiteral("Save"));
    EXPECT_EQ(count(QStringLiteral("C_STORESCHOOL")), 3);
    auto* name = child<QLineEdit>(screen, QStringLiteral("txtFullName"));
    typeText(name, QStringLiteral("강남"));
    clickToolButton(mainWindow(), QStringLiteral("Search"));
    EXPECT_EQ(list->dataRowCnt(), 0);
    EXPECT_EQ(screen->statusPanel(1)->text(), QStringLiteral("조회된 데이터가 없습니다."));
    name->clear();
    typeText(name, QStringLiteral("강남점' OR '1'='1"));
    clickToolButton(mainWindow(), QStringLiteral("Search"));
    EXPECT_EQ(list->dataRowCnt(), 0);
    EXPECT_TRUE(presenter->boxes.isEmpty());
}

TEST_F(Bamas125, aFailedMoveLogsItsCommandAndATypedNameStillFilters) {
    // A typed name filters, and a move within the filtered list keeps the filter.
    typeText(child<QLineEdit>(screen, QStringLiteral("txtFullName")), QStringLiteral("강남점"));
    clickToolButton(mainWindow(), QStringLiteral("Search"));
    ASSERT_EQ(list->dataRowCnt(), 1);
    clickCell(list, 1, 2);
    exec(QStringLiteral("CREATE TRIGGER refuse BEFORE INSERT ON C_STORESCHOOL "
                        "BEGIN SELECT RAISE(ABORT, 'locked'); END"));
    clickCell(notServed, 1, 3);
    press("cmdLeft");
    ASSERT_EQ(presenter->boxes.size(), 1);
    EXPECT_EQ(scalar(QStringLiteral("SELECT GROUP_CONCAT(ERRPROG, '|') FROM (SELECT ERRPROG FROM "
                                    "C_ERROR ORDER BY ROWID)")),
              QStringLiteral("basDatabase : gfbSqlExecuteDB|BAMAS125 : sSaveQuery"));
    EXPECT_EQ(count(QStringLiteral("C_STORESCHOOL"), QStringLiteral("SCHOOLCD = '002'")), 0);
    EXPECT_EQ(count(QStringLiteral("C_STORESCHOOL"), QStringLiteral("STORECD = '01'")), 3);
    EXPECT_EQ(codes(served), (QStringList{"001", "003", "002"}));

    exec(QStringLiteral("DROP TRIGGER refuse"));
    clickToolButton(mainWindow(), QStringLiteral("Save"));
    EXPECT_EQ(storeRows("01"), QStringLiteral("001Ytester,002Ytester,003Ytester"));
    EXPECT_EQ(list->dataRowCnt(), 1);
}

TEST_F(Bamas125, theServerTextCarriesNoSqliteSpelling) {
    clickCell(list, 1, 2);
    const Dialect server(Dialect::Engine::SqlServer);
    const ScopedDialect spelling(server);
    for (const QString& sql : QStringList{screen->listStatement(), screen->schoolStatement(true),
                                          screen->schoolStatement(false)} +
                                  screen->saveStatements()) {
        keepServerText(sql);
    }
    const QString all = screen->listStatement() + screen->schoolStatement(true) +
                        screen->schoolStatement(false) + screen->saveStatements().join(u';');
    EXPECT_FALSE(all.contains(QStringLiteral("||")));
    EXPECT_TRUE(all.contains(QStringLiteral("FROM C_STORESCHOOL SS  WITH(NOLOCK) , C_SCHOOL SC  "
                                            "WITH(NOLOCK) \n        LEFT OUTER JOIN")));
    EXPECT_TRUE(all.contains(QStringLiteral("INSERT INTO C_STORESCHOOL")));
}
