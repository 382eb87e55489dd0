#include "screens/school/BAMAS125.h"

#include "data/dbroutines.h"
#include "data/dialect.h"
#include "data/session.h"
#include "data/sqlbuild.h"
#include "data/sqlvalue.h"
#include "data/waitcursor.h"
#include "grid/gridcolumns.h"
#include "grid/rowmove.h"
#include "grid/spreadroutines.h"
#include "shell/editband.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

constexpr int kStar = 1;
constexpr int kCode = 2;
const QString kStarMark = u"*"_s;
// Stores that serve no school.
constexpr quint32 kNoSchoolColor = gfRGB(192, 0, 0);

QGroupBox* framed(const QString& title, QWidget* inside, QWidget* parent) {
    auto* box = new QGroupBox(title, parent);
    (new QVBoxLayout(box))->addWidget(inside);
    return box;
}

} // namespace

const GridColumns& BAMAS125::listColumns() {
    static const GridColumns table{
        {u"STORECD"_s, u"코드"_s, CellType::Static, 4, Align::Centre},
        {u"STORENAME"_s, u"매장명"_s, CellType::Static, 16},
        {u"LOWCNT"_s, u"유초"_s, CellType::Static, 5, Align::Right},
        {u"MIDCNT"_s, u"중등"_s, CellType::Static, 5, Align::Right},
        {u"HITCNT"_s, u"고등"_s, CellType::Static, 5, Align::Right},
    };
    return table;
}

// SP2 and SP3 alike: a row is marked with a star in its first column.
const GridColumns& BAMAS125::schoolColumns() {
    static const GridColumns table{
        {QString(), u"선택"_s, CellType::Static, 4, Align::Centre},
        {u"CD"_s, u"코드"_s, CellType::Static, 4, Align::Centre},
        {u"LEVELNM"_s, u"등급"_s, CellType::Static, 5, Align::Centre},
        {u"DIVIDENM"_s, u"구분"_s, CellType::Static, 5, Align::Centre},
        {u"SCHOOLNAME"_s, u"학교명"_s, CellType::Static, 17},
    };
    return table;
}

BAMAS125::BAMAS125() : Screen(u"BAMAS125"_s, u"취급학교 설정"_s) {}

void BAMAS125::setupScreen() {
    auto* band = new EditBand(u"매장 선택"_s, this);
    lblCode = new QLabel(this);
    lblCode->setObjectName(u"lblCode"_s);
    lblCode->setFrameShape(QFrame::StyledPanel);
    txtFullName = textBox(u"txtFullName"_s, 22);
    chkSerch = new QCheckBox(u"복장 미등록 학교만"_s, this);
    chkSerch->setObjectName(u"chkSerch"_s);
    lblStoreName = new QLabel(this);
    lblStoreName->setObjectName(u"lblStoreName"_s);
    lblStoreName->setFrameShape(QFrame::StyledPanel);
    band->add(0, 0, u"매장코드"_s, lblCode);
    band->add(0, 1, u"매장명"_s, band->row({{txtFullName, 1}, {chkSerch, 0}}));
    band->add(0, 2, u"선택매장명"_s, lblStoreName);

    // No row numbers: the store code says as much, and without them every column fits.
    SP1 = grid(u"SP1"_s, listColumns(), 3, false, true);
    connect(SP1, &Spread::clicked, this, [this](int row, int) { SP1_Click(row); });
    SP2 = grid(u"SP2"_s, schoolColumns(), 3, false, true);
    SP3 = grid(u"SP3"_s, schoolColumns(), 3, false, true);
    for (Spread* list : {SP1, SP2, SP3}) {
        list->setMinimumWidth(list->fullWidth());
    }
    for (Spread* list : {SP2, SP3}) {
        connect(list, &Spread::clicked, this,
                [this, list](int row, int) { toggleStar(list, row); });
    }
    auto* cmdLeft = new QPushButton(u"◀"_s, this);
    cmdLeft->setObjectName(u"cmdLeft"_s);
    cmdLeft->setToolTip(u"선택한 미등록학교를 등록학교로"_s);
    auto* cmdRight = new QPushButton(u"▶"_s, this);
    cmdRight->setObjectName(u"cmdRight"_s);
    cmdRight->setToolTip(u"선택한 등록학교를 미등록학교로"_s);
    for (QPushButton* button : {cmdLeft, cmdRight}) {
        button->setFixedWidth(36);
    }
    // What the user types in the name box filters the list; the chosen store's name that a row
    // click puts there does not, so the list keeps every store after a move.
    connect(txtFullName, &QLineEdit::textEdited, this,
            [this] { m_nameFilter = txtFullName->text(); });
    connect(cmdLeft, &QPushButton::clicked, this, &BAMAS125::cmdLeft_Click);
    connect(cmdRight, &QPushButton::clicked, this, &BAMAS125::cmdRight_Click);
    auto* buttons = new QVBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdLeft);
    buttons->addWidget(cmdRight);
    buttons->addStretch(1);

    auto* lower = new QHBoxLayout;
    lower->addWidget(framed(u"조회 리스트"_s, SP1, this), 1);
    lower->addWidget(framed(u"등록학교 리스트"_s, SP2, this), 1);
    lower->addLayout(buttons);
    lower->addWidget(framed(u"미등록학교 리스트"_s, SP3, this), 1);
    contentLayout()->addWidget(band);
    contentLayout()->addLayout(lower, 1);
    sClearInput(true);
}

