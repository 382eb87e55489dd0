#include "screens/school/BAMAS115_SUB.h"

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
#include "screens/school/buttonface.h"
#include "screens/school/schoolpicklist.h"
#include "shell/recordform.h"
#include "shell/trap.h"

#include <QFormLayout>
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
const QString kTable = u"C_UNIFORM"_s;

QLabel* codeLabel(QWidget* parent, const QString& name, const QString& text) {
    auto* label = new QLabel(text, parent);
    label->setObjectName(name);
    label->setFrameShape(QFrame::StyledPanel);
    label->setMinimumWidth(28);
    label->setAlignment(Qt::AlignCenter);
    return label;
}

QLineEdit* readOnlyBox(QWidget* parent, const QString& name, const QString& text) {
    auto* box = new QLineEdit(text, parent);
    box->setObjectName(name);
    box->setReadOnly(true);
    return box;
}

} // namespace

const GridColumns& BAMAS115_SUB::listColumns() {
    static const GridColumns table{
        {u"CD"_s, u"코드"_s, CellType::Static, 7, Align::Centre},
        {u"UNIFORMNAME"_s, u"공통복종명"_s, CellType::Static, 17},
        {u"UNIFORMBTNVIEW"_s, u"버튼"_s, CellType::Static, 0},
        {u"BTNSHOW"_s, u"버튼표출"_s, CellType::Static, 17},
        {u"UNIFORMSPEC"_s, u"복종사양"_s, CellType::Static, 13},
        {u"USEYN"_s,
         u"사용"_s,
         CellType::Static,
         6,
         Align::Centre,
         {{{u"Y"_s, u"사용"_s}}, u"보류"_s}},
        {u"SEQ"_s, u"SEQ"_s, CellType::Static, 0},
    };
    return table;
}

const GridColumns& BAMAS115_SUB::schoolColumns() {
    static const GridColumns table = schoolPickColumns(u"□"_s, 0, 17);
    return table;
}

BAMAS115_SUB::BAMAS115_SUB(const BaseItem& base, QWidget* parent) : Popup(parent), m_base(base) {
    setObjectName(u"BAMAS115_SUB"_s);
    setWindowTitle(u"공통복종 관리"_s);
    resize(1100, 720);
    auto* column = new QVBoxLayout(this);
    column->addWidget(buildFields());
    column->addWidget(buildSchools(), 1);
    sClearInput();
    sSelectQuery();
}

