// Typed grid columns: set up, filled by field name, codes shown by name and read back as codes.
#include "data/recordset.h"
#include "grid/gridcolumns.h"
#include "grid/spread.h"
#include "grid/spreadroutines.h"

#include <QTableView>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const GridColumns kColumns{
    {u"CODE"_s, u"코드"_s, CellType::Static, 4, Align::Centre},
    {u"USEYN"_s, u"운영"_s, CellType::Static, 5, Align::Centre, {{{u"Y"_s, u"개점"_s}}, u"휴점"_s}},
    {u"QTY"_s, u"수량"_s, CellType::Float, 6, Align::Right, {}, 0, true, true},
    {u"NOTE"_s, u"비고"_s, CellType::Static, 0},
};

RecordSet records() {
    // The select names its fields in another order than the grid's, and has one it does not use.
    RecordSet rs({u"NOTE"_s, u"QTY"_s, u"EXTRA"_s, u"useyn"_s, u"CODE"_s});
    rs.appendRow({u" 앞뒤 공백 "_s, u"-3"_s, u"x"_s, u"Y"_s, u"01"_s});
    rs.appendRow({QString(), u"0"_s, u"x"_s, u"N"_s, u"02"_s});
    rs.appendRow({u"s"_s, u"1200"_s, u"x"_s, u"?"_s, u"10"_s});
    return rs;
}

} // namespace

TEST(GridColumnsTest, fillsByFieldNameShowsCodesByNameAndReadsBackTheStoredValue) {
    Spread grid;
    gsSpreadInit(&grid);
    kColumns.setUp(&grid);
    EXPECT_EQ(grid.maxCols(), 4);
    EXPECT_EQ(gfSpreadText(&grid, -1000, 2), u"운영"_s);
    EXPECT_EQ(grid.columnWidth(4), 0.0); // hidden: it carries a value
    EXPECT_EQ(kColumns.column(u"qty"_s), 3);
    EXPECT_EQ(kColumns.column(u"EXTRA"_s), 0);

    ASSERT_EQ(kColumns.fill(&grid, records()), 3);
    EXPECT_EQ(gfSpreadText(&grid, 1, 1), u"01"_s);
    EXPECT_EQ(gfSpreadText(&grid, 1, 2), u"개점"_s);
    EXPECT_EQ(gfSpreadText(&grid, 2, 2), u"휴점"_s);
    EXPECT_EQ(gfSpreadText(&grid, 3, 2), u"휴점"_s); // any other code
    EXPECT_EQ(kColumns.value(&grid, 2, u"USEYN"_s), u"N"_s);
    EXPECT_EQ(kColumns.value(&grid, 3, u"USEYN"_s), u"?"_s);
    EXPECT_EQ(kColumns.value(&grid, 1, u"NOTE"_s), u" 앞뒤 공백 "_s); // as stored, blanks kept
    EXPECT_EQ(gfSpreadText(&grid, 3, 3), u"1,200"_s);
    EXPECT_EQ(gfSpreadText(&grid, 2, 3), QString()); // a quantity of 0 shows empty
    EXPECT_EQ(grid.model()->foreColor(1, 3), kSpreadRed);
    EXPECT_EQ(grid.model()->foreColor(3, 3), 0u);

    // A refill replaces the rows; an empty set leaves none.
    EXPECT_EQ(kColumns.fill(&grid, RecordSet({u"CODE"_s})), 0);
    EXPECT_EQ(grid.maxRows(), 0);
}

TEST(GridColumnsTest, aHeadingClickSortsNumbersFirstByValueThenTexts) {
    Spread grid;
    gsSpreadInit(&grid);
    const GridColumns columns{{u"SIZE"_s, u"사이즈"_s, CellType::Static, 6}};
    columns.setUp(&grid);
    RecordSet rs({u"SIZE"_s});
    for (const char* size : {"L", "100", "95", "FREE", "110", "-5"}) {
        rs.appendRow({QString::fromLatin1(size)});
    }
    columns.fill(&grid, rs);
    grid.setSortOnHeadingClick(true);
    grid.resize(300, 300);
    grid.show();
    QTableView* view = grid.view();
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {},
                      view->visualRect(view->model()->index(0, 1)).center());
    QStringList order;
    for (int row = 1; row <= grid.maxRows(); ++row) {
        order << gfSpreadText(&grid, row, 1);
    }
    EXPECT_EQ(order, (QStringList{u"-5"_s, u"95"_s, u"100"_s, u"110"_s, u"FREE"_s, u"L"_s}));
}
