#include "screens/stock/BAMAS310.h"

#include "data/dbroutines.h"
#include "data/dialect.h"
#include "data/itemcode.h"
#include "data/messages.h"
#include "data/schema/views.h"
#include "data/session.h"
#include "data/sizelabels.h"
#include "data/sqlbuild.h"
#include "data/sqlvalue.h"
#include "data/waitcursor.h"
#include "grid/excelexport.h"
#include "grid/gridcolumns.h"
#include "grid/inputhelpers.h"
#include "grid/linegrid.h"
#include "grid/spreadroutines.h"
#include "screens/stock/sizeheadings.h"
#include "screens/stock/stockentry.h"
#include "shell/codecontrols.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QDate>
#include <QDateEdit>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

// SP3: the hidden codes of the line, its names, total, 24 sizes, the size table.
enum EntryCol {
    EntSchoolCd = 1,
    EntSudivide,
    EntSchool,
    EntUniformCd,
    EntUniform,
    EntYear,
    EntTotal,
    EntFirstSize,
    EntSizeTab = EntFirstSize + kSizePositions,
    EntCount = EntSizeTab
};

constexpr quint32 kLabelBack = 0xC0FFC0;

const GridColumns& entryColumns() {
    static const GridColumns table = [] {
        std::vector<GridColumn> c{
            {QString(), u"SCHOOLCD"_s, CellType::Static, 0},
            {QString(), u"SUDIVIDE"_s, CellType::Static, 0},
            {QString(), u"학교 [성]"_s, CellType::Static, 14},
            {QString(), u"UNIFORMCD"_s, CellType::Static, 0},
            {QString(), u"복종"_s, CellType::Static, 20},
            {QString(), u"연도"_s, CellType::Static, 5, Align::Centre},
            {QString(), u"합계"_s, CellType::Static, 6, Align::Right},
        };
        for (int n = 1; n <= kSizePositions; ++n) {
            c.push_back({QString(), QString::number(n), CellType::Static, 4, Align::Right});
        }
        c.push_back({QString(), u"SIZETAB"_s, CellType::Static, 0});
        return GridColumns(std::move(c));
    }();
    return table;
}

} // namespace

BAMAS310::BAMAS310() : Screen(u"BAMAS310"_s, u"발주관리"_s) {}

BAMAS310::~BAMAS310() = default;

void BAMAS310::setupScreen() {
    SSTab1 = new QTabWidget(this);
    SSTab1->setObjectName(u"SSTab1"_s);
    SSTab1->addTab(buildEntryTab(), u"발주등록"_s);
    SSTab1->addTab(buildStatusTab(), u"발주현황"_s);
    contentLayout()->addWidget(SSTab1, 1);

    m_currentYear = stockCurrentYear();
    fillEntryYears(cboYY[0], m_currentYear, {1, 0});
    fillEntryYears(cboYY[1], m_currentYear, {1, 0, -1});
    for (int tab = 0; tab < 2; ++tab) {
        gsReadCode(cboStore[tab], m_store[tab], u"STORE2"_s);
        gsReadCode(cboLevel[tab], m_level[tab], u"GT25"_s);
    }
    m_clear();
}