QWidget* BAMAS115_SUB::buildFields() {
    auto* holder = new QWidget(this);
    auto* top = new QHBoxLayout(holder);
    top->setContentsMargins(0, 0, 0, 0);

    // What the base item is, as codes; read only.
    auto* baseBox = new QGroupBox(u"기본복종"_s, this);
    auto* baseForm = new QFormLayout(baseBox);
    baseForm->addRow(u"기본복종코드"_s, readOnlyBox(this, u"txtcode"_s, m_base.code));
    baseForm->addRow(u"기본복종명"_s, readOnlyBox(this, u"txtcodenm"_s, m_base.name));
    auto* codes = new QHBoxLayout;
    const std::pair<const char*, QString> parts[] = {{"lblGT22", m_base.season},
                                                     {"lblGT23", m_base.divide},
                                                     {"lblGT26", m_base.sizeTab},
                                                     {"lblGT28", m_base.subMain},
                                                     {"lblCGT01", m_base.uniType},
                                                     {"lblCodeSeq", m_base.sequence},
                                                     {"lblchkMix", m_base.mix ? u"1"_s : u"0"_s}};
    for (const auto& [name, value] : parts) {
        codes->addWidget(codeLabel(this, QString::fromLatin1(name), value));
    }
    codes->addStretch(1);
    baseForm->addRow(u"시즌/성별/탭/품목/품종/순번/혼용"_s, codes);
    top->addWidget(baseBox, 2);

    auto* input = new QGroupBox(u"공통복종"_s, this);
    auto* form = new QFormLayout(input);
    txtComCode = readOnlyBox(this, u"txtComCode"_s, QString());
    txtComCode->setStyleSheet(u"QLineEdit { background: rgb(224, 224, 224); }"_s);
    txtComCode->setFixedWidth(60);
    auto* hint = new QLabel(u"기본복종 코드 뒤로 2자리 순번으로 자동부여 합니다."_s, this);
    auto* codeRow = new QHBoxLayout;
    codeRow->addWidget(txtComCode);
    codeRow->addWidget(hint, 1);
    form->addRow(u"공통코드"_s, codeRow);
    txtComName = textBox(u"txtComName"_s, 20);
    form->addRow(u"공통품명"_s, txtComName);
    txtComButName = new ButtonFaceText(u"txtComButName"_s, 20, this);
    cmdButton = buttonFace(u"cmdButton"_s, this);
    txtComButName->showOn(cmdButton);
    auto* buttonRow = new QHBoxLayout;
    buttonRow->addWidget(txtComButName, 1);
    buttonRow->addWidget(cmdButton);
    form->addRow(u"버튼표기"_s, buttonRow);
    txtComSpec = textBox(u"txtComSpec"_s, 50);
    form->addRow(u"제품사양"_s, txtComSpec);
    for (QWidget* field : std::initializer_list<QWidget*>{txtComName, txtComButName, txtComSpec}) {
        RecordForm::markRequired(field);
    }
    optON = new QRadioButton(u"사용"_s, this);
    optON->setObjectName(u"optON"_s);
    optOFF = new QRadioButton(u"보류"_s, this);
    optOFF->setObjectName(u"optOFF"_s);
    auto* useRow = new QHBoxLayout;
    useRow->addWidget(optON);
    useRow->addWidget(optOFF);
    useRow->addStretch(1);
    const auto button = [this, useRow](const char* name, const char* caption) {
        QPushButton* b = Popup::button(QString::fromLatin1(name), QString::fromUtf8(caption));
        useRow->addWidget(b);
        return b;
    };
    connect(button("cmdNew", "신규"), &QPushButton::clicked, this, &BAMAS115_SUB::cmdNew_Click);
    cmdSave = button("cmdSave", "저장");
    connect(cmdSave, &QPushButton::clicked, this, &BAMAS115_SUB::sSaveQuery);
    connect(button("cmdDel", "삭제"), &QPushButton::clicked, this, &BAMAS115_SUB::cmdDel_Click);
    connect(button("cmdExit", "닫기"), &QPushButton::clicked, this, &QDialog::reject);
    form->addRow(u"사용여부"_s, useRow);
    top->addWidget(input, 3);
    return holder;
}

QWidget* BAMAS115_SUB::buildSchools() {
    SP1 = new Spread(this);
    SP1->setObjectName(u"SP1"_s);
    gsSpreadInit(SP1, u"굴림체"_s, 10, 18, 18, 0, 0xC0C0C0, 3, true, true);
    listColumns().setUp(SP1);
    connect(SP1, &Spread::clicked, this, [this](int row, int) { SP1_Click(row); });
    auto* list = new QGroupBox(u"조회 리스트"_s, this);
    (new QVBoxLayout(list))->addWidget(SP1);

    // Which pupils the schools are for; a one-sex item decides it itself.
    Frame3 = new QGroupBox(u"성별조회"_s, this);
    Frame3->setObjectName(u"Frame3"_s);
    auto* sexes = new QHBoxLayout(Frame3);
    const char* const captions[] = {"미선택", "남", "여"};
    for (int i = 0; i < 3; ++i) {
        optGT23[i] = new QRadioButton(QString::fromUtf8(captions[i]), this);
        optGT23[i]->setObjectName(u"optGT23_%1"_s.arg(i));
        sexes->addWidget(optGT23[i]);
        connect(optGT23[i], &QRadioButton::clicked, this, [this] { sSelectSchools(); });
    }
    optGT23[0]->setChecked(true);
    if (m_base.divide == u"B"_s) {
        optGT23[1]->setChecked(true);
    } else if (m_base.divide == u"G"_s) {
        optGT23[2]->setChecked(true);
    }
    Frame3->setEnabled(m_base.mix || (m_base.divide != u"B"_s && m_base.divide != u"G"_s));

    auto* schools = new QVBoxLayout;
    schools->addWidget(Frame3);
    // wide enough for a school's name in full
    schools->addLayout(schoolPickPair(
                           this, schoolColumns(), 310, SP2, SP3, [this] { cmdLeft_Click(); },
                           [this] { cmdRight_Click(); }),
                       1);

    auto* holder = new QWidget(this);
    auto* row = new QHBoxLayout(holder);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(list, 5);
    row->addLayout(schools, 4);
    return holder;
}

