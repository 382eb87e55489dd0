#include "screens/school/BAMAS115_Trans.h"

#include "data/dbroutines.h"
#include "data/dialect.h"
#include "data/itemcode.h"
#include "data/messages.h"
#include "data/session.h"
#include "data/sqlbuild.h"
#include "data/sqlvalue.h"
#include "grid/gridcolumns.h"
#include "grid/inputhelpers.h"
#include "grid/spread.h"
#include "grid/spreadroutines.h"
#include "screens/school/schoolpicklist.h"
#include "shell/codecontrols.h"
#include "shell/trap.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr quint32 kHoldColour = gfRGB(192, 0, 0);
const QString kTable = u"C_TRANSUNIFORM"_s;
const QString kPrefix = u"TS"_s;
// Two digits: "TS01" to "TS99" in a company.
constexpr int kLastNumber = 99;

QLabel* panel(QWidget* parent, const QString& name, const QString& text) {
    auto* label = new QLabel(text, parent);
    label->setObjectName(name);
    label->setFrameShape(QFrame::StyledPanel);
    return label;
}

} // namespace

const GridColumns& BAMAS115_Trans::listColumns() {
    static const GridColumns table{
        {u"CODE"_s, u"코드"_s, CellType::Static, 5, Align::Centre},
        {u"UNIFORMCD"_s, u"복종코드"_s, CellType::Static, 7, Align::Centre},
        {u"UNIFORMNAME"_s, u"복종명"_s, CellType::Static, 14},
        {u"COLOR"_s, u"COLOR"_s, CellType::Static, 13},
        {u"MATERIL"_s, u"원단"_s, CellType::Static, 13},
        {u"PATTERN"_s, u"패턴"_s, CellType::Static, 16},
        {u"BUTTON"_s, u"버튼"_s, CellType::Static, 5, Align::Centre},
        {u"USEYN"_s,
         u"사용"_s,
         CellType::Static,
         6,
         Align::Centre,
         {{{u"Y"_s, u"사용"_s}}, u"보류"_s}},
        {u"CNT"_s, u"지정"_s, CellType::Static, 5, Align::Right},
    };
    return table;
}

const GridColumns& BAMAS115_Trans::schoolColumns() {
    static const GridColumns table = schoolPickColumns(u"선택"_s, 5, 18);
    return table;
}

BAMAS115_Trans::BAMAS115_Trans(const QString& uniformCode, const QString& uniformName,
                               QWidget* parent)
    : Popup(parent) {
    setObjectName(u"BAMAS115_Trans"_s);
    setWindowTitle(u"전용 관리"_s);
    resize(1240, 700);
    lblUniformCd = panel(this, u"lblUniformCd"_s, uniformCode.trimmed());
    lblUniformName = panel(this, u"lblUniformName"_s, uniformName);
    lblCode = panel(this, u"lblCode"_s, QString());
    auto* column = new QVBoxLayout(this);
    column->addWidget(buildFields());
    column->addWidget(buildLists(), 1);
    cmdNew_Click();
    sSelectQuery();
}

