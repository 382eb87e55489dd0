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
#include "screens/stock/stockfilterband.h"
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
    fillEntryYears(m_band[0]->year(), m_currentYear, {1, 0});
    fillEntryYears(m_band[1]->year(), m_currentYear, {1, 0, -1});
    for (StockFilterBand* band : m_band) {
        band->readCodes();
    }
    m_clear();
}

QWidget* BAMAS310::buildEntryTab() {
    StockFilterBand::Parts parts;
    parts.store = u"cboStore_0"_s;
    parts.storeName = u"lblStore_0"_s;
    parts.level = u"cboLevel_0"_s;
    parts.year = u"cboYY_0"_s;
    parts.schoolList = u"SP1"_s;
    parts.sexFirst = 0;
    parts.seasonFirst = 0;
    parts.classFirst = 0;
    auto* tab = new StockFilterBand(parts, this);
    m_band[0] = tab;
    SP1 = tab->schools();

    dtpStart[0] = dateBox(u"dtpStart_0"_s);
    txtFullName = textBox(u"txtFullName"_s, 50);
    markRequired(txtFullName);
    Label2[0] = new QLabel(tab);
    Label2[0]->setObjectName(u"Label2_0"_s);
    Label2[1] = new QLabel(tab);
    Label2[1]->setObjectName(u"Label2_1"_s);
    Label2[1]->hide(); // the school's code travels with its name
    cmdSave2 = new QPushButton(u"등록"_s, tab);
    cmdSave2->setObjectName(u"cmdSave2"_s);
    tab->addField(1, u"발주일"_s, dtpStart[0]);
    tab->addField(1, new QWidget(tab)); // under the store's name
    tab->addField(1, u"발주처"_s, txtFullName, 3);
    tab->addField(1, cmdSave2);
    tab->addOption(Label2[0]);

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
    tab->setBody(SP3);

    connect(tab, &StockFilterBand::storeChanged, this, [this] { cboStore_Click(0); });
    connect(tab, &StockFilterBand::schoolClicked, this, [this](int r) { SP1_Click(r); });
    connect(tab, &StockFilterBand::optionsChanged, this, [this] { loadEntryGrid(); });
    connect(tab, &StockFilterBand::yearChanged, this, [this] { loadEntryGrid(); });
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
    command(u"cboStore_Click"_s, [&] { m_band[tab]->loadSchools(); });
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
        quoted(m_band[0]->storeCode()) + u"    AND SS.SCHOOLCD = SU.SCHOOLCD AND SS.CD = "_s +
        itemFullCode(d, u"UF"_s) + u"    AND SS.BSYYYY = "_s +
        quoted(entryYear(m_band[0]->year())) +
        u"    AND UF.USEYN = 'Y' "
        // A boys' item for boys, a girls' item for girls; an item for both for either.
        "    AND (UF.DIVIDE NOT IN ('B', 'G') OR SU.SUDIVIDE = "
        "         CASE UF.DIVIDE WHEN 'B' THEN '1' ELSE '2' END) "_s;
    if (const QString sex = m_band[0]->sexCode(); !sex.isEmpty()) {
        sql += u"    AND SU.SUDIVIDE = '"_s + sex + u"' "_s;
    }
    sql += m_band[0]->winter() ? u"    AND SU.SEASON IN ('A',  'N') "_s
                               : u"    AND SU.SEASON IN ('A',  'S') "_s;
    sql += m_band[0]->mainItems() ? u"    AND UF.SUBMAIN IN ('1', '2') "_s
                                  : u"    AND UF.SUBMAIN = '3' "_s;
    return sql + u"  ORDER BY SU.DISP_SEQ, GT24.DISP_SEQ, UF.DISP_SEQ, RTRIM(UF.SEASON), "
                 "RTRIM(UF.DIVIDE), RTRIM(UF.UNITYPE), RTRIM(UF.UNIFORMCOMSEQ), "
                 "RTRIM(UF.UNIFORMSEQ)"_s;
}

void BAMAS310::loadEntryGrid() {
    if (!mbLoaded || m_school.isEmpty() || m_band[0]->storeCode().isEmpty()) {
        return;
    }
    if (entryYear(m_band[0]->year()).isEmpty()) {
        gfsMessage(8061);
        return;
    }
    command(u"SP1_Click"_s, [this] {
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
    const QString store = m_band[0]->storeCode();
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
        {u"ORDYYYY"_s, quoted(entryYear(m_band[0]->year()))},
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
    if (entryYear(m_band[0]->year()).isEmpty()) {
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
    // One unit: every line is booked or none is. After a failure the grid keeps what was
    // typed, so that a second try books each line once; only a success reloads it.
    QStringList inserts;
    for (int line = 0; line < m_entry->lineCount(); ++line) {
        if (m_entry->totalText(line, LineRow::Quantity) > u"0"_s) {
            inserts << orderInsertSql(line);
        }
    }
    bool done = inserts.isEmpty();
    if (!done) {
        command(
            u"sSaveQuery"_s, [&] { done = executeAsUnit(inserts); }, true);
    }
    if (done) {
        m_Search();
    }
}