QString BAMAS115_SUB::keyWhere() const {
    return whereCompany() + andEquals(u"SEASON"_s, m_base.season) +
           andEquals(u"DIVIDE"_s, m_base.divide) + andEquals(u"UNIFORMSEQ"_s, m_base.sequence);
}

QString BAMAS115_SUB::sudivide() const {
    return optGT23[1]->isChecked() ? u"1"_s : optGT23[2]->isChecked() ? u"2"_s : QString();
}

void BAMAS115_SUB::sSelectQuery() {
    gfTrap(u"BAMAS115_SUB : sSelectQuery"_s, [this] {
        const QString sql = u" SELECT "_s + itemFullCode(dialect()) + u" AS CD, "_s +
                            u"UNIFORMNAME, UNIFORMBTNVIEW, UNIFORMSPEC, USEYN, "_s +
                            u"UNIFORMCOMSEQ AS SEQ "_s + u"   FROM C_UNIFORM "_s +
                            dialect().nolock() + keyWhere() + u"    AND UNIFORMCOMSEQ <> '' "_s +
                            u"  ORDER BY RTRIM(SEASON), RTRIM(DIVIDE), RTRIM(UNIFORMSEQ), "_s +
                            u"RTRIM(UNIFORMCOMSEQ)"_s;
        RecordSet rs;
        if (!gfbSqlSelectDB(sql, rs)) {
            return;
        }
        const GridColumns& c = listColumns();
        const int rows = c.fill(SP1, rs);
        for (int row = 1; row <= rows; ++row) {
            QString shown = c.value(SP1, row, u"UNIFORMBTNVIEW"_s);
            c.setValue(SP1, row, u"BTNSHOW"_s, shown.replace(u"\r\n"_s, u"|"_s));
            if (c.value(SP1, row, u"USEYN"_s) != u"Y"_s) {
                gsSpreadRowForeColor(SP1, row, kHoldColour);
            }
        }
    });
}

void BAMAS115_SUB::SP1_Click(int row) {
    const GridColumns& c = listColumns();
    if (row < 1 || row > SP1->dataRowCnt()) {
        return;
    }
    m_fullCode = c.value(SP1, row, u"CD"_s).trimmed();
    txtComCode->setText(c.value(SP1, row, u"SEQ"_s).trimmed());
    txtComName->setText(c.value(SP1, row, u"UNIFORMNAME"_s));
    txtComButName->setValue(c.value(SP1, row, u"UNIFORMBTNVIEW"_s));
    txtComSpec->setText(c.value(SP1, row, u"UNIFORMSPEC"_s));
    (c.value(SP1, row, u"USEYN"_s) == u"Y"_s ? optON : optOFF)->setChecked(true);
    cmdSave->setEnabled(true);
    sSelectSchools();
}