void BAMAS125::sClearInput(bool fromClear) {
    Q_UNUSED(fromClear)
    lblCode->clear();
    txtFullName->clear();
    lblStoreName->clear();
    m_storeCode.clear();
    m_nameFilter.clear();
    clearSchools();
}

void BAMAS125::clearSchools() {
    for (Spread* list : {SP2, SP3}) {
        list->setMaxRows(0);
        list->setMaxRows(kSchoolRows);
    }
}

QString BAMAS125::listStatement() const {
    const QString nolock = dialect().nolock();
    QString sql =
        u" SELECT STORECD, STORENAME, SUM(ISNULL(LOWCNT, 0)) LOWCNT, SUM(ISNULL(MIDCNT, 0)) "_s
        u"MIDCNT, SUM(ISNULL(HITCNT, 0)) HITCNT \n"_s
        u"   FROM (SELECT SC.STORECD, SC.STORENAME, SC.USEYN, \n"_s
        u"                CASE WHEN SS.SCHOOLLEVEL = '1' THEN SS.CNT ELSE 0 END MIDCNT, \n"_s
        u"                CASE WHEN SS.SCHOOLLEVEL = '2' THEN SS.CNT ELSE 0 END HITCNT, \n"_s
        u"                CASE WHEN SS.SCHOOLLEVEL = '3' THEN SS.CNT ELSE 0 END LOWCNT \n"_s
        u"           FROM C_STORE SC "_s +
        nolock + u"\n"_s +
        // The count reads the assignment's USEYN, not the school's: a school on hold counts.
        u"                LEFT OUTER JOIN (SELECT SS.COMPANY, SS.STORECD, CS.SCHOOLLEVEL, "_s
        u"COUNT(*) CNT \n"_s
        u"                                   FROM C_STORESCHOOL SS "_s +
        nolock + u", C_SCHOOL CS "_s + nolock + u"\n"_s +
        u"                                  WHERE SS.COMPANY = CS.COMPANY \n"_s
        u"                                    AND SS.SCHOOLCD = CS.SCHOOLCD \n"_s
        u"                                    AND SS.USEYN = 'Y' \n"_s
        u"                                  GROUP BY SS.COMPANY, SS.STORECD, CS.SCHOOLLEVEL) SS \n"_s
        u"                  ON SC.COMPANY = SS.COMPANY AND SC.STORECD = SS.STORECD \n"_s
        u"          WHERE SC.COMPANY = "_s +
        quoted(session().gsCompany) + u" \n"_s;
    if (!m_nameFilter.trimmed().isEmpty()) {
        sql += u"            AND STORENAME = "_s + quoted(m_nameFilter) + u" \n"_s;
    }
    sql += u"        ) SC \n"_s + u"  GROUP BY STORECD, STORENAME, USEYN \n"_s;
    if (chkSerch->isChecked()) {
        sql +=
            u" HAVING SUM(ISNULL(LOWCNT, 0)) + SUM(ISNULL(MIDCNT, 0)) + SUM(ISNULL(HITCNT, 0)) "_s
            u"= 0 \n"_s;
    }
    sql += u"  ORDER BY USEYN DESC, STORENAME"_s;
    return sql;
}

void BAMAS125::sSelectQuery() {
    guarded(u"sSelectQuery"_s, [this] {
        RecordSet rs;
        qint64 count = 0;
        if (!gfbSqlSelectDB(listStatement(), rs, count)) {
            return;
        }
        const GridColumns& c = listColumns();
        c.fill(SP1, rs);
        for (int row = 1; row <= SP1->maxRows(); ++row) {
            int total = 0;
            for (const QString& field : {u"LOWCNT"_s, u"MIDCNT"_s, u"HITCNT"_s}) {
                total += c.value(SP1, row, field).toInt();
            }
            if (total == 0) {
                gsSpreadRowForeColor(SP1, row, kNoSchoolColor);
            }
        }
        if (!lblCode->text().isEmpty()) {
            gfSpreadFindRow(SP1, c.column(u"STORECD"_s), lblCode->text());
        }
        if (count <= 0) {
            showFound(count);
        } else {
            setStatusNote(QString());
        }
    });
}

void BAMAS125::SP1_Click(int row) {
    const GridColumns& c = listColumns();
    if (row < 1 || c.value(SP1, row, u"STORECD"_s).trimmed().isEmpty()) {
        return;
    }
    lblCode->setText(c.value(SP1, row, u"STORECD"_s).trimmed());
    m_storeCode = lblCode->text();
    txtFullName->setText(c.value(SP1, row, u"STORENAME"_s).trimmed());
    lblStoreName->setText(txtFullName->text());
    sSelectQuery2();
}

