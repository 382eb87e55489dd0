// The compact cell storage under the grid: every kind of text comes back as written, through
// overwrites, cuts, sorts and the pool's compaction, and colours through the palette's rebuild.
#include "grid/spreadroutines.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace {

// Texts of every length class: empty, inline Latin-1 up to 8, pooled Latin-1, inline other up
// to 4 (a surrogate pair counts 2), pooled other, and Latin-1 letters beyond ASCII.
const QStringList& samples() {
    static const QStringList texts = {
        QString(),
        QStringLiteral("7"),
        QStringLiteral("20240315"),
        QStringLiteral("123456789"),
        QStringLiteral("-1,234,567.50"),
        QStringLiteral("자켓"),
        QStringLiteral("동복자켓"),
        QStringLiteral("동복 자켓12"),
        QStringLiteral("😀😀"),
        QStringLiteral("😀😀😀"),
        QStringLiteral("Café crème"),
        QStringLiteral("a\tb\nc"),
        QString(300, QChar(u'가')),
        QString(300, QLatin1Char('x')),
    };
    return texts;
}

void makeList(Spread* sp, int rows, int cols) {
    gsSpreadInit(sp, QStringLiteral("굴림체"), 10, 18, 18, 0, 0xC0C0C0, 3, true, false, 1);
    for (int c = 1; c <= cols; ++c) {
        gsSpreadColumn(sp, c, QStringLiteral("열%1").arg(c), SpreadEdit, 8);
    }
    sp->setMaxRows(rows);
}

QString sample(int row, int col, int round = 0) {
    const QStringList& s = samples();
    return s.at((row * 7 + col * 3 + round) % int(s.size()));
}

} // namespace

TEST(SpreadCells, everyKindOfTextComesBackAsWrittenInDataAndHeadingCells) {
    Spread grid;
    makeList(&grid, int(samples().size()), 2);
    SpreadModel* m = grid.model();
    for (int i = 0; i < samples().size(); ++i) {
        m->setText(i + 1, 1, samples().at(i));
        m->setText(i + 1, 2, samples().at(i) + QStringLiteral("!"));
    }
    m->setText(SpreadModel::kHeadBase, 2, QStringLiteral("동복 자켓 수량"));
    for (int i = 0; i < samples().size(); ++i) {
        EXPECT_EQ(m->raw(i + 1, 1), samples().at(i)) << i;
        EXPECT_EQ(gfSpreadText(&grid, i + 1, 2), samples().at(i) + QStringLiteral("!")) << i;
    }
    EXPECT_EQ(m->raw(SpreadModel::kHeadBase, 2), QStringLiteral("동복 자켓 수량"));
    EXPECT_EQ(m->dataRowCnt(), int(samples().size()));
    // Writing "" empties a cell of any kind, and the last row then stops counting.
    m->setText(int(samples().size()), 1, QString());
    m->setText(int(samples().size()), 2, QString());
    EXPECT_EQ(m->dataRowCnt(), int(samples().size()) - 1);
}

TEST(SpreadCells, overwritesCutsAndRefillsKeepEveryOtherCellThroughTheCompaction) {
    Spread grid;
    const int rows = 300;
    const int cols = 6;
    makeList(&grid, rows, cols);
    SpreadModel* m = grid.model();
    grid.setRedraw(false);
    // Enough rounds of long texts to leave far more garbage than the pool's threshold.
    for (int round = 0; round < 12; ++round) {
        for (int r = 1; r <= rows; ++r) {
            for (int c = 1; c <= cols; ++c) {
                if ((r + c + round) % 3 != 0) {
                    m->setText(r, c, sample(r, c, round));
                }
            }
        }
    }
    grid.setRedraw(true);
    const auto expected = [](int r, int c) {
        for (int round = 11; round >= 0; --round) {
            if ((r + c + round) % 3 != 0) {
                return sample(r, c, round);
            }
        }
        return QString();
    };
    for (int r = 1; r <= rows; ++r) {
        for (int c = 1; c <= cols; ++c) {
            ASSERT_EQ(m->raw(r, c), expected(r, c)) << r << "," << c;
        }
    }

    // Rows and columns cut off come back empty; the rest keeps its texts.
    grid.setMaxRows(rows / 2);
    grid.setMaxCols(cols - 2);
    grid.setMaxRows(rows);
    grid.setMaxCols(cols);
    for (int r = 1; r <= rows; ++r) {
        for (int c = 1; c <= cols; ++c) {
            const bool kept = r <= rows / 2 && c <= cols - 2;
            ASSERT_EQ(m->raw(r, c), kept ? expected(r, c) : QString()) << r << "," << c;
        }
    }

    // A cleared list filled again, as every search does.
    grid.setMaxRows(0);
    grid.setMaxRows(2);
    m->setText(1, 1, QString(200, QChar(u'나')));
    m->setText(2, 1, QStringLiteral("끝"));
    EXPECT_EQ(m->raw(1, 1), QString(200, QChar(u'나')));
    EXPECT_EQ(m->raw(2, 1), QStringLiteral("끝"));
    EXPECT_EQ(m->raw(SpreadModel::kHeadBase, 1), QStringLiteral("열1"));
}