QString BAMAS115_SUB::schoolStatement(bool assigned, const QString& sud) const {
    const Dialect& d = dialect();
    const QString nolock = d.nolock();
    const QString itemTest = u"    AND SU.SEASON IN ('A', "_s + quoted(m_base.season) + u") "_s +
                             u"    AND SU.DIVIDE = "_s + quoted(m_base.divide) +
                             u"    AND SU.UNIFORMSEQ = "_s + quoted(m_base.sequence) +
                             u"    AND SU.UNIFORMCOMSEQ = "_s + quoted(txtComCode->text()) +
                             u"    AND SU.SUDIVIDE = "_s + quoted(sud);
    const QString levels = u"        LEFT OUTER JOIN C_GONGTONG GT25 "_s + nolock +
                           u" ON GT25.L_GRP_COD = '25' AND GT25.S_GRP_COD = SC.SCHOOLLEVEL "_s;
    if (assigned) {
        return u" SELECT SC.SCHOOLCD, GT25.GRP_NAM AS SCHOOLLEVEL, GT23.GRP_NAM AS DIVIDE, "_s +
               u"SC.SCHOOLNAME "_s + u"   FROM C_SCHOOL SC "_s + nolock +
               u"        INNER JOIN C_SCHOOLUNIFORM SU "_s + nolock +
               u" ON SU.COMPANY = SC.COMPANY AND SU.SCHOOLCD = SC.SCHOOLCD "_s + levels +
               u"        LEFT OUTER JOIN C_GONGTONG GT23 "_s + nolock +
               u" ON GT23.L_GRP_COD = '23' AND GT23.S_GRP_COD = SU.DIVIDE "_s +
               u"  WHERE SC.COMPANY = "_s + quoted(session().gsCompany) + itemTest +
               u"  ORDER BY GT25.DISP_SEQ, SC.SCHOOLNAME "_s;
    }
    const QString divide =
        sud == u"1"_s   ? u"CASE WHEN GT24.GRP_NAM = '공학' THEN '남' ELSE GT24.GRP_NAM END"_s
        : sud == u"2"_s ? u"'여'"_s
                        : u"GT24.GRP_NAM"_s;
    return u" SELECT SC.SCHOOLCD, GT25.GRP_NAM AS SCHOOLLEVEL, "_s + divide + u" AS DIVIDE, "_s +
           u"SC.SCHOOLNAME "_s + u"   FROM C_SCHOOL SC "_s + nolock + levels +
           u"        LEFT OUTER JOIN C_GONGTONG GT24 "_s + nolock +
           u" ON GT24.L_GRP_COD = '24' AND GT24.S_GRP_COD = SC.SCHOOLDIVIDE "_s +
           u"  WHERE SC.COMPANY = "_s + quoted(session().gsCompany) + u"    AND SC.USEYN = 'Y' "_s +
           (sud == u"1"_s ? u"    AND SC.SCHOOLDIVIDE IN ('1', '3') "_s
                          : u"    AND SC.SCHOOLDIVIDE IN ('2', '3') "_s) +
           u"    AND NOT EXISTS (SELECT 1 FROM C_SCHOOLUNIFORM SU "_s + nolock +
           u"                     WHERE SU.COMPANY = SC.COMPANY AND SU.SCHOOLCD = SC.SCHOOLCD "_s +
           itemTest + u") "_s + u"  ORDER BY GT25.DISP_SEQ, SC.SCHOOLNAME "_s;
}

void BAMAS115_SUB::sSelectSchools() {
    // No item chosen, or no sex: nothing to assign.
    const QString sud = sudivide();
    if (txtComCode->text().isEmpty() || sud.isEmpty()) {
        for (Spread* grid : {SP2, SP3}) {
            grid->setMaxRows(0);
            grid->setMaxRows(kSchoolPickRows);
        }
        return;
    }
    gfTrap(u"BAMAS115_SUB : sSelectQuery"_s, [this, &sud] {
        RecordSet notAssigned;
        RecordSet assigned;
        if (!gfbSqlSelectDB(schoolStatement(false, sud), notAssigned) ||
            !gfbSqlSelectDB(schoolStatement(true, sud), assigned)) {
            return;
        }
        fillSchoolPick(SP3, schoolColumns(), notAssigned);
        fillSchoolPick(SP2, schoolColumns(), assigned);
    });
}

