// What a user can put into an edit cell: typed or pasted, never more bytes than its column
// holds, and never rows a grid of fixed rows does not have.
#include "userinput.h"

#include "grid/gridcolumns.h"
#include "grid/inputhelpers.h"
#include "grid/spread.h"
#include "grid/spreadroutines.h"

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QTableView>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

// Two size labels of C_BRANDSIZE (10 bytes each) and a free note without a table width.
struct LabelGrid {
    GridColumns columns{std::vector<GridColumn>{
                            {u"SIZETAB"_s, u"탭"_s, CellType::Static, 3},
                            {u"C01"_s, u"1"_s, CellType::Edit, 8},
                            {u"C02"_s, u"2"_s, CellType::Edit, 8},
                            {u"NOTE"_s, u"비고"_s, CellType::Edit, 8},
                        },
                        u"C_BRANDSIZE"_s};
    Spread grid;
    LabelGrid() {
        gsSpreadInit(&grid, u"굴림체"_s, 10, 18, 18, 0, 0xC0C0C0, 3, false, false);
        columns.setUp(&grid);
        grid.setMaxRows(2);
        grid.resize(600, 200);
        grid.show();
        QApplication::processEvents();
    }
    QString cell(int row, const QString& field) { return columns.value(&grid, row, field); }
};

} // namespace

TEST(GridEditing, aCellEditorCountsBytesAgainstTheColumn) {
    LabelGrid g;
    EXPECT_EQ(g.columns.at(2).bytes, 10); // from the schema
    typeIntoCell(&g.grid, 1, 2, u"A"_s);
    typeText(QApplication::focusWidget(), u"가나다라마바사아자차"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QApplication::processEvents();
    EXPECT_EQ(g.cell(1, u"C01"_s), u"A가나다라"_s);
    EXPECT_EQ(gfByteLen(g.cell(1, u"C01"_s)), 9);

    typeIntoCell(&g.grid, 2, 4, u"free text longer than ten"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QApplication::processEvents();
    EXPECT_EQ(g.cell(2, u"NOTE"_s), u"free text longer than ten"_s); // no width, no limit
}

TEST(GridEditing, aPasteIsCutToTheColumnsBytesAndAddsNoRows) {
    LabelGrid g;
    clickCell(&g.grid, 2, 2);
    QApplication::clipboard()->setText(
        u"가나다라마바사아자차\tABCDEFGHIJKLMNOP\n95\t100\n105\t110\n"_s);
    QTest::keyClick(g.grid.view(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(g.grid.maxRows(), 2);
    EXPECT_EQ(g.cell(2, u"C01"_s), u"가나다라마"_s);
    EXPECT_EQ(g.cell(2, u"C02"_s), u"ABCDEFGHIJ"_s);

    // A grid that takes new rows (an entry list) grows, each cell still cut.
    g.grid.setPasteAddsRows(true);
    QTest::keyClick(g.grid.view(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(g.grid.maxRows(), 4);
    EXPECT_EQ(g.cell(4, u"C02"_s), u"110"_s);
    EXPECT_EQ(gfByteCut(u"가😀"_s, 3), u"가"_s); // a character outside the page is never halved
}

TEST(GridEditing, aStrayQuoteIsACharacterAndSwallowsNoRowAfterIt) {
    LabelGrid g;
    g.grid.setPasteAddsRows(true);
    clickCell(&g.grid, 1, 2);
    // Cells that begin with a quote that nothing closes, then a quoted cell with a doubled quote,
    // a tab and a line break inside, as spreadsheets copy it.
    QApplication::clipboard()->setText(u"\"95\t100\n\"A\tB\n\"x\"\"y\tz\nw\"\t7\n8\t\"\n"_s);
    QTest::keyClick(g.grid.view(), Qt::Key_V, Qt::ControlModifier);
    ASSERT_EQ(g.grid.maxRows(), 4);
    EXPECT_EQ(g.cell(1, u"C01"_s), u"\"95"_s);
    EXPECT_EQ(g.cell(1, u"C02"_s), u"100"_s);
    EXPECT_EQ(g.cell(2, u"C01"_s), u"\"A"_s);
    EXPECT_EQ(g.cell(2, u"C02"_s), u"B"_s);
    EXPECT_EQ(g.cell(3, u"C01"_s), u"x\"y\tz\nw"_s);
    EXPECT_EQ(g.cell(3, u"C02"_s), u"7"_s);
    EXPECT_EQ(g.cell(4, u"C01"_s), u"8"_s);
    EXPECT_EQ(g.cell(4, u"C02"_s), u"\""_s); // a lone quote at the very end
}

TEST(GridEditing, aKoreanCompositionOnAClosedCellReachesItsEditorWhole) {
    LabelGrid g;
    clickCell(&g.grid, 1, 4);
    QTableView* view = g.grid.view();
    // The input method composes on the view, whose cell has no editor yet, and commits there:
    // the composition opens the editor, and nothing of it is lost on the way.
    const auto compose = [view](const QString& preedit, const QString& commit) {
        QInputMethodEvent event(preedit, {});
        event.setCommitString(commit);
        QApplication::sendEvent(view, &event);
        QApplication::processEvents();
    };
    compose(u"ㅎ"_s, QString());
    compose(u"하"_s, QString());
    compose(u"한"_s, QString());
    compose(u"ㄱ"_s, u"한"_s);
    compose(QString(), u"글"_s);
    QWidget* editor = QApplication::focusWidget();
    ASSERT_NE(editor, view);
    QTest::keyClicks(editor, u"7"_s);
    QTest::keyClick(editor, Qt::Key_Return);
    QApplication::processEvents();
    EXPECT_EQ(g.cell(1, u"NOTE"_s), u"한글7"_s);
}
