#include "screens/school/schoolpicklist.h"

#include "data/recordset.h"
#include "grid/rowmove.h"
#include "grid/spread.h"
#include "grid/spreadroutines.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include <tuple>

using namespace Qt::StringLiterals;

namespace {

const QString kCheck = u"CHK"_s;
const QString kCode = u"SCHOOLCD"_s;

} // namespace

GridColumns schoolPickColumns(const QString& checkHeading, double divideWidth, double nameWidth) {
    return GridColumns{
        {kCheck, checkHeading, CellType::Check, 4, Align::Centre},
        {kCode, u"코드"_s, CellType::Static, 0, Align::Centre},
        {u"SCHOOLLEVEL"_s, u"등급"_s, CellType::Static, 5, Align::Centre},
        {u"DIVIDE"_s, u"구분"_s, CellType::Static, divideWidth, Align::Centre},
        {u"SCHOOLNAME"_s, u"학교명"_s, CellType::Static, nameWidth, Align::Left},
    };
}

void fillSchoolPick(Spread* grid, const GridColumns& columns, const RecordSet& rs) {
    columns.fill(grid, rs);
    if (grid->maxRows() < kSchoolPickRows) {
        grid->setMaxRows(kSchoolPickRows);
    }
}

int moveCheckedSchools(Spread* from, Spread* to, const GridColumns& columns) {
    const int code = columns.column(kCode);
    const int below = gfSpreadFilledRows(to, code);
    const int moved =
        gsSpreadMoveMarked(from, to, columns.column(kCheck), code, u"1"_s, kSchoolPickRows);
    // A moved school arrives unchecked: a second move must be asked for anew.
    for (int row = below + 1; row <= below + moved; ++row) {
        columns.setValue(to, row, kCheck, u"0"_s);
    }
    return moved;
}

QStringList pickedSchoolCodes(const Spread* grid, const GridColumns& columns) {
    QStringList codes;
    for (int row = 1; row <= grid->maxRows(); ++row) {
        const QString code = columns.value(grid, row, kCode).trimmed();
        if (!code.isEmpty()) {
            codes.append(code);
        }
    }
    return codes;
}

namespace {

QGroupBox* schoolPickBox(QWidget* parent, const QString& name, const QString& caption,
                         const GridColumns& columns, int minWidth, Spread*& grid) {
    grid = new Spread(parent);
    grid->setObjectName(name);
    gsSpreadInit(grid, u"굴림체"_s, 10, 18, 18, 0, 0xC0C0C0, 2, true, false);
    columns.setUp(grid);
    grid->setLocked(-1, -1, true);
    grid->setLocked(-1, columns.column(kCheck), false);
    grid->setMaxRows(kSchoolPickRows);
    grid->setMinimumWidth(minWidth);
    gsSpreadCheckAllOnHeading(grid, columns.column(kCheck), columns.column(kCode));
    auto* box = new QGroupBox(caption, parent);
    (new QVBoxLayout(box))->addWidget(grid);
    return box;
}

} // namespace

QHBoxLayout* schoolPickPair(QWidget* parent, const GridColumns& columns, int minWidth,
                            Spread*& assigned, Spread*& notAssigned,
                            const std::function<void()>& moveIn,
                            const std::function<void()>& moveOut) {
    QGroupBox* left = schoolPickBox(parent, u"SP2"_s, u"지정학교"_s, columns, minWidth, assigned);
    QGroupBox* right =
        schoolPickBox(parent, u"SP3"_s, u"미지정학교"_s, columns, minWidth, notAssigned);
    auto* moves = new QVBoxLayout;
    moves->addStretch(1);
    for (const auto& [name, caption, run] :
         {std::tuple{u"cmdLeft"_s, u"◀"_s, moveIn}, std::tuple{u"cmdRight"_s, u"▶"_s, moveOut}}) {
        auto* button = new QPushButton(caption, parent);
        button->setObjectName(name);
        button->setAutoDefault(false);
        QObject::connect(button, &QPushButton::clicked, parent, run);
        moves->addWidget(button);
    }
    moves->addStretch(1);
    auto* pair = new QHBoxLayout;
    pair->addWidget(left, 1);
    pair->addLayout(moves);
    pair->addWidget(right, 1);
    return pair;
}
