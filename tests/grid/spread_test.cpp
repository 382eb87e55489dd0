#include "grid/spreadroutines.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QImage>
#include <QLineEdit>
#include <QScrollBar>
#include <QTableView>
#include <QTest>

#include <gtest/gtest.h>

namespace {

// A list grid of four columns: code, name, amount (float), date; two heading rows.
struct Grid {
    Spread grid;
    Spread* sp = &grid;
    Grid() {
        gsSpreadInit(sp, QStringLiteral("굴림체"), 10, 18, 18, 0, 0xC0C0C0, 3, true, false, 2);
        gsSpreadColumn(sp, 1, QStringLiteral("코드"), SpreadEdit, 6, 0, QStringLiteral("M"));
        gsSpreadColumn(sp, 2, QStringLiteral("이름"), SpreadEdit, 15);
        gsSpreadColumn(sp, 3, QStringLiteral("금액"), SpreadFloat, 10, 0, QStringLiteral("R"));
        gsSpreadColumn(sp, 4, QStringLiteral("일자"), SpreadDate, 10);
        sp->setMaxRows(3);
    }
};

} // namespace

TEST(SpreadTest, setTextColoursNegativesAndMarksAndBlanksLoneZero) {
    Grid g;
    QString minus = QStringLiteral("-5");
    gsSpreadSetText(g.sp, 1, 2, minus, kSpreadRed, {}, QStringLiteral("N"));
    EXPECT_EQ(g.sp->model()->foreColor(1, 2), kSpreadRed);
    gsSpreadSetText(g.sp, 2, 2, QStringLiteral("5"), kSpreadRed);
    EXPECT_EQ(g.sp->model()->foreColor(2, 2), 0u);
    gsSpreadSetText(g.sp, 2, 2, QStringLiteral("abc"), kSpreadRed);
    EXPECT_EQ(g.sp->model()->foreColor(2, 2), 0u);
    gsSpreadSetText(g.sp, 3, 2, QStringLiteral(" 미납 "), kSpreadRed, QStringLiteral("미납"));
    EXPECT_EQ(g.sp->model()->foreColor(3, 2), kSpreadRed);

    QString zero = QStringLiteral("0");
    gsSpreadSetText(g.sp, 1, 1, zero, kSpreadRed, {}, QStringLiteral("N"));
    EXPECT_TRUE(zero.isEmpty());
    EXPECT_EQ(gfSpreadText(g.sp, 1, 1), QString());
    for (const char* kept : {"0.0", "00"}) {
        QString t = QString::fromLatin1(kept);
        gsSpreadSetText(g.sp, 1, 1, t, kSpreadRed, {}, QStringLiteral("N"));
        EXPECT_EQ(gfSpreadText(g.sp, 1, 1), QString::fromLatin1(kept));
    }
    QString noFlag = QStringLiteral("0");
    gsSpreadSetText(g.sp, 1, 1, noFlag);
    EXPECT_EQ(gfSpreadText(g.sp, 1, 1), QStringLiteral("0"));
}

TEST(SpreadTest, writesOutsideTheGridAreIgnored) {
    Grid g;
    gsSpreadSetText(g.sp, 1, 5, QStringLiteral("x"));
    gsSpreadSetText(g.sp, 4, 1, QStringLiteral("x"));
    EXPECT_EQ(g.sp->maxCols(), 4);
    EXPECT_EQ(g.sp->maxRows(), 3);
    EXPECT_EQ(g.sp->dataRowCnt(), 0);
    EXPECT_EQ(gfSpreadText(g.sp, 1, 5), QString());
}