bool BAMAS115_SUB::checkRequired() const {
    if (txtComName->text().trimmed().isEmpty() || txtComButName->value().trimmed().isEmpty() ||
        txtComSpec->text().trimmed().isEmpty()) {
        gfsMessage(22);
        return false;
    }
    return true;
}

void BAMAS115_SUB::sSaveQuery() {
    if (!checkRequired()) {
        return;
    }
    gsTextCut(txtComName);
    gsTextCut(txtComSpec);
    // Reloaded from the table only after a commit: after any failure the typed fields and the
    // schools just moved stay on screen for a second try.
    QString saved;
    gfTrap(
        u"BAMAS115_SUB : sSaveQuery"_s,
        [this, &saved] {
            const QString use = optON->isChecked() ? u"Y"_s : u"N"_s;
            const Assignments texts{{u"UNIFORMNAME"_s, quoted(txtComName->text())},
                                    {u"UNIFORMBTNVIEW"_s, quoted(txtComButName->value())},
                                    {u"UNIFORMSPEC"_s, quoted(txtComSpec->text())}};
            Transaction tx;
            if (!tx.ok()) {
                return;
            }
            QString sequence;
            if (txtComCode->text().isEmpty()) {
                // The highest number plus one: a gap left by a delete stays a gap. Past "99" the
                // number is NULL and the insert is refused.
                const QString sql = sqlInsert(
                    kTable,
                    Assignments{{u"COMPANY"_s, quoted(session().gsCompany)},
                                {u"SEASON"_s, quoted(m_base.season)},
                                {u"DIVIDE"_s, quoted(m_base.divide)},
                                {u"UNIFORMSEQ"_s, quoted(m_base.sequence)},
                                {u"UNIFORMCOMSEQ"_s,
                                 nextCodeByMax(kTable, u"UNIFORMCOMSEQ"_s, 2, keyWhere())}} +
                        texts +
                        Assignments{{u"SIZETAB"_s, quoted(m_base.sizeTab)},
                                    {u"SUBMAIN"_s, quoted(m_base.subMain)},
                                    {u"UNITYPE"_s, quoted(m_base.uniType)},
                                    {u"MIXUNIFORM"_s, m_base.mix ? u"'1'"_s : u"'0'"_s},
                                    {u"USEYN"_s, quoted(use)}} +
                        auditOnInsert(kTable));
                if (!gfbSqlExecuteDB(sql)) {
                    return;
                }
                sequence =
                    gfSelectValue(u" SELECT MAX(UNIFORMCOMSEQ) FROM C_UNIFORM "_s + keyWhere())
                        .trimmed();
                if (sequence.isEmpty()) {
                    return; // never schools under an empty number
                }
            } else {
                sequence = txtComCode->text();
                const QString sql =
                    sqlUpdate(kTable,
                              texts +
                                  Assignments{{u"MIXUNIFORM"_s, m_base.mix ? u"'1'"_s : u"'0'"_s},
                                              {u"USEYN"_s, quoted(use)}} +
                                  auditOnUpdate(kTable),
                              keyWhere() + andEquals(u"UNIFORMCOMSEQ"_s, sequence));
                if (!gfbSqlExecuteDB(sql)) {
                    return;
                }
            }
            // The schools of the chosen sex become the assigned list; without a sex the item
            // is saved alone.
            const QString sud = sudivide();
            if (!sud.isEmpty()) {
                const QString item = whereCompany() + andEquals(u"DIVIDE"_s, m_base.divide) +
                                     andEquals(u"UNIFORMSEQ"_s, m_base.sequence) +
                                     andEquals(u"UNIFORMCOMSEQ"_s, sequence);
                QString schools = u" DELETE FROM C_SCHOOLUNIFORM "_s + item +
                                  andEquals(u"SEASON"_s, m_base.season) +
                                  andEquals(u"SUDIVIDE"_s, sud);
                for (const QString& school : pickedSchoolCodes(SP2, schoolColumns())) {
                    schools +=
                        u"; "_s + sqlInsert(u"C_SCHOOLUNIFORM"_s,
                                            Assignments{{u"COMPANY"_s, quoted(session().gsCompany)},
                                                        {u"SCHOOLCD"_s, quoted(school)},
                                                        {u"SEASON"_s, quoted(m_base.season)},
                                                        {u"SUDIVIDE"_s, quoted(sud)},
                                                        {u"DIVIDE"_s, quoted(m_base.divide)},
                                                        {u"UNIFORMSEQ"_s, quoted(m_base.sequence)},
                                                        {u"UNIFORMCOMSEQ"_s, quoted(sequence)},
                                                        {u"USEYN"_s, quoted(use)}} +
                                                auditOnInsert(u"C_SCHOOLUNIFORM"_s));
                }
                if (!gfbSqlExecuteDB(schools)) {
                    return;
                }
            }
            if (tx.commit()) {
                saved = sequence;
            }
        },
        true);
    if (saved.isEmpty()) {
        return;
    }
    sClearInput();
    sSelectQuery();
    // The item just saved stays chosen, its schools listed as the table now holds them.
    selectSequence(saved);
}

