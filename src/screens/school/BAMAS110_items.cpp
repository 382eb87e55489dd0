// The assignment area of the school screen: which items the selected school's boys or girls
// wear, and the moves between the two lists that save at once.
#include "data/dbroutines.h"
#include "data/dialect.h"
#include "data/itemcode.h"
#include "data/session.h"
#include "data/sqlbuild.h"
#include "data/sqlvalue.h"
#include "data/waitcursor.h"
#include "grid/gridcolumns.h"
#include "grid/rowmove.h"
#include "grid/spreadroutines.h"
#include "screens/school/BAMAS110.h"
#include "shell/buttonarray.h"
#include "shell/codechecklist.h"
#include "shell/codecontrols.h"
#include "shell/codeoptionfield.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

// SP2 and SP3 alike. The hidden key parts are what the save inserts.
const GridColumns& BAMAS110::itemColumns() {
    static const GridColumns table{
        {QString(), u"선택"_s, CellType::Check, 4, Align::Centre},
        {u"CD"_s, u"코드"_s, CellType::Static, 8, Align::Centre},
        {u"SEASON"_s, u"SEASON"_s, CellType::Static, 0},
        {u"DIVIDE"_s, u"DIVIDE"_s, CellType::Static, 0},
        {u"UNIFORMSEQ"_s, u"UNIFORMSEQ"_s, CellType::Static, 0},
        {u"UNIFORMCOMSEQ"_s, u"UNIFORMCOMSEQ"_s, CellType::Static, 0},
        {u"SEASONNM"_s, u"시즌"_s, CellType::Static, 6, Align::Centre},
        {u"UNITYPENM"_s, u"품종"_s, CellType::Static, 9, Align::Centre},
        {u"GUBUN"_s, u"구분"_s, CellType::Static, 6, Align::Centre},
        {u"UNIFORMNAME"_s, u"복종명"_s, CellType::Static, 16},
        {u"WEAR"_s, u"착용"_s, CellType::Static, 6, Align::Centre},
    };
    return table;
}

namespace {

constexpr int kCheck = 1;
constexpr int kCode = 2;

QGroupBox* framed(const QString& title, QWidget* inside, QWidget* parent) {
    auto* box = new QGroupBox(title, parent);
    (new QVBoxLayout(box))->addWidget(inside);
    return box;
}

} // namespace

QWidget* BAMAS110::buildAssignment() {
    auto* area = new QGroupBox(u"복종 등록"_s, this);
    lblSchoolName = new QLabel(this);
    lblSchoolName->setObjectName(u"lblSchoolName"_s);
    lblSchoolName->setFrameShape(QFrame::StyledPanel);
    lblSchoolName->setMinimumWidth(110);

    Frame6 = new QGroupBox(this);
    Frame6->setObjectName(u"Frame6"_s);
    optGT23 = new ButtonArray(ButtonArray::Kind::Option, Frame6);
    optGT23->setObjectName(u"optGT23"_s);
    gsReadCodeOptions(optGT23, m_gt23, u"GT023"_s, 3);
    (new QHBoxLayout(Frame6))->addWidget(optGT23);
    Frame6->layout()->setContentsMargins(6, 0, 6, 0);
    txtGT23 = textBox(u"txtGT23"_s);
    txtGT23->hide();
    connect(optGT23, &ButtonArray::elementClicked, this, [this](int index) {
        optGT23_Click(index);
        if (!m_schoolCode.isEmpty()) {
            sSelectQuery2();
        }
    });

    chkGT22 = new CodeCheckList(u"GT22"_s, u"txtGT22"_s, u"GT022"_s, 3, this);
    connect(chkGT22, &CodeCheckList::listChanged, this, [this] {
        if (!m_schoolCode.isEmpty()) {
            sSelectQuery2();
        }
    });

    SP2 = grid(u"SP2"_s, itemColumns(), 3, false, false);
    SP3 = grid(u"SP3"_s, itemColumns(), 3, false, false);
    for (Spread* list : {SP2, SP3}) {
        gsSpreadCheckAllOnHeading(list, kCheck, kCode);
        list->setMinimumWidth(list->fullWidth());
    }
    // The two lists stand one above the other, worn on top: side by side with the school list
    // they would not show all their columns on a screen 1280 pixels wide.
    auto* cmdLeft = new QPushButton(u"▲"_s, this);
    cmdLeft->setObjectName(u"cmdLeft"_s);
    cmdLeft->setToolTip(u"선택한 미착용복종을 착용복종으로"_s);
    auto* cmdRight = new QPushButton(u"▼"_s, this);
    cmdRight->setObjectName(u"cmdRight"_s);
    cmdRight->setToolTip(u"선택한 착용복종을 미착용복종으로"_s);
    for (QPushButton* button : {cmdLeft, cmdRight}) {
        button->setFixedWidth(48);
    }
    connect(cmdLeft, &QPushButton::clicked, this, &BAMAS110::cmdLeft_Click);
    connect(cmdRight, &QPushButton::clicked, this, &BAMAS110::cmdRight_Click);

    auto* head = new QHBoxLayout;
    head->addWidget(new QLabel(u"학교"_s, this));
    head->addWidget(lblSchoolName, 1);
    head->addWidget(Frame6);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdLeft);
    buttons->addWidget(cmdRight);
    buttons->addStretch(1);

    auto* column = new QVBoxLayout(area);
    column->addLayout(head);
    column->addWidget(chkGT22, 0, Qt::AlignLeft); // a box stretched wide is not hit at its middle
    column->addWidget(framed(u"착용복종"_s, SP2, this), 1);
    column->addLayout(buttons);
    column->addWidget(framed(u"미착용복종"_s, SP3, this), 1);
    return area;
}