TEST(SpreadTest, floatAndDateCellsFormatTheirValue) {
    Grid g;
    gsSpreadSetValue(g.sp, 1, 3, QStringLiteral("1234567"));
    EXPECT_EQ(gfSpreadText(g.sp, 1, 3), QStringLiteral("1,234,567"));
    EXPECT_EQ(gfSpreadValue(g.sp, 1, 3), QStringLiteral("1234567"));
    QString bad = QStringLiteral("x1");
    gsSpreadSetValue(g.sp, 2, 3, bad, kSpreadRed);
    EXPECT_EQ(bad, QStringLiteral("0"));
    EXPECT_EQ(gfSpreadText(g.sp, 2, 3), QStringLiteral("0"));
    gsSpreadSetValue(g.sp, 3, 3, QStringLiteral("-0.4"), kSpreadRed);
    EXPECT_EQ(g.sp->model()->foreColor(3, 3), 0u) << "the colour test uses the whole number";

    gsSpreadSetText(g.sp, 1, 4, QStringLiteral("20240315"));
    EXPECT_EQ(gfSpreadText(g.sp, 1, 4), QStringLiteral("2024/03/15"));
    EXPECT_EQ(gfSpreadCellText(g.sp, 1, 4, false), QStringLiteral("20240315"));
    gsSpreadSetText(g.sp, 2, 4, QStringLiteral("2024-02-30"));
    EXPECT_EQ(gfSpreadText(g.sp, 2, 4), QString());
}

TEST(SpreadTest, spreadValueTurnsNonNumbersToZeroInTheGrid) {
    Grid g;
    gsSpreadSetText(g.sp, 1, 2, QStringLiteral("abc"));
    EXPECT_EQ(gfSpreadValue(g.sp, 1, 2), QStringLiteral("0"));
    EXPECT_EQ(gfSpreadText(g.sp, 1, 2), QStringLiteral("0"));
    gsSpreadSetText(g.sp, 2, 2, QStringLiteral("1,500"));
    EXPECT_EQ(gfSpreadValue(g.sp, 2, 2), QStringLiteral("1,500")) << "a number stays as written";
}

TEST(SpreadTest, comboAndCheckCellsReadBackThroughValue) {
    Grid g;
    gsSpreadColumn(g.sp, 5, QStringLiteral("구분"), SpreadCombo, 8, 0, QStringLiteral("L"), 0, 0,
                   false, 0, 0, 0, {}, {}, {}, QStringLiteral("동복\t하복\t공통"));
    gsSpreadColumn(g.sp, 6, QStringLiteral("□"), SpreadCheck, 4);
    gsSpreadSetText(g.sp, 1, 5, QStringLiteral("하복"));
    EXPECT_EQ(gfSpreadValue(g.sp, 1, 5), QStringLiteral("1")); // index into the code array
    EXPECT_EQ(gfSpreadText(g.sp, 1, 5), QStringLiteral("하복"));
    EXPECT_EQ(gfSpreadCellText(g.sp, 2, 5, false), QStringLiteral("-1"));
    gsSpreadSetValue(g.sp, 2, 5, QStringLiteral("2"));
    EXPECT_EQ(gfSpreadText(g.sp, 2, 5), QStringLiteral("공통"));

    EXPECT_EQ(gfSpreadValue(g.sp, 1, 6), QStringLiteral("0"));
    gsSpreadSetText(g.sp, 2, 6, QStringLiteral("1"));
    EXPECT_EQ(gfSpreadValue(g.sp, 2, 6), QStringLiteral("1"));

    // The user's click on a check cell goes through the model and is announced.
    int changes = 0;
    QObject::connect(g.sp, &Spread::changed, [&](int row, int col) {
        EXPECT_EQ(row, 1);
        EXPECT_EQ(col, 6);
        ++changes;
    });
    SpreadModel* m = g.sp->model();
    ASSERT_TRUE(m->setData(m->index(m->toModelRow(1), 6), Qt::Checked, Qt::CheckStateRole));
    EXPECT_EQ(gfSpreadValue(g.sp, 1, 6), QStringLiteral("1"));
    EXPECT_EQ(changes, 1);
    g.sp->setLocked(1, 6, true);
    EXPECT_FALSE(m->setData(m->index(m->toModelRow(1), 6), Qt::Unchecked, Qt::CheckStateRole));
}

TEST(SpreadTest, findRowMakesTheCellActiveAndIsCaseSensitive) {
    Grid g;
    EXPECT_EQ(gfSpreadFindRow(g.sp, 1, QStringLiteral("A")), 0) << "empty grid";
    gsSpreadSetText(g.sp, 1, 1, QStringLiteral("a"));
    gsSpreadSetText(g.sp, 2, 1, QStringLiteral("A"));
    EXPECT_EQ(gfSpreadFindRow(g.sp, 1, QStringLiteral("A")), 2);
    EXPECT_EQ(g.sp->activeRow(), 2);
    EXPECT_EQ(g.sp->activeCol(), 1);
    EXPECT_EQ(gfSpreadFindRow(g.sp, 1, QStringLiteral("b")), 0);
}