QWidget* BAMAS310::buildEntryTab() {
    auto* tab = new QWidget(this);
    auto* row = new QHBoxLayout(tab);
    SP1 = new Spread(tab);
    SP1->setObjectName(u"SP1"_s);
    setUpSchoolList(SP1);
    SP1->setMaximumWidth(200);
    row->addWidget(SP1);

    auto* right = new QVBoxLayout;
    auto* filters = new QGridLayout;
    cboStore[0] = comboBox(u"cboStore_0"_s);
    markRequired(cboStore[0]);
    lblStore[0] = new QLabel(tab);
    lblStore[0]->setObjectName(u"lblStore_0"_s);
    cboLevel[0] = comboBox(u"cboLevel_0"_s);
    cboYY[0] = comboBox(u"cboYY_0"_s);
    dtpStart[0] = dateBox(u"dtpStart_0"_s);
    txtFullName = textBox(u"txtFullName"_s, 50);
    markRequired(txtFullName);
    Label2[0] = new QLabel(tab);
    Label2[0]->setObjectName(u"Label2_0"_s);
    Label2[1] = new QLabel(tab);
    Label2[1]->setObjectName(u"Label2_1"_s);
    Label2[1]->hide(); // the school's code travels with its name

    auto* sexes = new QButtonGroup(tab);
    auto* seasons = new QButtonGroup(tab);
    auto* classes = new QButtonGroup(tab);
    auto* options = new QHBoxLayout;
    const QString sexNames[3] = {u"전체"_s, u"남"_s, u"여"_s};
    for (int i = 0; i < 3; ++i) {
        optSchDivi[i] = optionButton(tab, u"optSchDivi_%1"_s.arg(i), sexNames[i], sexes);
        options->addWidget(optSchDivi[i]);
    }
    options->addSpacing(16);
    optSeason0[0] = optionButton(tab, u"optSeason0_0"_s, u"동복"_s, seasons);
    optSeason0[1] = optionButton(tab, u"optSeason0_1"_s, u"하복"_s, seasons);
    options->addWidget(optSeason0[0]);
    options->addWidget(optSeason0[1]);
    options->addSpacing(16);
    optSubMain0[0] = optionButton(tab, u"optSubMain0_0"_s, u"주,부품목"_s, classes);
    optSubMain0[1] = optionButton(tab, u"optSubMain0_1"_s, u"별매품"_s, classes);
    options->addWidget(optSubMain0[0]);
    options->addWidget(optSubMain0[1]);
    options->addStretch(1);
    optSchDivi[0]->setChecked(true);
    optSeason0[0]->setChecked(true);
    optSubMain0[0]->setChecked(true);

    cmdSave2 = new QPushButton(u"등록"_s, tab);
    cmdSave2->setObjectName(u"cmdSave2"_s);
    filters->addWidget(new QLabel(u"매장"_s, tab), 0, 0);
    filters->addWidget(cboStore[0], 0, 1);
    filters->addWidget(lblStore[0], 0, 2);
    filters->addWidget(new QLabel(u"학교구분"_s, tab), 0, 3);
    filters->addWidget(cboLevel[0], 0, 4);
    filters->addWidget(new QLabel(u"연식"_s, tab), 0, 5);
    filters->addWidget(cboYY[0], 0, 6);
    filters->addWidget(new QLabel(u"발주일"_s, tab), 1, 0);
    filters->addWidget(dtpStart[0], 1, 1);
    filters->addWidget(new QLabel(u"발주처"_s, tab), 1, 3);
    filters->addWidget(txtFullName, 1, 4, 1, 3);
    filters->addWidget(cmdSave2, 1, 7);
    filters->addLayout(options, 2, 0, 1, 6);
    filters->addWidget(Label2[0], 2, 6, 1, 2);
    filters->setColumnStretch(8, 1);
    right->addLayout(filters);

    SP3 = new Spread(tab);
    SP3->setObjectName(u"SP3"_s);
    gsSpreadInit(SP3, u"굴림체"_s, 10, 18, 18, 0, 0xC0C0C0, 3, false, false);
    entryColumns().setUp(SP3);
    SP3->setLocked(-1, -1, true);
    gsSpreadFreezeCols(SP3, EntTotal);
    m_entry = std::make_unique<LineGrid>(
        SP3, LineGridLayout{{{LineRow::Labels, false, kLabelBack}, {LineRow::Quantity, true}},
                            EntFirstSize,
                            EntTotal,
                            0,
                            EntTotal,
                            EntCount,
                            std::nullopt});
    right->addWidget(SP3, 1);
    row->addLayout(right, 1);

    connect(cboStore[0], &QComboBox::currentIndexChanged, this, [this] { cboStore_Click(0); });
    connect(cboLevel[0], &QComboBox::currentIndexChanged, this, [this] { cboStore_Click(0); });
    connect(SP1, &Spread::clicked, this, [this](int r, int) { SP1_Click(r); });
    for (QButtonGroup* g : {sexes, seasons, classes}) {
        connect(g, &QButtonGroup::buttonClicked, this, [this] { loadEntryGrid(); });
    }
    connect(cboYY[0], &QComboBox::currentIndexChanged, this, [this] { loadEntryGrid(); });
    // The sums follow each cell as it is left.
    connect(SP3, &Spread::changed, this, [this](int r, int) {
        if (r >= 1) {
            m_entry->recomputeLine(m_entry->lineOf(r));
        }
    });
    connect(txtFullName, &QLineEdit::returnPressed, this, [this] { focusNextChild(); });
    connect(cmdSave2, &QPushButton::clicked, this, &BAMAS310::cmdSave2_Click);
    return tab;
}

void BAMAS310::cboStore_Click(int tab) {
    if (!mbLoaded) {
        return;
    }
    const int index = cboStore[tab]->currentIndex();
    lblStore[tab]->setText(m_store[tab].name(index));
    const QString level =
        cboLevel[tab]->currentIndex() > 0 ? gfComboCode(cboLevel[tab], m_level[tab]) : QString();
    guarded(u"cboStore_Click"_s, [&] {
        Spread* list = tab == 0 ? SP1 : SP20;
        if (index < 1) {
            list->setMaxRows(0);
            return;
        }
        RecordSet rs;
        if (gfbSqlSelectDB(storeSchoolListSql(gfComboCode(cboStore[tab], m_store[tab]), level),
                           rs)) {
            fillSchoolList(list, rs, tab == 1);
        }
    });
}