void BAMAS110::optGT23_Click(int index) {
    if (index < 1 || index > optGT23->count()) {
        return;
    }
    optGT23->element(index)->setChecked(true);
    // The girls' set is element 2; any other element assigns the boys' set.
    txtGT23->setText(index == 2 ? u"2"_s : u"1"_s);
}

void BAMAS110::clearItems() {
    for (Spread* list : {SP2, SP3}) {
        list->setMaxRows(0);
        list->setMaxRows(kItemRows);
    }
}

QString BAMAS110::schoolItemMatch(const QString& alias) const {
    const QString a = alias + u'.';
    return a + u"COMPANY = UF.COMPANY AND "_s + a + u"SEASON = UF.SEASON AND "_s + a +
           u"DIVIDE = UF.DIVIDE AND "_s + a + u"UNIFORMSEQ = UF.UNIFORMSEQ AND "_s + a +
           u"UNIFORMCOMSEQ = UF.UNIFORMCOMSEQ "_s + u"AND "_s + a + u"SCHOOLCD = "_s +
           quoted(m_schoolCode) + u" AND "_s + a + u"SUDIVIDE = "_s + quoted(txtGT23->text());
}

QString BAMAS110::sexClause() const {
    // A boys' or girls' school has its own set; a co-educational one the set being assigned.
    QString sex = fraGT24->code();
    if (sex == u"3"_s) {
        sex = txtGT23->text();
    }
    if (sex == u"1"_s) {
        return u"    AND (UF.DIVIDE IN ('B', 'U') OR UF.MIXUNIFORM = '1') \n"_s;
    }
    if (sex == u"2"_s) {
        return u"    AND (UF.DIVIDE IN ('G', 'U') OR UF.MIXUNIFORM = '1') \n"_s;
    }
    return {};
}

QString BAMAS110::itemStatement(bool worn) const {
    const Dialect& d = dialect();
    const QString nolock = d.nolock();
    // Who wears it: the list of items not worn tells the sex first, the worn list the mix mark.
    const QString wear =
        worn ? u"CASE WHEN UF.MIXUNIFORM = '1' AND SU2.SUDIVIDE = '1' THEN '혼용' "_s
               u"WHEN UF.MIXUNIFORM = '1' AND SU2.SUDIVIDE = '2' THEN '혼용' "_s
               u"WHEN SU2.SUDIVIDE = '1' THEN '남' WHEN SU2.SUDIVIDE = '2' THEN '여' "_s
               u"ELSE GT23.GRP_NAM END"_s
             : u"CASE WHEN SU2.SUDIVIDE = '1' THEN '남' WHEN SU2.SUDIVIDE = '2' THEN '여' "_s
               u"WHEN UF.MIXUNIFORM = '1' THEN '혼용' ELSE GT23.GRP_NAM END"_s;
    QString sql =
        u" SELECT "_s + itemFullCode(d, u"UF"_s) + u" CD, \n"_s +
        u"        UF.SEASON, UF.DIVIDE, UF.UNIFORMSEQ, UF.UNIFORMCOMSEQ, \n"_s +
        u"        GT22.GRP_NAM SEASONNM, CGT01.GRP_NAM UNITYPENM, \n"_s +
        u"        CASE WHEN ISNULL(UF.UNIFORMCOMSEQ, '') = '' THEN '단독' ELSE '공통' END GUBUN, \n"_s +
        u"        UF.UNIFORMNAME, "_s + wear + u" WEAR \n"_s + u"   FROM C_UNIFORM UF "_s + nolock +
        u"\n"_s + u"        LEFT OUTER JOIN C_GONGTONG GT22 "_s + nolock +
        u" ON GT22.L_GRP_COD = '22' AND GT22.S_GRP_COD = UF.SEASON \n"_s +
        u"        LEFT OUTER JOIN C_GONGTONG GT23 "_s + nolock +
        u" ON GT23.L_GRP_COD = '23' AND GT23.S_GRP_COD = UF.DIVIDE \n"_s +
        u"        LEFT OUTER JOIN C_GONGTONG GT28 "_s + nolock +
        u" ON GT28.L_GRP_COD = '28' AND GT28.S_GRP_COD = UF.SUBMAIN \n"_s +
        u"        LEFT OUTER JOIN C_COMCODE CGT01 "_s + nolock +
        u" ON CGT01.COMPANY = UF.COMPANY AND CGT01.L_GRP_COD = '01' AND CGT01.S_GRP_COD = "_s
        u"UF.UNITYPE \n"_s +
        u"        LEFT OUTER JOIN C_SCHOOLUNIFORM SU2 "_s + nolock + u" ON "_s +
        schoolItemMatch(u"SU2"_s) + u" \n"_s + u"  WHERE UF.COMPANY = "_s +
        quoted(session().gsCompany) + u" \n"_s + u"    AND UF.USEYN = 'Y' \n"_s + sexClause();
    if (!chkGT22->list().isEmpty()) {
        sql += u"    AND UF.SEASON IN ('A', "_s + chkGT22->quotedCodes() + u") \n"_s;
    }
    sql +=
        (worn ? u"    AND EXISTS ("_s : u"    AND NOT EXISTS ("_s) +
        u"SELECT SU.SCHOOLCD FROM C_SCHOOLUNIFORM SU "_s + nolock + u" WHERE "_s +
        schoolItemMatch(u"SU"_s) + u" AND SU.USEYN = 'Y') \n"_s +
        u"  ORDER BY UF.DISP_SEQ, GT22.DISP_SEQ , GT28.DISP_SEQ , CGT01.DISP_SEQ , UNIFORMNAME"_s;
    return sql;
}

