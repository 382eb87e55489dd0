#pragma once

#include "data/sizelabels.h"
#include "grid/linegrid.h"

// SP3 of BAMAS320, shared by the screen's load and its save: two names (school and item, in
// the order of the command that loaded them), the line's hidden codes, year label, caption,
// total and the 24 sizes.
enum TransferCol {
    TrnFirstName = 1,
    TrnSecondName,
    TrnSchoolCd,
    TrnSudivide,
    TrnCdKey,
    TrnUniformCd,
    TrnYear,
    TrnCaption,
    TrnTotal,
    TrnFirstSize,
    TrnLastSize = TrnFirstSize + kSizePositions - 1,
};

// Four rows a line: the size labels on a coloured band, the sender's stock, what goes out
// (typed), and what remains (red below zero).
inline LineGridLayout transferEntryLayout() {
    constexpr quint32 kLabelBand = 0xC0FFFF;
    constexpr quint32 kEntryBack = 0xC0FFC0;
    return LineGridLayout{{{LineRow::Labels, false, kLabelBand},
                           {LineRow::Stock, false},
                           {LineRow::Outgoing, true, kEntryBack},
                           {LineRow::Remaining, false}},
                          TrnFirstSize,
                          TrnTotal,
                          TrnCaption,
                          TrnYear,
                          0,
                          LineDifference{LineRow::Remaining, LineRow::Stock, LineRow::Outgoing}};
}