QWidget* BAMAS115_Trans::buildFields() {
    auto* band = new QGroupBox(u"전용복종"_s, this);
    auto* grid = new QGridLayout(band);
    txtColor = textBox(u"txtColor"_s, 20);
    txtMateril = textBox(u"txtMateril"_s, 20);
    txtPattern = textBox(u"txtPattern"_s, 50);
    txtBtn = textBox(u"txtBtn"_s, 2);
    auto* use = new QWidget(this);
    auto* useRow = new QHBoxLayout(use);
    useRow->setContentsMargins(0, 0, 0, 0);
    const char* const captions[] = {"사용", "미사용"};
    for (int i = 0; i < 2; ++i) {
        optUSEYN[i] = new QRadioButton(QString::fromUtf8(captions[i]), use);
        optUSEYN[i]->setObjectName(u"optUSEYN_%1"_s.arg(i));
        useRow->addWidget(optUSEYN[i]);
    }
    const auto pair = [this, grid](int row, int at, const QString& label, QWidget* field,
                                   int span = 1) {
        grid->addWidget(new QLabel(label, this), row, at * 2);
        grid->addWidget(field, row, at * 2 + 1, 1, span * 2 - 1);
    };
    pair(0, 0, u"복종코드"_s, lblUniformCd);
    pair(0, 1, u"복종명"_s, lblUniformName, 2);
    pair(1, 0, u"전용코드"_s, lblCode);
    pair(1, 1, u"COLOR"_s, txtColor);
    pair(1, 2, u"원단"_s, txtMateril);
    pair(2, 0, u"버튼"_s, txtBtn);
    pair(2, 1, u"패턴"_s, txtPattern);
    pair(2, 2, u"사용여부"_s, use);
    for (int c : {1, 3, 5}) {
        grid->setColumnStretch(c, 1);
    }
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    const auto button = [this, buttons](const char* name, const char* caption) {
        QPushButton* b = Popup::button(QString::fromLatin1(name), QString::fromUtf8(caption));
        buttons->addWidget(b);
        return b;
    };
    connect(button("cmdSerch", "조회"), &QPushButton::clicked, this, &BAMAS115_Trans::sSelectQuery);
    connect(button("cmdNew", "신규"), &QPushButton::clicked, this, &BAMAS115_Trans::cmdNew_Click);
    connect(button("cmdSave", "저장"), &QPushButton::clicked, this, &BAMAS115_Trans::sSaveQuery);
    connect(button("cmdExit", "닫기"), &QPushButton::clicked, this, &QDialog::reject);
    grid->addLayout(buttons, 3, 0, 1, 6);
    return band;
}

QWidget* BAMAS115_Trans::buildLists() {
    SP1 = new Spread(this);
    SP1->setObjectName(u"SP1"_s);
    gsSpreadInit(SP1, u"굴림체"_s, 10, 18, 18, 0, 0xC0C0C0, 3, true, true);
    listColumns().setUp(SP1);
    connect(SP1, &Spread::clicked, this, [this](int row, int) { SP1_Click(row); });
    auto* list = new QGroupBox(u"조회 리스트"_s, this);
    (new QVBoxLayout(list))->addWidget(SP1);

    cboGT25 = new QComboBox(this);
    cboGT25->setObjectName(u"cboGT25"_s);
    cboGT24 = new QComboBox(this);
    cboGT24->setObjectName(u"cboGT24"_s);
    gsReadCode(cboGT25, m_gt25, u"GT025"_s, QString(), true);
    gsReadCode(cboGT24, m_gt24, u"GT024"_s, QString(), true);
    auto* filters = new QHBoxLayout;
    filters->addWidget(new QLabel(u"등급"_s, this));
    filters->addWidget(cboGT25, 1);
    filters->addWidget(new QLabel(u"구분"_s, this));
    filters->addWidget(cboGT24, 1);
    QPushButton* cmdSerch2 = button(u"cmdSerch2"_s, u"학교조회"_s);
    connect(cmdSerch2, &QPushButton::clicked, this, &BAMAS115_Trans::sSelectQuery2);
    filters->addWidget(cmdSerch2);

    auto* schools = new QVBoxLayout;
    schools->addLayout(filters);
    // wide enough for a school's name in full
    schools->addLayout(schoolPickPair(
                           this, schoolColumns(), 340, SP2, SP3, [this] { cmdLeft_Click(); },
                           [this] { cmdRight_Click(); }),
                       1);

    auto* holder = new QWidget(this);
    auto* row = new QHBoxLayout(holder);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(list, 3);
    row->addLayout(schools, 2);
    return holder;
}

QString BAMAS115_Trans::codeTest(const QString& alias) const {
    return dialect().cat({alias + u".TRANSCD"_s, alias + u".TRANSSEQ"_s}) + u" = "_s +
           quoted(lblCode->text());
}