void BAMAS110::sSelectQuery2() {
    clearItems();
    guarded(u"sSelectQuery2"_s, [this] {
        for (const bool worn : {false, true}) {
            RecordSet rs;
            if (!gfbSqlSelectDB(itemStatement(worn), rs)) {
                return;
            }
            Spread* list = worn ? SP2 : SP3;
            itemColumns().fill(list, rs);
            if (list->maxRows() < kItemRows) {
                list->setMaxRows(kItemRows);
            }
        }
    });
}

QStringList BAMAS110::subSaveStatements() const {
    // Only the students being assigned and the seasons shown are replaced; with a season filter
    // the assignments of other seasons stay.
    QString where = whereCompany() + andEquals(u"SCHOOLCD"_s, m_schoolCode) +
                    andEquals(u"SUDIVIDE"_s, txtGT23->text());
    if (!chkGT22->list().isEmpty()) {
        where += u"    AND SEASON IN ('A', "_s + chkGT22->quotedCodes() + u") "_s;
    }
    QStringList statements{u" DELETE FROM C_SCHOOLUNIFORM "_s + where};
    const GridColumns& c = itemColumns();
    const int rows = gfSpreadFilledRows(SP2, kCode);
    for (int row = 1; row <= rows; ++row) {
        if (c.value(SP2, row, u"CD"_s).trimmed().isEmpty()) {
            continue;
        }
        const auto part = [&](const char* field) {
            return quoted(c.value(SP2, row, QString::fromLatin1(field)).trimmed());
        };
        statements << sqlInsert(u"C_SCHOOLUNIFORM"_s,
                                Assignments{{u"COMPANY"_s, quoted(session().gsCompany)},
                                            {u"SCHOOLCD"_s, quoted(m_schoolCode)},
                                            {u"SEASON"_s, part("SEASON")},
                                            {u"SUDIVIDE"_s, quoted(txtGT23->text())},
                                            {u"DIVIDE"_s, part("DIVIDE")},
                                            {u"UNIFORMSEQ"_s, part("UNIFORMSEQ")},
                                            {u"UNIFORMCOMSEQ"_s, part("UNIFORMCOMSEQ")},
                                            {u"USEYN"_s, u"'Y'"_s}} +
                                    auditOnInsert(u"C_SCHOOLUNIFORM"_s));
    }
    return statements;
}

bool BAMAS110::SubSaveQuery() {
    bool saved = false;
    {
        WaitCursor wait;
        guarded(
            u"SubSaveQuery"_s,
            [this, &saved] {
                Transaction tx;
                if (!tx.ok()) {
                    return;
                }
                for (const QString& sql : subSaveStatements()) {
                    if (!gfbSqlExecuteDB(sql)) {
                        return; // rolled back; the lists keep the moved rows until reselected
                    }
                }
                saved = tx.commit();
            },
            true);
    }
    if (saved) {
        sSelectQuery2();
    }
    return saved;
}

void BAMAS110::cmdLeft_Click() {
    if (!m_schoolCode.isEmpty() &&
        gsSpreadMoveMarked(SP3, SP2, kCheck, kCode, u"1"_s, kItemRows) > 0) {
        SubSaveQuery();
    }
}

void BAMAS110::cmdRight_Click() {
    if (!m_schoolCode.isEmpty() &&
        gsSpreadMoveMarked(SP2, SP3, kCheck, kCode, u"1"_s, kItemRows) > 0) {
        SubSaveQuery();
    }
}