void BAMAS310::SP1_Click(int row) {
    if (row < 1 || gfSpreadCellText(SP1, row, 2).isEmpty()) {
        return;
    }
    Label2[0]->setText(gfSpreadCellText(SP1, row, 1));
    Label2[1]->setText(gfSpreadCellText(SP1, row, 2));
    m_school = Label2[1]->text();
    loadEntryGrid();
}

void BAMAS310::m_Search() {
    const int row = SP1->activeRow();
    if (row >= 1) {
        SP1_Click(row);
    }
}

QString BAMAS310::entrySql() const {
    const Dialect& d = dialect();
    const QString nl = d.nolock();
    QString sql =
        u" SELECT SU.SCHOOLCD, SU.SUDIVIDE, "_s + schoolSexText(d) +
        u" SCHOOLTEXT, SS.CD, "
        "        UF.UNIFORMNAME, "_s +
        d.cat({u"SUBSTRING(SS.BSYYYY, 4, 1)"_s, u"RTRIM(UF.SEASON)"_s}) +
        u" YEARTEXT, SS.SIZETAB, "_s + eachSize(u"SS.C%1"_s) + u"   FROM C_UNIFORM UF "_s + nl +
        u", C_SCHOOLUNIFORM SU "_s + nl + u", C_SCHOOL CS "_s + nl +
        u", VIW_SCHUNIFOMSIZE SS, C_GONGTONG GT24 "_s + nl + u"  WHERE UF.COMPANY = "_s +
        quotedCompany() +
        u"    AND SU.COMPANY = UF.COMPANY AND SU.SEASON = UF.SEASON AND SU.DIVIDE = UF.DIVIDE "
        "    AND SU.UNIFORMSEQ = UF.UNIFORMSEQ AND SU.UNIFORMCOMSEQ = UF.UNIFORMCOMSEQ "
        "    AND SU.USEYN = 'Y' AND SU.SCHOOLCD = "_s +
        quoted(m_school) +
        u"    AND CS.COMPANY = SU.COMPANY AND CS.SCHOOLCD = SU.SCHOOLCD "
        "    AND GT24.L_GRP_COD = '24' AND GT24.S_GRP_COD = SU.SUDIVIDE "
        "    AND SS.COMPANY = UF.COMPANY AND SS.STORECD = "_s +
        quoted(gfComboCode(cboStore[0], m_store[0])) +
        u"    AND SS.SCHOOLCD = SU.SCHOOLCD AND SS.CD = "_s + itemFullCode(d, u"UF"_s) +
        u"    AND SS.BSYYYY = "_s + quoted(entryYear(cboYY[0])) +
        u"    AND UF.USEYN = 'Y' "
        // A boys' item for boys, a girls' item for girls; an item for both for either.
        "    AND (UF.DIVIDE NOT IN ('B', 'G') OR SU.SUDIVIDE = "
        "         CASE UF.DIVIDE WHEN 'B' THEN '1' ELSE '2' END) "_s;
    if (optSchDivi[1]->isChecked()) {
        sql += u"    AND SU.SUDIVIDE = '1' "_s;
    } else if (optSchDivi[2]->isChecked()) {
        sql += u"    AND SU.SUDIVIDE = '2' "_s;
    }
    sql += optSeason0[0]->isChecked() ? u"    AND SU.SEASON IN ('A',  'N') "_s
                                      : u"    AND SU.SEASON IN ('A',  'S') "_s;
    sql += optSubMain0[0]->isChecked() ? u"    AND UF.SUBMAIN IN ('1', '2') "_s
                                       : u"    AND UF.SUBMAIN = '3' "_s;
    return sql + u"  ORDER BY SU.DISP_SEQ, GT24.DISP_SEQ, UF.DISP_SEQ, RTRIM(UF.SEASON), "
                 "RTRIM(UF.DIVIDE), RTRIM(UF.UNITYPE), RTRIM(UF.UNIFORMCOMSEQ), "
                 "RTRIM(UF.UNIFORMSEQ)"_s;
}