TEST(SpreadTest, rowsGrowAndShrinkAndDataRowCntFollowsTheLastFilledRow) {
    Grid g;
    g.sp->setRedraw(false);
    g.sp->setMaxRows(0);
    for (int i = 1; i <= 5; ++i) {
        g.sp->setMaxRows(g.sp->maxRows() + 1);
        gsSpreadSetText(g.sp, i, 2, QStringLiteral("r%1").arg(i));
    }
    g.sp->setMaxRows(8);
    g.sp->setRedraw(true);
    EXPECT_EQ(g.sp->maxRows(), 8);
    EXPECT_EQ(g.sp->dataRowCnt(), 5);
    EXPECT_EQ(g.sp->view()->model()->rowCount(), 2 + 8);
    g.sp->setMaxRows(0);
    EXPECT_EQ(g.sp->dataRowCnt(), 0);
    g.sp->setMaxRows(2);
    EXPECT_EQ(gfSpreadText(g.sp, 1, 2), QString()) << "cleared rows come back empty";
}

TEST(SpreadTest, colourRoutinesAndFreezing) {
    Grid g;
    gsSpreadFreezeCols(g.sp, 0);
    EXPECT_EQ(g.sp->frozenCols(), 0);
    EXPECT_EQ(g.sp->model()->backColor(1, 1), kSpreadNoColor);

    gsSpreadFreezeCols(g.sp, 2);
    EXPECT_EQ(g.sp->frozenCols(), 2);
    EXPECT_EQ(g.sp->model()->backColor(1, 2), kSpreadFrozenBack);
    EXPECT_EQ(g.sp->model()->backColor(1, 3), kSpreadNoColor);
    g.sp->setMaxRows(10);
    EXPECT_EQ(g.sp->model()->backColor(10, 1), kSpreadFrozenBack) << "new rows keep the band";

    gsSpreadRangeBackColor(g.sp, 2, 3, 4, 0xC0FFFF);
    EXPECT_EQ(g.sp->model()->backColor(2, 3), 0xC0FFFFu);
    EXPECT_EQ(g.sp->model()->backColor(2, 2), kSpreadFrozenBack);
    gsSpreadRowForeColor(g.sp, -1, kSpreadRed);
    EXPECT_EQ(g.sp->model()->foreColor(7, 4), kSpreadRed);
    gsSpreadFreezeRows(g.sp, 1);
    EXPECT_EQ(g.sp->frozenRows(), 1);
    EXPECT_EQ(g.sp->model()->backColor(1, 4), kSpreadFrozenBack);
}

TEST(SpreadTest, frozenRowsStayGreyForRowsAddedLaterAndARefill) {
    Spread grid;
    gsSpreadInit(&grid, QStringLiteral("굴림체"), 10, 18, 18, 0, 0xC0C0C0, 3, false, false);
    gsSpreadColumn(&grid, 1, QStringLiteral("코드"), SpreadEdit, 6);
    gsSpreadColumn(&grid, 2, QStringLiteral("이름"), SpreadEdit, 10);
    gsSpreadFreezeRows(&grid, 2); // before the grid has a row
    grid.setMaxRows(3);
    EXPECT_EQ(grid.model()->backColor(2, 2), kSpreadFrozenBack);
    EXPECT_EQ(grid.model()->backColor(3, 2), kSpreadNoColor);
    grid.setMaxRows(0); // a list filled again
    grid.setMaxRows(5);
    EXPECT_EQ(grid.model()->backColor(1, 1), kSpreadFrozenBack);
    EXPECT_EQ(grid.model()->data(grid.model()->index(grid.headRows(), 1), Qt::BackgroundRole),
              QVariant(QColor(0xF7, 0xF7, 0xF7)));
    gsSpreadFreezeRows(&grid, 0);
    EXPECT_EQ(grid.model()->backColor(1, 1), kSpreadNoColor);
}