QString BAMAS115_Trans::listStatement() const {
    const Dialect& d = dialect();
    const QString nolock = d.nolock();
    return u" SELECT "_s + d.cat({u"TU.TRANSCD"_s, u"TU.TRANSSEQ"_s}) + u" AS CODE, "_s +
           u"TU.UNIFORMCD, UF.UNIFORMNAME, TU.COLOR, TU.MATERIL, TU.PATTERN, TU.BUTTON, "_s +
           u"TU.USEYN, ISNULL(TS.CNT, 0) AS CNT "_s + u"   FROM C_TRANSUNIFORM TU "_s + nolock +
           u"        INNER JOIN C_UNIFORM UF "_s + nolock +
           u" ON UF.COMPANY = TU.COMPANY AND TU.UNIFORMCD = "_s + itemJoinCode(d, u"UF"_s) +
           u" "_s +
           // the schools in use of each group
           u"        LEFT OUTER JOIN (SELECT TS.COMPANY, TS.TRANSCD, TS.TRANSSEQ, "_s +
           u"COUNT(TS.SCHOOLCD) AS CNT "_s +
           u"                           FROM C_TRANSSCHOOL TS "_s + nolock +
           u"                          INNER JOIN C_SCHOOL SC "_s + nolock +
           u" ON SC.COMPANY = TS.COMPANY AND SC.SCHOOLCD = TS.SCHOOLCD "_s +
           u"                          WHERE SC.USEYN = 'Y' "_s +
           u"                          GROUP BY TS.COMPANY, TS.TRANSCD, TS.TRANSSEQ) TS "_s +
           u"          ON TS.COMPANY = TU.COMPANY AND TS.TRANSCD = TU.TRANSCD "_s +
           u"AND TS.TRANSSEQ = TU.TRANSSEQ "_s + u"  WHERE TU.COMPANY = "_s +
           quoted(session().gsCompany) + u"    AND TU.UNIFORMCD = "_s +
           quoted(lblUniformCd->text()) + u"  ORDER BY TU.TRANSSEQ"_s;
}

void BAMAS115_Trans::sSelectQuery() {
    gfTrap(u"BAMAS115_Trans : sSelectQuery"_s, [this] {
        RecordSet rs;
        if (!gfbSqlSelectDB(listStatement(), rs)) {
            return;
        }
        const GridColumns& c = listColumns();
        const int rows = c.fill(SP1, rs);
        for (int row = 1; row <= rows; ++row) {
            if (c.value(SP1, row, u"USEYN"_s) != u"Y"_s) {
                gsSpreadRowForeColor(SP1, row, kHoldColour);
            }
        }
    });
}

QString BAMAS115_Trans::schoolStatement(bool assigned) const {
    const Dialect& d = dialect();
    const QString nolock = d.nolock();
    const QString names = u"        LEFT OUTER JOIN C_GONGTONG GT25 "_s + nolock +
                          u" ON GT25.L_GRP_COD = '25' AND GT25.S_GRP_COD = SC.SCHOOLLEVEL "_s +
                          u"        LEFT OUTER JOIN C_GONGTONG GT24 "_s + nolock +
                          u" ON GT24.L_GRP_COD = '24' AND GT24.S_GRP_COD = SC.SCHOOLDIVIDE "_s;
    const QString company = quoted(session().gsCompany);
    if (assigned) {
        return u" SELECT SC.SCHOOLCD, GT25.GRP_NAM AS SCHOOLLEVEL, GT24.GRP_NAM AS DIVIDE, "_s +
               u"SC.SCHOOLNAME "_s + u"   FROM C_SCHOOL SC "_s + nolock +
               u"        INNER JOIN C_TRANSSCHOOL TS "_s + nolock +
               u" ON TS.COMPANY = SC.COMPANY AND TS.SCHOOLCD = SC.SCHOOLCD "_s + names +
               u"  WHERE SC.COMPANY = "_s + company + u"    AND SC.USEYN = 'Y' "_s + u"    AND "_s +
               codeTest(u"TS"_s) + u"  ORDER BY GT25.DISP_SEQ, SC.SCHOOLNAME"_s;
    }
    // Schools that wear the item, one row each whatever the season or sex of the assignment.
    QString sql =
        u" SELECT DISTINCT SC.SCHOOLCD, GT25.GRP_NAM AS SCHOOLLEVEL, GT24.GRP_NAM AS DIVIDE, "_s +
        u"SC.SCHOOLNAME, GT25.DISP_SEQ "_s + u"   FROM C_SCHOOL SC "_s + nolock +
        u"        INNER JOIN C_SCHOOLUNIFORM SU "_s + nolock +
        u" ON SU.COMPANY = SC.COMPANY AND SU.SCHOOLCD = SC.SCHOOLCD AND "_s +
        itemFullCode(d, u"SU"_s) + u" = "_s + quoted(lblUniformCd->text()) + u" "_s + names +
        u"  WHERE SC.COMPANY = "_s + company + u"    AND SC.USEYN = 'Y' "_s;
    if (cboGT25->currentIndex() > 0) {
        sql += u"    AND SC.SCHOOLLEVEL = "_s + quoted(gfComboCode(cboGT25, m_gt25)) + u" "_s;
    }
    const QString kind = gfComboCode(cboGT24, m_gt24);
    if (cboGT24->currentIndex() > 0) {
        sql += kind == u"1"_s   ? u"    AND SC.SCHOOLDIVIDE IN ('1', '3') "_s
               : kind == u"2"_s ? u"    AND SC.SCHOOLDIVIDE IN ('2', '3') "_s
               : kind == u"3"_s ? u"    AND SC.SCHOOLDIVIDE IN ('3') "_s
                                : QString();
    }
    sql += u"    AND SC.SCHOOLCD NOT IN (SELECT TS.SCHOOLCD FROM C_TRANSSCHOOL TS "_s + nolock +
           u" WHERE TS.COMPANY = "_s + company + u" AND "_s + codeTest(u"TS"_s) + u") "_s +
           u"  ORDER BY GT25.DISP_SEQ, SC.SCHOOLNAME"_s;
    return sql;
}