QString BAMAS125::schoolStatement(bool served) const {
    const QString nolock = dialect().nolock();
    // The school stands last before its joins: the server binds a join to the table before it.
    QString sql = u" SELECT SC.SCHOOLCD CD, GT25.GRP_NAM LEVELNM, GT24.GRP_NAM DIVIDENM, "_s
                  u"SC.SCHOOLNAME \n"_s
                  u"   FROM "_s;
    if (served) {
        sql += u"C_STORESCHOOL SS "_s + nolock + u", "_s;
    }
    sql += u"C_SCHOOL SC "_s + nolock + u"\n        LEFT OUTER JOIN C_GONGTONG GT25 "_s + nolock +
           u" ON GT25.L_GRP_COD = '25' AND GT25.S_GRP_COD = SC.SCHOOLLEVEL \n"_s +
           u"        LEFT OUTER JOIN C_GONGTONG GT24 "_s + nolock +
           u" ON GT24.L_GRP_COD = '24' AND GT24.S_GRP_COD = SC.SCHOOLDIVIDE \n"_s +
           u"  WHERE SC.COMPANY = "_s + quoted(session().gsCompany) + u" \n"_s +
           u"    AND SC.USEYN = 'Y' \n"_s;
    if (served) {
        sql += u"    AND SC.COMPANY = SS.COMPANY \n"_s
               u"    AND SC.SCHOOLCD = SS.SCHOOLCD \n"_s
               u"    AND SS.STORECD = "_s +
               quoted(m_storeCode) + u" \n"_s;
    } else {
        sql += u"    AND NOT EXISTS (SELECT SS.SCHOOLCD FROM C_STORESCHOOL SS "_s + nolock +
               u" WHERE SS.COMPANY = SC.COMPANY AND SS.SCHOOLCD = SC.SCHOOLCD AND SS.STORECD = "_s +
               quoted(m_storeCode) + u") \n"_s;
    }
    sql += u"  ORDER BY SC.SCHOOLLEVEL, SC.SCHOOLDIVIDE, SC.SCHOOLNAME"_s;
    return sql;
}

void BAMAS125::sSelectQuery2() {
    clearSchools();
    guarded(u"sSelectQuery2"_s, [this] {
        for (const bool served : {false, true}) {
            RecordSet rs;
            if (!gfbSqlSelectDB(schoolStatement(served), rs)) {
                return;
            }
            Spread* list = served ? SP2 : SP3;
            schoolColumns().fill(list, rs);
            if (list->maxRows() < kSchoolRows) {
                list->setMaxRows(kSchoolRows);
            }
        }
    });
}

void BAMAS125::toggleStar(Spread* grid, int row) {
    if (row < 1 || gfSpreadCellText(grid, row, kCode).isEmpty()) {
        return;
    }
    const bool starred = gfSpreadCellText(grid, row, kStar) == kStarMark;
    gsSpreadSetText(grid, row, kStar, starred ? QString() : kStarMark);
}

QStringList BAMAS125::saveStatements() const {
    QStringList statements{u" DELETE FROM C_STORESCHOOL "_s + whereCompany() +
                           andEquals(u"STORECD"_s, m_storeCode)};
    const int rows = gfSpreadFilledRows(SP2, kCode);
    for (int row = 1; row <= rows; ++row) {
        const QString school = schoolColumns().value(SP2, row, u"CD"_s).trimmed();
        if (school.isEmpty()) {
            continue;
        }
        statements << sqlInsert(u"C_STORESCHOOL"_s,
                                Assignments{{u"COMPANY"_s, quoted(session().gsCompany)},
                                            {u"STORECD"_s, quoted(m_storeCode)},
                                            {u"SCHOOLCD"_s, quoted(school)},
                                            {u"USEYN"_s, u"'Y'"_s}} +
                                    auditOnInsert(u"C_STORESCHOOL"_s));
    }
    return statements;
}

void BAMAS125::sSaveQuery() {
    if (m_storeCode.isEmpty()) {
        return;
    }
    WaitCursor wait;
    guarded(
        u"sSaveQuery"_s,
        [this] {
            Transaction tx;
            if (!tx.ok()) {
                return;
            }
            for (const QString& sql : saveStatements()) {
                if (!gfbSqlExecuteDB(sql)) {
                    return;
                }
            }
            if (tx.commit()) {
                sSelectQuery(); // the counts of the list follow
            }
        },
        true);
}

void BAMAS125::moveStarred(Spread* from, Spread* to) {
    const int below = gfSpreadFilledRows(to, kCode);
    const int moved = gsSpreadMoveMarked(from, to, kStar, kCode, kStarMark, kSchoolRows);
    // A moved school arrives without its star: a move back must be asked for anew.
    for (int row = below + 1; row <= below + moved; ++row) {
        gsSpreadSetText(to, row, kStar, QString());
    }
}

void BAMAS125::cmdLeft_Click() {
    moveStarred(SP3, SP2);
    sSaveQuery();
}

void BAMAS125::cmdRight_Click() {
    moveStarred(SP2, SP3);
    sSaveQuery();
}