TEST(SpreadTest, cellsAreWhiteOnTheButtonFaceAndTheSecondHeadingRowTakesTheHeight) {
    Spread grid;
    gsSpreadInit(&grid, QStringLiteral("굴림체"), 10, 30, 18, 0, 0xC0C0C0, 3, false, false);
    gsSpreadColumn(&grid, 1, QStringLiteral("코드"), SpreadEdit, 6);
    grid.setMaxRows(1);
    grid.resize(300, 300);
    grid.show();
    QApplication::processEvents();
    QTableView* view = grid.view();
    EXPECT_EQ(view->rowHeight(0), 40); // one heading row: the height passed (30 points)
    const QImage image = view->viewport()->grab().toImage();
    const double scale = image.devicePixelRatio();
    const auto at = [&](int x, int y) {
        return image.pixelColor(QPoint(int(x * scale), int(y * scale)));
    };
    const QRect cell = view->visualRect(grid.model()->index(1, 1));
    EXPECT_EQ(at(cell.center().x(), cell.center().y()), QColor(Qt::white));
    const QColor face = QApplication::palette().color(QPalette::Button);
    EXPECT_EQ(at(view->viewport()->width() - 5, view->viewport()->height() - 5), face);

    // Two heading rows: the height goes to the second only.
    gsSpreadInit(&grid, QStringLiteral("굴림체"), 10, 30, 18, 0, 0xC0C0C0, 3, false, false, 2);
    EXPECT_EQ(view->rowHeight(0), 24);
    EXPECT_EQ(view->rowHeight(1), 40);
    EXPECT_EQ(view->rowHeight(2), 24);
}

TEST(SpreadTest, headingMergesJoinAcrossAndDown) {
    Spread grid;
    Spread* sp = &grid;
    gsSpreadInit(sp, QStringLiteral("굴림체"), 10, 18, 18, 0, 0xC0C0C0, 3, false, false, 2);
    const char* top[] = {"매장", "학교", "수량", "수량", "합계"};
    const char* second[] = {"매장", "학교", "동복", "하복", "합계"};
    for (int c = 1; c <= 5; ++c) {
        gsSpreadColumn(sp, c, QString::fromUtf8(top[c - 1]), SpreadEdit, 8, 0, QStringLiteral("L"),
                       0);
        gsSpreadColumn(sp, c, QString::fromUtf8(second[c - 1]), SpreadEdit, 8, 0,
                       QStringLiteral("L"), 1);
    }
    gsSpreadRowMerge(sp, 2);
    gsSpreadHeaderColMerge(sp, 1, 2);
    gsSpreadHeaderColMerge(sp, 5, 5);
    sp->updateMerges();
    QTableView* v = sp->view();
    EXPECT_EQ(v->rowSpan(0, 1), 2);
    EXPECT_EQ(v->rowSpan(0, 2), 2);
    EXPECT_EQ(v->columnSpan(0, 3), 2) << "수량 over 동복 and 하복";
    EXPECT_EQ(v->rowSpan(0, 3), 1);
    EXPECT_EQ(v->rowSpan(0, 5), 2) << "a column of its own merges down";
    EXPECT_EQ(v->columnSpan(1, 3), 1);
}

TEST(SpreadTest, columnMergeIsRestrictedByTheColumnOnItsLeft) {
    Grid g;
    g.sp->setMaxRows(4);
    const char* school[] = {"가", "가", "나", "나"};
    const char* sex[] = {"남", "남", "남", "여"};
    for (int r = 1; r <= 4; ++r) {
        gsSpreadSetText(g.sp, r, 1, QString::fromUtf8(school[r - 1]));
        gsSpreadSetText(g.sp, r, 2, QString::fromUtf8(sex[r - 1]));
    }
    gsSpreadColMerge(g.sp, 1, 2);
    g.sp->updateMerges();
    QTableView* v = g.sp->view();
    const int first = g.sp->model()->toModelRow(1);
    EXPECT_EQ(v->rowSpan(first, 1), 2);
    EXPECT_EQ(v->rowSpan(first + 2, 1), 2);
    EXPECT_EQ(v->rowSpan(first, 2), 2);
    EXPECT_EQ(v->rowSpan(first + 1, 2), 2);
    // Row 3's 남 equals row 2's but belongs to another school.
    EXPECT_EQ(v->rowSpan(first + 2, 2), 1);
}