void BAMAS115_Trans::sSelectQuery2() {
    gfTrap(u"BAMAS115_Trans : sSelectQuery2"_s, [this] {
        RecordSet notAssigned;
        RecordSet assigned;
        if (!gfbSqlSelectDB(schoolStatement(false), notAssigned) ||
            !gfbSqlSelectDB(schoolStatement(true), assigned)) {
            return;
        }
        fillSchoolPick(SP3, schoolColumns(), notAssigned);
        fillSchoolPick(SP2, schoolColumns(), assigned);
    });
}

void BAMAS115_Trans::SP1_Click(int row) {
    const GridColumns& c = listColumns();
    if (row < 1 || row > SP1->dataRowCnt()) {
        return;
    }
    lblCode->setText(c.value(SP1, row, u"CODE"_s).trimmed());
    txtColor->setText(c.value(SP1, row, u"COLOR"_s));
    txtMateril->setText(c.value(SP1, row, u"MATERIL"_s));
    txtPattern->setText(c.value(SP1, row, u"PATTERN"_s));
    txtBtn->setText(c.value(SP1, row, u"BUTTON"_s).trimmed());
    optUSEYN[c.value(SP1, row, u"USEYN"_s) == u"Y"_s ? 0 : 1]->setChecked(true);
    sSelectQuery2();
}

void BAMAS115_Trans::cmdNew_Click() {
    lblCode->clear();
    for (QLineEdit* box : {txtColor, txtMateril, txtPattern, txtBtn}) {
        box->clear();
    }
    optUSEYN[0]->setChecked(true);
    sSelectQuery2();
}