void BAMAS310::loadEntryGrid() {
    if (!mbLoaded || m_school.isEmpty() || cboStore[0]->currentIndex() < 1) {
        return;
    }
    if (entryYear(cboYY[0]).isEmpty()) {
        gfsMessage(8061);
        return;
    }
    guarded(u"SP1_Click"_s, [this] {
        const WaitCursor wait;
        RecordSet rs;
        if (!gfbSqlSelectDB(entrySql(), rs)) {
            return;
        }
        SP3->setRedraw(false);
        m_entry->clear();
        for (rs.moveFirst(); !rs.eof(); rs.moveNext()) {
            const int line = m_entry->addLine();
            m_entry->setCommon(line, EntSchoolCd, rs.field(u"SCHOOLCD"_s).trimmed());
            m_entry->setCommon(line, EntSudivide, rs.field(u"SUDIVIDE"_s).trimmed());
            m_entry->setCommon(line, EntSchool, rs.field(u"SCHOOLTEXT"_s).trimmed());
            m_entry->setCommon(line, EntUniformCd, rs.field(u"CD"_s).trimmed());
            m_entry->setCommon(line, EntUniform, rs.field(u"UNIFORMNAME"_s).trimmed());
            m_entry->setCommon(line, EntYear, rs.field(u"YEARTEXT"_s).trimmed());
            gsSpreadSetText(SP3, m_entry->row(line, LineRow::Labels), EntSizeTab,
                            rs.field(u"SIZETAB"_s).trimmed());
            QStringList labels;
            for (int p = 1; p <= kSizePositions; ++p) {
                labels << rs.field(sizeLabelColumn(p));
            }
            m_entry->setLabels(line, labels);
        }
        gsSpreadColMerge(SP3, EntSchool, EntYear);
        SP3->setRedraw(true);
    });
}

QString BAMAS310::orderInsertSql(int line) const {
    const QString store = gfComboCode(cboStore[0], m_store[0]);
    const QString day = ymdOf(dtpStart[0]);
    Assignments a{
        {u"COMPANY"_s, quotedCompany()},
        {u"STORECD"_s, quoted(store)},
        {u"ORDERDT"_s, quoted(day)},
        {u"ORDERSEQ"_s,
         nextSequence(u"T_ORDER"_s, u"ORDERSEQ"_s,
                      u" WHERE COMPANY = "_s + quotedCompany() + u" AND STORECD = "_s +
                          quoted(store) + u" AND ORDERDT = "_s + quoted(day))},
        {u"SCHOOLCD"_s, quoted(m_entry->common(line, EntSchoolCd))},
        {u"SUDIVIDE"_s, quoted(m_entry->common(line, EntSudivide))},
        {u"UNIFORMCD"_s, quoted(m_entry->common(line, EntUniformCd))},
        {u"ORDYYYY"_s, quoted(entryYear(cboYY[0]))},
        {u"SIZETAB"_s,
         quoted(gfSpreadCellText(SP3, m_entry->row(line, LineRow::Labels), EntSizeTab))},
    };
    for (int p = 1; p <= kSizePositions; ++p) {
        a.append({u"O%1"_s.arg(p, 2, 10, QLatin1Char('0')),
                  QString::number(m_entry->quantity(line, LineRow::Quantity, p))});
    }
    a.append({u"FINISHGB"_s, u"'A'"_s});
    a.append({u"ORDERSTORE"_s, quoted(gsTextCut(txtFullName).trimmed())});
    a.append(auditOnInsert(u"T_ORDER"_s));
    return sqlInsert(u"T_ORDER"_s, a);
}

void BAMAS310::cmdSave2_Click() {
    finishEditing();
    m_entry->recompute();
    if (refuseFutureDate(dtpStart[0])) {
        return;
    }
    if (txtFullName->text().trimmed().isEmpty()) {
        gfsMessage(8063);
        txtFullName->setFocus();
        return;
    }
    if (entryYear(cboYY[0]).isEmpty()) {
        gfsMessage(8064);
        return;
    }
    if (const auto bad = m_entry->findBadQuantity(false)) {
        gfsMsgBox(
            u"%1 %2의 수량 \"%3\"은(는) 받을 수 없습니다.\r\n0 이상의 정수로 입력하시오."_s.arg(
                m_entry->common(bad->line, EntSchool), m_entry->common(bad->line, EntUniform),
                bad->text));
        SP3->setActiveCell(bad->row, EntFirstSize + bad->position - 1);
        return;
    }
    // Line by line without a transaction: the lines written before a failure stay.
    guarded(u"sSaveQuery"_s, [this] {
        for (int line = 0; line < m_entry->lineCount(); ++line) {
            if (!(m_entry->totalText(line, LineRow::Quantity) > u"0"_s)) {
                continue;
            }
            if (!gfbSqlExecuteDB(orderInsertSql(line))) {
                return;
            }
        }
    });
    m_Search();
}
