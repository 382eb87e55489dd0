#include "grid/linegrid.h"
#include "grid/spread.h"
#include "grid/spreadroutines.h"

#include <gtest/gtest.h>

namespace {

// The transfer's shape: labels, stock (read), outgoing (typed), remaining; caption 2, total 3,
// sizes from 4.
struct Transfer {
    Spread grid;
    LineGrid lines{&grid, LineGridLayout{{{LineRow::Labels, false, 0xC0FFC0},
                                          {LineRow::Stock, false},
                                          {LineRow::Outgoing, true},
                                          {LineRow::Remaining, false}},
                                         4,
                                         3,
                                         2,
                                         0,
                                         0,
                                         LineDifference{LineRow::Remaining, LineRow::Stock,
                                                        LineRow::Outgoing}}};
    Transfer() {
        gsSpreadInit(&grid, QStringLiteral("굴림체"), 10, 18, 18, 0, 0xC0C0C0, 3, false, false);
        grid.setMaxCols(27);
        grid.setLocked(-1, -1, true);
    }
};

} // namespace

TEST(LineGridTest, rolesCaptionsLocksAndColoursFollowTheLayout) {
    Transfer t;
    EXPECT_EQ(t.lines.addLine(), 0);
    EXPECT_EQ(t.lines.addLine(), 1);
    t.lines.setLabels(1, {QStringLiteral("90"), QStringLiteral("95"), QString()});
    EXPECT_EQ(t.grid.maxRows(), 8);
    EXPECT_EQ(t.lines.row(1, LineRow::Outgoing), 7);
    EXPECT_EQ(t.lines.row(1, LineRow::Balance), 0);
    EXPECT_EQ(t.lines.lineOf(7), 1);
    EXPECT_EQ(t.lines.roleOf(8), LineRow::Remaining);
    EXPECT_EQ(gfSpreadText(&t.grid, 6, 2), QStringLiteral("재고"));
    EXPECT_EQ(gfSpreadText(&t.grid, 8, 2), QStringLiteral("잔량"));
    EXPECT_EQ(gfSpreadText(&t.grid, 5, 5), QStringLiteral("95"));
    EXPECT_EQ(t.grid.model()->backColor(5, 27), 0xC0FFC0u);
    EXPECT_EQ(t.grid.model()->backColor(6, 4), kSpreadNoColor);
    EXPECT_FALSE(t.grid.isLocked(7, 5));
    EXPECT_TRUE(t.grid.isLocked(7, 6)); // no label: no input
    EXPECT_TRUE(t.grid.isLocked(6, 4));
    EXPECT_FALSE(t.grid.isLocked(3, 20)); // a line without labels takes every position
}

TEST(LineGridTest, recomputeDerivesTheRowAndSumsEachOne) {
    Transfer t;
    t.lines.addLine();
    t.lines.setLabels(0, {QStringLiteral("90"), QStringLiteral("95"), QStringLiteral("100")});
    t.lines.setQuantity(0, LineRow::Stock, 1, 3);
    t.lines.setQuantity(0, LineRow::Stock, 2, 1200);
    gsSpreadSetText(&t.grid, 3, 4, QStringLiteral("5"));
    gsSpreadSetText(&t.grid, 3, 5, QStringLiteral("1,000"));
    gsSpreadSetText(&t.grid, 3, 6, QStringLiteral("0"));
    t.lines.recompute();
    EXPECT_EQ(gfSpreadText(&t.grid, 4, 4), QStringLiteral("-2"));
    EXPECT_EQ(t.grid.model()->foreColor(4, 4), kSpreadRed);
    EXPECT_EQ(gfSpreadText(&t.grid, 4, 5), QStringLiteral("200"));
    EXPECT_EQ(gfSpreadText(&t.grid, 4, 6), QString()); // zero shows empty
    EXPECT_EQ(gfSpreadText(&t.grid, 3, 6), QString());
    EXPECT_EQ(gfSpreadText(&t.grid, 2, 3), QStringLiteral("1,203"));
    EXPECT_EQ(gfSpreadText(&t.grid, 3, 3), QStringLiteral("1,005"));
    EXPECT_EQ(t.lines.total(0, LineRow::Remaining), 198);
    EXPECT_EQ(gfSpreadText(&t.grid, 1, 3), QString()); // the label row has no sum
    EXPECT_FALSE(t.lines.isBlank(0, LineRow::Outgoing));
}

TEST(LineGridTest, badQuantitiesAreFoundAndKeptAsTyped) {
    Transfer t;
    t.lines.addLine();
    gsSpreadSetText(&t.grid, 3, 4, QStringLiteral("-1"));
    EXPECT_FALSE(t.lines.findBadQuantity(true).has_value());
    auto bad = t.lines.findBadQuantity(false);
    ASSERT_TRUE(bad.has_value());
    EXPECT_EQ(bad->row, 3);
    EXPECT_EQ(bad->position, 1);
    for (const char* text : {"1.5", "abc", "1e3", "3-"}) {
        gsSpreadSetText(&t.grid, 3, 4, QString::fromLatin1(text));
        t.lines.recompute();
        EXPECT_EQ(gfSpreadText(&t.grid, 3, 4), QString::fromLatin1(text));
        bad = t.lines.findBadQuantity(true);
        ASSERT_TRUE(bad.has_value()) << text;
        EXPECT_EQ(bad->text, QString::fromLatin1(text));
    }
    // The correction row keeps a typed 0 apart from an empty cell.
    Spread grid;
    gsSpreadInit(&grid, QStringLiteral("굴림체"), 10, 18, 18, 0, 0xC0C0C0, 3, false, false);
    grid.setMaxCols(26);
    LineGrid count(&grid, LineGridLayout{{{LineRow::Stock, false},
                                          {LineRow::Correction, true, kSpreadNoColor, true}},
                                         3,
                                         2,
                                         1,
                                         0,
                                         0,
                                         std::nullopt});
    count.addLine();
    gsSpreadSetText(&grid, 2, 3, QStringLiteral("0"));
    count.recompute();
    EXPECT_EQ(gfSpreadText(&grid, 2, 3), QStringLiteral("0"));
    EXPECT_TRUE(count.cellText(0, LineRow::Correction, 2).isEmpty());
    EXPECT_EQ(gfSpreadText(&grid, 2, 1), QStringLiteral("보정"));
}
