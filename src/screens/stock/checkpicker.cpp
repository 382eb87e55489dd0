#include "screens/stock/checkpicker.h"

#include "data/dbroutines.h"
#include "data/sqlvalue.h"
#include "grid/gridcolumns.h"
#include "grid/spread.h"
#include "grid/spreadroutines.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

QString PickedCodes::inList() const {
    QStringList parts;
    for (const QString& c : codes) {
        parts << quoted(c);
    }
    return parts.join(u',');
}

QString PickedCodes::caption() const {
    return codes.isEmpty() ? u"전체"_s : names.join(u',');
}

CheckPicker::CheckPicker(const QString& title, const Fields& fields,
                         const QList<CheckPickerGrid>& grids, const QString& runName,
                         const QString& exitName, QWidget* parent)
    : Popup(parent) {
    setWindowTitle(title);
    auto* column = new QVBoxLayout(this);
    auto* lists = new QHBoxLayout;
    const GridColumns columns{
        {QString(), u"□"_s, CellType::Check, 3, Align::Centre},
        {fields.name, fields.nameHeading, CellType::Static, 14},
        {fields.code, fields.codeHeading, CellType::Static, 7},
        {fields.extra, fields.extraHeading, CellType::Static, 4, Align::Centre},
    };
    for (const CheckPickerGrid& g : grids) {
        auto* box = new QVBoxLayout;
        box->addWidget(new QLabel(g.caption, this));
        auto* grid = new Spread(this);
        grid->setObjectName(g.name);
        gsSpreadInit(grid, u"굴림체"_s, 10, 18, 18, 0, 0xC0C0C0, 2, false, false);
        columns.setUp(grid);
        for (int c = 2; c <= 4; ++c) {
            grid->setLocked(-1, c, true);
        }
        RecordSet rs;
        if (gfbSqlSelectDB(g.sql, rs)) {
            columns.fill(grid, rs);
        }
        grid->setMinimumSize(260, 320);
        box->addWidget(grid, 1);
        lists->addLayout(box);
        m_grids << grid;
    }
    column->addLayout(lists, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    QPushButton* run = button(runName, u"확인"_s);
    QPushButton* exit = button(exitName, u"취소"_s);
    buttons->addWidget(run);
    buttons->addWidget(exit);
    column->addLayout(buttons);
    connect(run, &QPushButton::clicked, this, [this] {
        collect();
        accept();
    });
    connect(exit, &QPushButton::clicked, this, [this] {
        m_picked = {};
        reject();
    });
}

void CheckPicker::collect() {
    m_picked = {};
    for (Spread* grid : std::as_const(m_grids)) {
        grid->finishEditing();
        for (int row = 1; row <= grid->maxRows(); ++row) {
            if (gfSpreadCellText(grid, row, 1, false) == u"1"_s) {
                m_picked.codes << gfSpreadCellText(grid, row, 3);
                m_picked.names << gfSpreadCellText(grid, row, 2);
            }
        }
    }
}