void BAMAS115_Trans::sSaveQuery() {
    if (lblUniformCd->text().trimmed().isEmpty()) {
        gfsMessage(22);
        return;
    }
    for (QLineEdit* box : {txtColor, txtMateril, txtPattern, txtBtn}) {
        gsTextCut(box);
    }
    enum class Outcome { Failed, Saved, OneSchool, NumbersUsedUp };
    Outcome outcome = Outcome::Failed;
    QString code = lblCode->text();
    gfTrap(
        u"BAMAS115_Trans : sSaveQuery"_s,
        [this, &outcome, &code] {
            const QString company = quoted(session().gsCompany);
            const QString item = lblUniformCd->text().trimmed();
            const Assignments fields{{u"COLOR"_s, quoted(txtColor->text())},
                                     {u"MATERIL"_s, quoted(txtMateril->text())},
                                     {u"BUTTON"_s, quoted(txtBtn->text())},
                                     {u"PATTERN"_s, quoted(txtPattern->text())},
                                     {u"USEYN"_s, optUSEYN[0]->isChecked() ? u"'Y'"_s : u"'N'"_s}};
            // The school lists hang on "TS" and the number alone (C_TRANSSCHOOL has no item
            // code), so the number is the company's: the next after the greatest of any item.
            const QString numbered = whereCompany() + andEquals(u"TRANSCD"_s, kPrefix);
            Transaction tx;
            if (!tx.ok()) {
                return;
            }
            if (code.isEmpty()) {
                RecordSet rs;
                if (!gfbSqlSelectDB(u" SELECT MAX(TRANSSEQ) FROM C_TRANSUNIFORM "_s +
                                        dialect().nolock() + numbered,
                                    rs)) {
                    return;
                }
                const int greatest = rs.eof() ? 0 : rs.value(0).trimmed().toInt();
                if (greatest >= kLastNumber) {
                    outcome = Outcome::NumbersUsedUp;
                    return;
                }
                const QString sql = sqlInsert(
                    kTable,
                    Assignments{{u"COMPANY"_s, company},
                                {u"TRANSCD"_s, quoted(kPrefix)},
                                {u"TRANSSEQ"_s, nextCodeByMax(kTable, u"TRANSSEQ"_s, 2, numbered)},
                                {u"UNIFORMCD"_s, quoted(item)}} +
                        fields + auditOnInsert(kTable));
                if (!gfbSqlExecuteDB(sql)) {
                    return;
                }
                const QString number =
                    gfSelectValue(u" SELECT MAX(TRANSSEQ) FROM C_TRANSUNIFORM "_s + numbered)
                        .trimmed();
                if (number.isEmpty()) {
                    return; // never schools under an empty code
                }
                code = kPrefix + number;
            } else if (!gfbSqlExecuteDB(sqlUpdate(kTable, fields + auditOnUpdate(kTable),
                                                  whereCompany() + u"    AND "_s +
                                                      dialect().cat({u"TRANSCD"_s, u"TRANSSEQ"_s}) +
                                                      u" = "_s + quoted(code) +
                                                      andEquals(u"UNIFORMCD"_s, item)))) {
                return;
            }
            // The schools moved so far, a new item's included. A group of one school is
            // refused but the item row is kept; no school at all is fine.
            const QStringList schools = pickedSchoolCodes(SP2, schoolColumns());
            if (schools.size() == 1) {
                if (tx.commit()) {
                    outcome = Outcome::OneSchool;
                }
                return;
            }
            QString sql = u" DELETE FROM C_TRANSSCHOOL "_s + whereCompany() + u"    AND "_s +
                          dialect().cat({u"TRANSCD"_s, u"TRANSSEQ"_s}) + u" = "_s + quoted(code);
            for (const QString& school : schools) {
                sql +=
                    u"; "_s + sqlInsert(u"C_TRANSSCHOOL"_s, {{u"COMPANY"_s, company},
                                                             {u"TRANSCD"_s, quoted(code.left(2))},
                                                             {u"TRANSSEQ"_s, quoted(code.right(2))},
                                                             {u"SCHOOLCD"_s, quoted(school)}});
            }
            if (gfbSqlExecuteDB(sql) && tx.commit()) {
                outcome = Outcome::Saved;
            }
        },
        true);
    switch (outcome) {
    case Outcome::Failed:
        // Nothing written: what was typed and moved stays for a second try.
        return;
    case Outcome::NumbersUsedUp:
        gfsMsgBox(u"전용코드(TS01~TS99)를 모두 사용하여 더 등록할 수 없습니다."_s);
        return;
    case Outcome::OneSchool:
        lblCode->setText(code);
        gfsMessage(8001);
        sSelectQuery(); // the grid keeps the moved row, as the operator left it
        return;
    case Outcome::Saved:
        lblCode->setText(code);
        sSelectQuery();
        return;
    }
}

void BAMAS115_Trans::cmdLeft_Click() {
    moveCheckedSchools(SP3, SP2, schoolColumns());
    sSaveQuery();
}

void BAMAS115_Trans::cmdRight_Click() {
    moveCheckedSchools(SP2, SP3, schoolColumns());
    sSaveQuery();
}