TEST(SpreadCells, sortCarriesTextsColoursAndLocksWithTheirRows) {
    Spread grid;
    makeList(&grid, 4, 2);
    SpreadModel* m = grid.model();
    const QStringList names = {QStringLiteral("라 긴 이름의 학교 셋째"), QStringLiteral("가"),
                               QStringLiteral("다다다다다"), QStringLiteral("나")};
    for (int r = 1; r <= 4; ++r) {
        m->setText(r, 1, names.at(r - 1));
        m->setText(r, 2, QString::number(r));
        m->setForeColor(r, 2, gfRGB(r, 0, 0));
        m->setBackColor(r, 1, gfRGB(0, r, 0));
        m->setLocked(r, 1, r % 2 == 0);
    }
    grid.sort(1, true);
    for (int r = 1; r <= 4; ++r) {
        const int from = m->raw(r, 2).toInt();
        EXPECT_EQ(m->raw(r, 1), names.at(from - 1));
        EXPECT_EQ(m->foreColor(r, 2), gfRGB(from, 0, 0));
        EXPECT_EQ(m->backColor(r, 1), gfRGB(0, from, 0));
        EXPECT_EQ(m->locked(r, 1), from % 2 == 0);
    }
    EXPECT_EQ(m->raw(1, 1), QStringLiteral("가"));
}

TEST(SpreadCells, equalLongTextsMergeAndDifferentOnesOfOneLengthDoNot) {
    Spread grid;
    makeList(&grid, 4, 1);
    SpreadModel* m = grid.model();
    m->setColumnMerge(1, 1);
    m->setText(1, 1, QStringLiteral("하복 블라우스 긴팔"));
    m->setText(2, 1, QStringLiteral("하복 블라우스 긴팔"));
    m->setText(3, 1, QStringLiteral("하복 블라우스 반팔"));
    m->setText(4, 1, QStringLiteral("하복 블라우스 반팔"));
    const std::vector<SpreadModel::Span> spans = m->spans();
    ASSERT_EQ(spans.size(), 2u);
    EXPECT_EQ(spans[0].rows, 2);
    EXPECT_EQ(spans[1].modelRow, spans[0].modelRow + 2);
}

TEST(SpreadCells, coloursSurviveMoreDistinctColoursThanThePaletteHolds) {
    Spread grid;
    makeList(&grid, 2, 2);
    SpreadModel* m = grid.model();
    m->setForeColor(1, 1, kSpreadRed);
    m->setBackColor(2, 2, 0); // black back, not "none"
    // One cell takes 70,000 colours in turn: the palette fills and is rebuilt from the cells.
    for (quint32 bgr = 1; bgr <= 70000; ++bgr) {
        m->setForeColor(2, 1, bgr);
        ASSERT_EQ(m->foreColor(2, 1), bgr);
    }
    m->setBackColor(1, 2, 0x123456);
    EXPECT_EQ(m->foreColor(1, 1), kSpreadRed);
    EXPECT_EQ(m->backColor(2, 2), 0u);
    EXPECT_EQ(m->backColor(1, 2), 0x123456u);
    EXPECT_EQ(m->backColor(1, 1), kSpreadNoColor);
    m->setBackColor(2, 2, kSpreadNoColor);
    EXPECT_EQ(m->backColor(2, 2), kSpreadNoColor);
}