void BAMAS115_SUB::selectSequence(const QString& sequence) {
    const GridColumns& c = listColumns();
    for (int row = 1; row <= SP1->dataRowCnt(); ++row) {
        if (c.value(SP1, row, u"SEQ"_s).trimmed() == sequence) {
            gsSpreadSelectRow(SP1, row);
            SP1_Click(row);
            return;
        }
    }
}

void BAMAS115_SUB::cmdDel_Click() {
    if (txtComCode->text().isEmpty()) {
        return;
    }
    gfTrap(
        u"BAMAS115_SUB : cmdDelUnif"_s,
        [this] {
            if (gfTableCount(u"S_ORDERDETAIL"_s, andEquals(u"UNIFORMCD"_s, m_fullCode)) >= 1) {
                gfsMessage(8080);
                return;
            }
            // The item, its schools and its exclusive items go together; the exclusive
            // items' school lists stay.
            const QString sql = u" DELETE FROM C_UNIFORM "_s + keyWhere() +
                                andEquals(u"UNIFORMCOMSEQ"_s, txtComCode->text()) + u"; "_s +
                                u" DELETE FROM C_SCHOOLUNIFORM "_s + whereCompany() +
                                u"    AND "_s + itemFullCode(dialect()) + u" = "_s +
                                quoted(m_fullCode) + u"; "_s + u" DELETE FROM C_TRANSUNIFORM "_s +
                                whereCompany() + andEquals(u"UNIFORMCD"_s, m_fullCode);
            Transaction tx;
            if (tx.ok() && gfbSqlExecuteDB(sql) && tx.commit()) {
                sClearInput();
                sSelectQuery();
            }
        },
        true);
}

void BAMAS115_SUB::cmdLeft_Click() {
    if (!checkRequired()) {
        return;
    }
    moveCheckedSchools(SP3, SP2, schoolColumns());
    sSaveQuery();
}

void BAMAS115_SUB::cmdRight_Click() {
    if (!checkRequired()) {
        return;
    }
    moveCheckedSchools(SP2, SP3, schoolColumns());
    sSaveQuery();
}

void BAMAS115_SUB::sClearInput() {
    m_fullCode.clear();
    txtComCode->clear();
    txtComName->clear();
    txtComButName->setValue(QString());
    txtComSpec->clear();
    cmdButton->setText(QString());
    optON->setChecked(true);
    cmdSave->setEnabled(true);
    sSelectSchools();
}
