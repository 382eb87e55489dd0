#include "screens/stock/stockentry.h"

#include "data/dbroutines.h"
#include "data/dialect.h"
#include "data/messages.h"
#include "data/recordset.h"
#include "data/session.h"
#include "data/sqlvalue.h"
#include "grid/gridcolumns.h"
#include "grid/spreadroutines.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QDate>
#include <QDateEdit>
#include <QRadioButton>

using namespace Qt::StringLiterals;

QString stockCurrentYear() {
    const QString year =
        gfSelectValue(u"SELECT ISNULL(MAX(CURRYYYY), LEFT("_s + dialect().iso(u"GETDATE()"_s) +
                      u", 4)) FROM C_STORE  WHERE COMPANY = "_s + quoted(session().gsCompany))
            .trimmed();
    return year.isEmpty() ? QString::number(QDate::currentDate().year()) : year;
}

void fillEntryYears(QComboBox* combo, const QString& currentYear, const QList<int>& offsets) {
    const QSignalBlocker quiet(combo);
    combo->clear();
    combo->addItem(QString());
    const int year = currentYear.toInt();
    for (int offset : offsets) {
        combo->addItem(QString::number(year + offset).right(2));
    }
    combo->setCurrentIndex(combo->findText(currentYear.right(2)));
}

QString entryYear(const QComboBox* combo) {
    const QString yy = combo->currentText().trimmed();
    return yy.isEmpty() ? QString() : u"20"_s + yy;
}

QString schoolSexText(const Dialect& d) {
    return d.cat({u"CS.SCHOOLNAME"_s, u"'['"_s, u"ISNULL(GT24.GRP_NAM, '')"_s, u"']'"_s});
}

QString storeSchoolListSql(const QString& store, const QString& levelCode) {
    const QString nl = dialect().nolock();
    QString sql = u" SELECT DISTINCT CS.SCHOOLNAME, CS.SCHOOLCD, G25.DISP_SEQ "
                  "   FROM C_STORESCHOOL SS "_s +
                  nl + u"   LEFT OUTER JOIN C_SCHOOL CS "_s + nl +
                  u" ON CS.COMPANY = SS.COMPANY AND CS.SCHOOLCD = SS.SCHOOLCD "
                  "   LEFT OUTER JOIN C_GONGTONG G25 "_s +
                  nl +
                  u" ON G25.L_GRP_COD = '25' AND G25.S_GRP_COD = CS.SCHOOLLEVEL "
                  "  WHERE SS.COMPANY = "_s +
                  quoted(session().gsCompany) + u"    AND SS.STORECD = "_s + quoted(store) +
                  u"    AND SS.USEYN = 'Y' AND CS.SCHOOLCD IS NOT NULL "_s;
    if (!levelCode.isEmpty()) {
        sql += u"    AND CS.SCHOOLLEVEL = "_s + quoted(levelCode);
    }
    return sql + u"  ORDER BY G25.DISP_SEQ, CS.SCHOOLNAME"_s;
}

namespace {
const GridColumns& schoolColumns() {
    static const GridColumns table{
        {u"SCHOOLNAME"_s, u"학교"_s, CellType::Static, 16},
        {u"SCHOOLCD"_s, u"학교코드"_s, CellType::Static, 0},
    };
    return table;
}
} // namespace

void setUpSchoolList(Spread* grid) {
    gsSpreadInit(grid, u"굴림체"_s, 10, 18, 18, 0, 0xC0C0C0, 2, false, true);
    schoolColumns().setUp(grid);
}

int fillSchoolList(Spread* grid, const RecordSet& rs, bool withAll) {
    grid->setRedraw(false);
    const int rows = schoolColumns().fill(grid, rs);
    if (withAll) {
        grid->setMaxRows(rows + 1);
        for (int r = rows; r >= 1; --r) {
            for (int c = 1; c <= 2; ++c) {
                gsSpreadSetText(grid, r + 1, c, gfSpreadCellText(grid, r, c));
            }
        }
        gsSpreadSetText(grid, 1, 1, u"전체"_s);
        gsSpreadSetText(grid, 1, 2, QString());
    }
    grid->setRedraw(true);
    return rows;
}

QString ymdOf(const QDateEdit* box) {
    return box->date().toString(u"yyyyMMdd"_s);
}

bool refuseFutureDate(QDateEdit* box) {
    if (ymdOf(box) <= QDate::currentDate().toString(u"yyyyMMdd"_s)) {
        return false;
    }
    gfsMessage(8083);
    box->setDate(QDate::currentDate());
    return true;
}

QStringList checkedRowStatements(Spread* grid, int checkCol,
                                 const std::function<QString(int row)>& statement) {
    QStringList statements;
    for (int row = 1; row <= grid->dataRowCnt(); ++row) {
        if (gfSpreadCellText(grid, row, checkCol, false) > u"0"_s) {
            statements << statement(row);
        }
    }
    return statements;
}

bool executeAsUnit(const QStringList& statements) {
    Transaction unit;
    if (!unit.ok()) {
        return false;
    }
    for (const QString& sql : statements) {
        if (!gfbSqlExecuteDB(sql)) {
            return false; // the unit rolls back
        }
    }
    return unit.commit();
}

QRadioButton* optionButton(QWidget* parent, const QString& name, const QString& caption,
                           QButtonGroup* group) {
    auto* b = new QRadioButton(caption, parent);
    b->setObjectName(name);
    group->addButton(b);
    return b;
}
