#include "shell/control04.h"

#include "data/database.h"
#include "data/dbroutines.h"
#include "data/sqlbuild.h"
#include "data/sqlvalue.h"
#include "grid/gridcolumns.h"
#include "grid/spreadroutines.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

const GridColumns& columns() {
    static const GridColumns table{
        {u"MARK"_s, u"선 택"_s, CellType::Static, 5, Align::Centre},
        {u"CODE"_s, u"코 드"_s, CellType::Static, 8, Align::Centre},
        {u"NAME"_s, u"코드이름"_s, CellType::Static, 24, Align::Left},
    };
    return table;
}

} // namespace

Control04::Control04(const QString& kind, QWidget* parent)
    : Popup(parent), m_kind(kind), m_txtcodenm(new QLineEdit(this)), m_grid(new Spread(this)) {
    setObjectName(u"Control04"_s);
    setWindowTitle(kind);
    resize(420, 360);
    m_txtcodenm->setObjectName(u"txtcodenm"_s);
    m_grid->setObjectName(u"GRPSP1"_s);
    QPushButton* cmdChoice = button(u"cmdChoice"_s, u"선택"_s);
    QPushButton* cmdExit = button(u"cmdExit"_s, u"닫기"_s);

    auto* search = new QHBoxLayout;
    search->addWidget(new QLabel(kind + u" 이름"_s, this));
    search->addWidget(m_txtcodenm, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdChoice);
    buttons->addWidget(cmdExit);
    auto* column = new QVBoxLayout(this);
    column->addLayout(search);
    column->addWidget(m_grid, 1);
    column->addLayout(buttons);

    connect(m_txtcodenm, &QLineEdit::returnPressed, this, &Control04::sSelectQuery);
    connect(m_grid, &Spread::clicked, this, [this](int row, int) { markRow(row); });
    connect(m_grid, &Spread::doubleClicked, this, [this](int row, int) {
        markRow(row);
        cmdChoice_Click();
    });
    connect(cmdChoice, &QPushButton::clicked, this, &Control04::cmdChoice_Click);
    connect(cmdExit, &QPushButton::clicked, this, &Control04::cmdExit_Click);
    Form_cls_rtn();
}

void Control04::Form_cls_rtn() {
    gsSpreadInit(m_grid, u"굴림체"_s, 10, 18, 18, 0, 0xC0C0C0, 2, false, true);
    columns().setUp(m_grid);
    m_choice.reset();
    m_txtcodenm->clear();
    sSelectQuery();
}

void Control04::sSelectQuery() {
    // Brands are the only kind searched here; the name must match whole.
    if (m_kind != u"브랜드"_s) {
        return;
    }
    const QString sql = u" SELECT '' MARK, BRANDCD CODE, BRANDNAME NAME "_s +
                        u"   FROM C_BRAND "_s + whereCompany() + u"    AND BRANDNAME = "_s +
                        quoted(m_txtcodenm->text()) + u" "_s;
    RecordSet rs;
    if (gfbSqlSelectDB(sql, rs)) {
        columns().fill(m_grid, rs);
    }
}

void Control04::markRow(int row) {
    if (row < 1) {
        return;
    }
    for (int r = 1; r <= m_grid->maxRows(); ++r) {
        columns().setValue(m_grid, r, u"MARK"_s, r == row ? u"*"_s : QString());
    }
}

void Control04::cmdChoice_Click() {
    for (int r = 1; r <= m_grid->maxRows(); ++r) {
        if (columns().value(m_grid, r, u"MARK"_s) == u"*"_s) {
            m_choice = CodeChoice{columns().value(m_grid, r, u"CODE"_s).trimmed().toUpper(),
                                  columns().value(m_grid, r, u"NAME"_s).trimmed().toUpper()};
            break;
        }
    }
    accept();
}

void Control04::cmdExit_Click() {
    m_choice.reset();
    reject();
}

std::optional<CodeChoice> showControl04(const QString& kind, QWidget* parent) {
    Control04 popup(kind, parent);
    popup.exec();
    return popup.choice();
}
