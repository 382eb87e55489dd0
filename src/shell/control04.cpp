#include "shell/control04.h"

#include "data/database.h"
#include "data/dbroutines.h"
#include "data/messages.h"
#include "data/session.h"
#include "data/sqlvalue.h"
#include "grid/spreadroutines.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
enum Column { ColMark = 1, ColCode = 2, ColName = 3 };
} // namespace

Control04::Control04(const QString& kind, QWidget* parent)
    : QDialog(parent), m_kind(kind), m_txtcodenm(new QLineEdit(this)), m_grid(new Spread(this)) {
    setObjectName(QStringLiteral("Control04"));
    setWindowTitle(kind);
    setModal(true);
    resize(420, 360);
    m_txtcodenm->setObjectName(QStringLiteral("txtcodenm"));
    m_grid->setObjectName(QStringLiteral("GRPSP1"));
    auto* cmdChoice = new QPushButton(QStringLiteral("선택"), this);
    cmdChoice->setObjectName(QStringLiteral("cmdChoice"));
    auto* cmdExit = new QPushButton(QStringLiteral("닫기"), this);
    cmdExit->setObjectName(QStringLiteral("cmdExit"));

    auto* search = new QHBoxLayout;
    search->addWidget(new QLabel(kind + QStringLiteral(" 이름"), this));
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
    gsSpreadInit(m_grid, QStringLiteral("굴림체"), 10, 18, 18, 0, 0xC0C0C0, 2, false, true);
    gsSpreadColumn(m_grid, ColMark, QStringLiteral("선 택"), 5, 5, 0, QStringLiteral("M"));
    gsSpreadColumn(m_grid, ColCode, QStringLiteral("코 드"), 5, 8, 0, QStringLiteral("M"));
    gsSpreadColumn(m_grid, ColName, QStringLiteral("코드이름"), 5, 24, 0, QStringLiteral("L"));
    session().gsPopupCode.clear();
    session().gsPopupName.clear();
    m_txtcodenm->clear();
    sSelectQuery();
}

void Control04::sSelectQuery() {
    // Brands are the only kind searched here; the name must match whole.
    if (m_kind != QStringLiteral("브랜드")) {
        return;
    }
    const QString sql = QStringLiteral(" SELECT '', BRANDCD, BRANDNAME ") +
                        QStringLiteral("   FROM C_BRAND ") + QStringLiteral("  WHERE COMPANY = ") +
                        quoted(session().gsCompany) + QStringLiteral("    AND BRANDNAME = ") +
                        quoted(m_txtcodenm->text()) + QLatin1Char(' ');
    RecordSet rs;
    qint64 count = 0;
    if (!gfbSqlSelectDB(sql, rs, count)) {
        return;
    }
    m_grid->setRedraw(false);
    m_grid->setMaxRows(0);
    for (rs.moveFirst(); !rs.eof(); rs.moveNext()) {
        const int row = m_grid->maxRows() + 1;
        m_grid->setMaxRows(row);
        gsSpreadSetText(m_grid, row, ColMark, rs.value(0));
        gsSpreadSetText(m_grid, row, ColCode, rs.value(1));
        gsSpreadSetText(m_grid, row, ColName, rs.value(2));
    }
    m_grid->setRedraw(true);
}

void Control04::markRow(int row) {
    if (row < 1) {
        return;
    }
    for (int r = 1; r <= m_grid->maxRows(); ++r) {
        gsSpreadSetText(m_grid, r, ColMark, r == row ? QStringLiteral("*") : QString());
    }
}

void Control04::cmdChoice_Click() {
    for (int r = 1; r <= m_grid->maxRows(); ++r) {
        if (gfSpreadText(m_grid, r, ColMark) == QStringLiteral("*")) {
            session().gsPopupCode = gfSpreadText(m_grid, r, ColCode).trimmed().toUpper();
            session().gsPopupName = gfSpreadText(m_grid, r, ColName).trimmed().toUpper();
            break;
        }
    }
    accept();
}

void Control04::cmdExit_Click() {
    session().gsPopupCode.clear();
    session().gsPopupName.clear();
    reject();
}

bool showControl04(const QString& kind, QWidget* parent) {
    session().gsPopupKind = kind;
    Control04 popup(kind, parent);
    popup.exec();
    return !session().gsPopupCode.isEmpty();
}