TEST(SpreadTest, pasteFillsFromTheActiveCellAndGrowsTheGrid) {
    Grid g;
    g.sp->setPasteAddsRows(true);
    gsSpreadColumn(g.sp, 5, QStringLiteral("잠김"), SpreadEdit, 5);
    g.sp->setLocked(-1, 5, true);
    g.sp->setActiveCell(2, 1);
    QApplication::clipboard()->setText(QStringLiteral(
        "1\t김철수\t15000\t2024-03-01\tx\textra\r\n2\t\"이\t영희\"\t-200\t\t\t\r\n3\t박\t0\n"));
    QTest::keyClick(g.sp->view(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(g.sp->maxRows(), 4);
    EXPECT_EQ(gfSpreadText(g.sp, 2, 2), QStringLiteral("김철수"));
    EXPECT_EQ(gfSpreadText(g.sp, 3, 2), QStringLiteral("이\t영희"));
    EXPECT_EQ(gfSpreadText(g.sp, 2, 3), QStringLiteral("15,000"));
    EXPECT_EQ(gfSpreadText(g.sp, 2, 4), QStringLiteral("2024/03/01"));
    EXPECT_EQ(gfSpreadText(g.sp, 2, 5), QString()) << "locked cells take nothing";
    EXPECT_EQ(gfSpreadText(g.sp, 4, 2), QStringLiteral("박"));
    EXPECT_EQ(g.sp->dataRowCnt(), 4);

    g.sp->setRowMode(false);
    g.sp->view()->selectionModel()->select(
        QItemSelection(g.sp->model()->index(g.sp->model()->toModelRow(2), 1),
                       g.sp->model()->index(g.sp->model()->toModelRow(3), 2)),
        QItemSelectionModel::ClearAndSelect);
    EXPECT_EQ(g.sp->copyText(), QStringLiteral("1\t김철수\n2\t이\t영희\n"));
}

TEST(SpreadTest, typingReplacesAndEnterMovesToTheNextCell) {
    Grid g;
    g.sp->resize(500, 300);
    g.sp->show();
    gsSpreadSetText(g.sp, 1, 2, QStringLiteral("old"));
    g.sp->setActiveCell(1, 2);
    QTest::keyClick(g.sp->view(), Qt::Key_N);
    auto* editor = g.sp->view()->findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    QTest::keyClicks(editor, QStringLiteral("ew"));
    QTest::keyClick(editor, Qt::Key_Return);
    QApplication::processEvents();
    EXPECT_EQ(gfSpreadText(g.sp, 1, 2), QStringLiteral("new"));
    EXPECT_EQ(g.sp->activeRow(), 1);
    EXPECT_EQ(g.sp->activeCol(), 3);

    g.sp->setReadOnly(true);
    QTest::keyClicks(g.sp->view(), QStringLiteral("9"));
    QApplication::processEvents();
    EXPECT_EQ(gfSpreadText(g.sp, 1, 3), QString());
}

TEST(SpreadTest, headingClickSortsWhereTheScreenAsks) {
    Grid g;
    const char* amounts[] = {"300", "1000", "20"};
    for (int r = 1; r <= 3; ++r) {
        gsSpreadSetValue(g.sp, r, 3, QString::fromLatin1(amounts[r - 1]));
        gsSpreadSetText(g.sp, r, 1, QString::number(r));
    }
    g.sp->sort(3, true);
    EXPECT_EQ(gfSpreadText(g.sp, 1, 1), QStringLiteral("3"));
    EXPECT_EQ(gfSpreadText(g.sp, 3, 1), QStringLiteral("2")) << "numbers sort as numbers";
    g.sp->setSortOnHeadingClick(true);
    emit g.sp->view()->clicked(g.sp->model()->index(0, 3));
    emit g.sp->view()->clicked(g.sp->model()->index(0, 3));
    EXPECT_EQ(gfSpreadText(g.sp, 1, 1), QStringLiteral("2")) << "second click descends";
}

TEST(SpreadTest, modelPassesTheItemModelTester) {
    Grid g;
    QAbstractItemModelTester tester(g.sp->model(),
                                    QAbstractItemModelTester::FailureReportingMode::Fatal);
    g.sp->setMaxRows(5);
    gsSpreadSetText(g.sp, 5, 2, QStringLiteral("x"));
    g.sp->setMaxCols(6);
    g.sp->setRedraw(false);
    g.sp->setMaxRows(50);
    g.sp->setRedraw(true);
    g.sp->sort(2, false);
    g.sp->setMaxCols(3);
    g.sp->setMaxRows(0);
    EXPECT_EQ(g.sp->model()->rowCount(), 2);
}

// A demo grid as the stock screens build it, painted offscreen: two merged heading rows, three
// frozen columns, a red negative, a combo and a check cell. The picture goes to the temp folder.
TEST(SpreadTest, paintsADemoGrid) {
    Spread grid;
    Spread* sp = &grid;
    gsSpreadInit(sp, QStringLiteral("굴림체"), 10, 18, 18, 0, 0xC0C0C0, 3, true, false, 2);
    const char* top[] = {"학교", "성별", "복종", "수량", "수량", "수량", "구분", "선택", "비고"};
    const char* second[] = {"학교", "성별", "복종", "90", "95", "100", "구분", "선택", "비고"};
    const int types[] = {SpreadEdit,  SpreadEdit,  SpreadEdit,  SpreadFloat, SpreadFloat,
                         SpreadFloat, SpreadCombo, SpreadCheck, SpreadEdit};
    for (int c = 1; c <= 9; ++c) {
        for (int h = 0; h < 2; ++h) {
            gsSpreadColumn(sp, c, QString::fromUtf8(h == 0 ? top[c - 1] : second[c - 1]),
                           types[c - 1], c == 1 ? 12 : 7, 0, QStringLiteral("M"), h, 0, false,
                           99999999, -99999999, 0, {}, {}, {}, QStringLiteral("동복\t하복"));
        }
    }
    gsSpreadRowMerge(sp, 2);
    gsSpreadHeaderColMerge(sp, 1, 3);
    gsSpreadHeaderColMerge(sp, 7, 9);
    sp->setRedraw(false);
    const char* schools[] = {"한국중학교", "한국중학교", "서울고등학교", "서울고등학교"};
    for (int r = 1; r <= 12; ++r) {
        sp->setMaxRows(r);
        gsSpreadSetText(sp, r, 1, QString::fromUtf8(schools[qMin(r - 1, 3)]));
        gsSpreadSetText(sp, r, 2, r % 2 ? QStringLiteral("남") : QStringLiteral("여"));
        gsSpreadSetText(sp, r, 3, QStringLiteral("자켓"));
        gsSpreadSetText(sp, r, 4, QString::number(r * 3 - 8), kSpreadRed, {}, QStringLiteral("N"));
        gsSpreadSetText(sp, r, 5, QString::number(r * 1250 - 3000), kSpreadRed, {},
                        QStringLiteral("N"));
        gsSpreadSetValue(sp, r, 7, QString::number(r % 2));
        gsSpreadSetText(sp, r, 8, r % 3 ? QStringLiteral("0") : QStringLiteral("1"));
        gsSpreadSetText(sp, r, 9, QStringLiteral("비고 %1").arg(r));
    }
    sp->setRedraw(true);
    gsSpreadColMerge(sp, 1, 1);
    gsSpreadFreezeCols(sp, 3);
    sp->resize(520, 300);
    sp->show();
    sp->view()->horizontalScrollBar()->setValue(30);
    QApplication::processEvents();
    const QImage image = sp->grab().toImage();
    ASSERT_FALSE(image.isNull());
    image.save(QDir::temp().filePath(QStringLiteral("spread_demo.png")));
    // The frozen band stays put while the rest scrolls: column 1's grey is still at the left.
    const QColor left = image.pixelColor(60, 140);
    EXPECT_EQ(left, spreadColor(kSpreadFrozenBack)) << left.name().toStdString();
}
