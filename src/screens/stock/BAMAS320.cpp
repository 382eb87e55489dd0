#include "screens/stock/BAMAS320.h"

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
#include "grid/gridcolumns.h"
#include "grid/linegrid.h"
#include "grid/spreadmodel.h"
#include "grid/spreadroutines.h"
#include "screens/stock/BAMAS320_grid.h"
#include "screens/stock/stockentry.h"
#include "screens/stock/stockfilterband.h"
#include "shell/codecontrols.h"

#include <QComboBox>
#include <QDate>
#include <QDateEdit>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHash>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr quint32 kActiveButton = 0xC0FFC0;
const QString kAllSchools = u"**"_s;

const GridColumns& entryColumns() {
    static const GridColumns table = [] {
        std::vector<GridColumn> c{
            {QString(), u"학교 [성]"_s, CellType::Static, 14},
            {QString(), u"복종"_s, CellType::Static, 20},
            {QString(), u"SCHCD"_s, CellType::Static, 0},
            {QString(), u"SUDIVI"_s, CellType::Static, 0},
            {QString(), u"CDKEY"_s, CellType::Static, 0},
            {QString(), u"UNICD"_s, CellType::Static, 0},
            {QString(), u"연식"_s, CellType::Static, 4, Align::Centre},
            {QString(), u"구분"_s, CellType::Static, 5, Align::Centre},
            {QString(), u"합계"_s, CellType::Static, 6, Align::Right},
        };
        for (int n = 1; n <= kSizePositions; ++n) {
            c.push_back({QString(), QString::number(n), CellType::Static, 4, Align::Right});
        }
        return GridColumns(std::move(c));
    }();
    return table;
}

// The store's schools as SP1 lists them: by level and name, narrowed by the level and the
// joint-purchase class of the year.
QString schoolListSql(const QString& store, const QString& level, int contractRow,
                      const QString& year) {
    const QString nl = dialect().nolock();
    QString sql = u" SELECT DISTINCT CS.SCHOOLNAME, CS.SCHOOLCD, G25.DISP_SEQ "
                  "   FROM C_STORESCHOOL SS "_s +
                  nl + u"   LEFT OUTER JOIN C_STORE ST "_s + nl +
                  u" ON ST.COMPANY = SS.COMPANY AND ST.STORECD = SS.STORECD "
                  "   LEFT OUTER JOIN C_SCHOOL CS "_s +
                  nl +
                  u" ON CS.COMPANY = SS.COMPANY AND CS.SCHOOLCD = SS.SCHOOLCD "
                  "   LEFT OUTER JOIN C_GONGTONG G25 "_s +
                  nl +
                  u" ON G25.L_GRP_COD = '25' AND G25.S_GRP_COD = CS.SCHOOLLEVEL "
                  "  WHERE SS.COMPANY = "_s +
                  quotedCompany() + u"    AND SS.STORECD = "_s + quoted(store) +
                  u"    AND SS.USEYN = 'Y' AND CS.SCHOOLCD IS NOT NULL "_s;
    if (!level.isEmpty()) {
        sql += u"    AND CS.SCHOOLLEVEL = "_s + quoted(level);
    }
    if (contractRow == 2 || contractRow == 3) {
        sql += (contractRow == 2 ? u"    AND NOT EXISTS "_s : u"    AND EXISTS "_s) +
               u"(SELECT SCHOOLCD FROM C_G2B "_s + nl +
               u" WHERE COMPANY = CS.COMPANY AND SCHOOLCD = CS.SCHOOLCD "
               "AND BRANDCD = ST.BRANDCD AND YYYY = "_s +
               quoted(year) + u")"_s;
    }
    return sql + u"  ORDER BY G25.DISP_SEQ, CS.SCHOOLNAME"_s;
}

} // namespace

BAMAS320::BAMAS320() : Screen(u"BAMAS320"_s, u"매장이동"_s) {}

BAMAS320::~BAMAS320() = default;

void BAMAS320::setupScreen() {
    SSTab1 = new QTabWidget(this);
    SSTab1->setObjectName(u"SSTab1"_s);
    SSTab1->addTab(buildEntryTab(), u"이동등록"_s);
    SSTab1->addTab(buildStatusTab(), u"이동현황"_s);
    contentLayout()->addWidget(SSTab1, 1);

    m_currentYear = stockCurrentYear();
    m_band->readCodes();
    m_outStore[0] = m_band->storeCodes();
    m_statusBand->readCodes();
    m_outStore[1] = m_statusBand->storeCodes();
    for (int k = 0; k < 2; ++k) {
        fillEntryYears(cboYY[k], m_currentYear, {1, 0, -1, -2, -3});
        gsReadCode(cboInStore[k], m_inStore[k], u"STORE2"_s);
        gsReadCode(cboGT22[k], m_gt22[k], u"GT22"_s);
        gsReadCode(cboGT23[k], m_gt23[k], u"GT23"_s);
    }
    gsReadCode(cboGT28, m_gt28, u"GT28"_s);
    cboGT28->setItemText(0, u"주부품목"_s);
    gsReadCode(cboCGT01, m_cgt01, u"CGT01"_s);
    gsReadCode(cboGT29, m_gt29, u"GT29"_s);
    SP1->setMaxRows(30);
}

QWidget* BAMAS320::buildEntryTab() {
    StockFilterBand::Parts parts;
    parts.store = u"cboOutStore_0"_s;
    parts.storeCaption = u"출고매장"_s;
    parts.storeName = u"lblOutStore_0"_s;
    parts.level = u"cboGT25"_s;
    parts.year = u"cboYY_0"_s;
    parts.schoolList = u"SP1"_s;
    m_band = new StockFilterBand(parts, this);
    QWidget* tab = m_band;
    const auto label = [tab](const QString& name) {
        auto* l = new QLabel(tab);
        l->setObjectName(name);
        return l;
    };
    const auto button = [tab](const QString& name, const QString& caption) {
        auto* b = new QPushButton(caption, tab);
        b->setObjectName(name);
        return b;
    };
    SP1 = m_band->schools();
    cboOutStore[0] = m_band->store();
    lblOutStore[0] = m_band->storeName();
    cboGT25 = m_band->level();
    cboYY[0] = m_band->year();
    markRequired(cboYY[0]);
    cboInStore[0] = comboBox(u"cboInStore_0"_s);
    markRequired(cboInStore[0]);
    lblInStore[0] = label(u"lblInStore_0"_s);
    dtpStart[0] = dateBox(u"dtpStart_0"_s);
    cboGT22[0] = comboBox(u"cboGT22_0"_s);
    cboGT23[0] = comboBox(u"cboGT23_0"_s);
    cboGT28 = comboBox(u"cboGT28"_s);
    cboCGT01 = comboBox(u"cboCGT01"_s);
    cboGT29 = comboBox(u"cboGT29"_s);
    Label2[0] = label(u"Label2_0"_s);
    Label2[1] = label(u"Label2_1"_s);
    Label2[1]->hide();
    Label2[0]->setMinimumWidth(120);
    cmdViewSch = button(u"cmdViewSch"_s, u"학교별 실행"_s);
    cmdViewUnifom = button(u"cmdViewUnifom"_s, u"복종별 실행"_s);
    cmdSave2 = button(u"cmdSave2"_s, u"등록"_s);

    m_band->addField(0, u"입고매장"_s, cboInStore[0]);
    m_band->addField(0, lblInStore[0]);
    m_band->addField(1, u"출고일"_s, dtpStart[0]);
    m_band->addField(1, u"시즌"_s, cboGT22[0]);
    m_band->addField(1, u"성별"_s, cboGT23[0]);
    m_band->addField(1, u"구매구분"_s, cboGT29);
    m_band->addField(2, u"품목구분"_s, cboGT28);
    m_band->addField(2, u"품목"_s, cboCGT01);
    m_band->addField(2, u"학교 :"_s, Label2[0], 2);
    m_band->addField(2, cmdViewSch);
    m_band->addField(2, cmdViewUnifom);
    m_band->addField(2, cmdSave2);

    SP3 = new Spread(tab);
    SP3->setObjectName(u"SP3"_s);
    gsSpreadInit(SP3, u"굴림체"_s, 10, 18, 18, 0, 0xC0C0C0, 3, false, false);
    entryColumns().setUp(SP3);
    SP3->setLocked(-1, -1, true);
    gsSpreadFreezeCols(SP3, TrnTotal);
    m_entry = std::make_unique<LineGrid>(SP3, transferEntryLayout());
    m_band->setBody(SP3);

    // The store, the level and the year load the school list again.
    connect(m_band, &StockFilterBand::storeChanged, this, [this] { cboOutStore_Click(); });
    connect(m_band, &StockFilterBand::yearChanged, this, [this] { cboOutStore_Click(); });
    connect(m_band, &StockFilterBand::schoolClicked, this, [this](int r) { SP1_Click(r); });
    connect(cboInStore[0], &QComboBox::currentIndexChanged, this, [this] {
        lblInStore[0]->setText(m_inStore[0].name(cboInStore[0]->currentIndex()));
        emptyEntry();
    });
    // The contract class narrows the school list too; any change of a list empties SP3.
    connect(cboGT29, &QComboBox::currentIndexChanged, this, [this] { cboOutStore_Click(); });
    for (QComboBox* combo : {cboGT22[0], cboGT23[0], cboGT28, cboCGT01}) {
        connect(combo, &QComboBox::currentIndexChanged, this, [this] { emptyEntry(); });
    }
    connect(cmdViewSch, &QPushButton::clicked, this, [this] { cmdView_Click(false); });
    connect(cmdViewUnifom, &QPushButton::clicked, this, [this] { cmdView_Click(true); });
    connect(cmdSave2, &QPushButton::clicked, this, &BAMAS320::cmdSave2_Click);
    // The sums follow each cell as it is left.
    connect(SP3, &Spread::changed, this, [this](int r, int) {
        if (r >= 1) {
            m_entry->recomputeLine(m_entry->lineOf(r));
        }
    });
    return tab;
}

QString BAMAS320::code(const QComboBox* combo, const CodeArray& arr) const {
    return combo->currentIndex() > 0 ? gfComboCode(combo, arr) : QString();
}

void BAMAS320::emptyEntry() {
    if (mbLoaded) {
        m_entry->clear();
    }
}

void BAMAS320::cboOutStore_Click() {
    if (!mbLoaded) {
        return;
    }
    lblOutStore[0]->setText(m_outStore[0].name(cboOutStore[0]->currentIndex()));
    emptyEntry();
    m_school.clear();
    Label2[0]->clear();
    Label2[1]->clear();
    guarded(u"cboOutStore_Click"_s, [this] {
        SP1->setMaxRows(0);
        if (cboOutStore[0]->currentIndex() < 1 || cboGT29->currentIndex() < 1 ||
            entryYear(cboYY[0]).isEmpty()) {
            SP1->setMaxRows(30);
            return;
        }
        RecordSet rs;
        if (!gfbSqlSelectDB(schoolListSql(gfComboCode(cboOutStore[0], m_outStore[0]),
                                          m_band->levelCode(), cboGT29->currentIndex(),
                                          m_currentYear),
                            rs)) {
            return;
        }
        const int schools = fillSchoolList(SP1, rs, true);
        gsSpreadSetText(SP1, 1, 1, u"전체학교"_s);
        gsSpreadSetText(SP1, 1, 2, kAllSchools);
        SP1->setMaxRows(qMax(30, schools + 1));
    });
}

void BAMAS320::SP1_Click(int row) {
    if (row < 1 || gfSpreadCellText(SP1, row, 2).isEmpty()) {
        return;
    }
    Label2[0]->setText(gfSpreadCellText(SP1, row, 1));
    Label2[1]->setText(gfSpreadCellText(SP1, row, 2));
    m_school = Label2[1]->text();
    colourButtons(nullptr);
    m_lastRun.clear();
    m_entry->clear();
}

void BAMAS320::m_Search() {
    if (m_lastRun.isEmpty()) {
        return;
    }
    loadEntryGrid(m_lastRun == u"UNI"_s);
}

void BAMAS320::colourButtons(QPushButton* active) {
    const QString lit = u"background: %1;"_s.arg(spreadColor(kActiveButton).name());
    for (QPushButton* b : {cmdViewSch, cmdViewUnifom}) {
        b->setStyleSheet(b == active ? lit : QString());
    }
}

bool BAMAS320::refuseMissingStores(int tab) const {
    if (entryYear(cboYY[tab]).isEmpty() || cboOutStore[tab]->currentIndex() < 1 ||
        cboInStore[tab]->currentIndex() < 1) {
        gfsMessage(8070);
        return true;
    }
    return false;
}

void BAMAS320::cmdView_Click(bool byItem) {
    if (m_school.isEmpty() || refuseMissingStores(0)) {
        return;
    }
    m_lastRun = byItem ? u"UNI"_s : u"SCH"_s;
    colourButtons(byItem ? cmdViewUnifom : cmdViewSch);
    loadEntryGrid(byItem);
}

QString BAMAS320::titleSql(bool byItem) const {
    const Dialect& d = dialect();
    const QString nl = d.nolock();
    QString where =
        u"  WHERE UF.COMPANY = "_s + quotedCompany() +
        u"    AND UF.USEYN = 'Y' "
        "    AND SU.COMPANY = UF.COMPANY AND SU.SEASON = UF.SEASON AND SU.DIVIDE = UF.DIVIDE "
        "    AND SU.UNIFORMSEQ = UF.UNIFORMSEQ AND SU.UNIFORMCOMSEQ = UF.UNIFORMCOMSEQ "
        "    AND SU.USEYN = 'Y' "
        "    AND CS.COMPANY = SU.COMPANY AND CS.SCHOOLCD = SU.SCHOOLCD "
        "    AND SS.COMPANY = UF.COMPANY AND SS.STORECD = "_s +
        quoted(gfComboCode(cboOutStore[0], m_outStore[0])) +
        u"    AND SS.SCHOOLCD = SU.SCHOOLCD AND SS.CD = "_s + itemFullCode(d, u"UF"_s) +
        u"    AND SS.BSYYYY = "_s + quoted(entryYear(cboYY[0]));
    if (const QString season = code(cboGT22[0], m_gt22[0]); !season.isEmpty()) {
        where += u"    AND SU.SEASON IN ('A', "_s + quoted(season) + u") "_s;
    }
    if (const QString sex = code(cboGT23[0], m_gt23[0]); !sex.isEmpty()) {
        where += sex == u"B"_s ? u"    AND SU.SUDIVIDE = '1' "_s : u"    AND SU.SUDIVIDE = '2' "_s;
    }
    where += cboGT28->currentIndex() > 0
                 ? u"    AND UF.SUBMAIN IN ("_s + quoted(gfComboCode(cboGT28, m_gt28)) + u") "_s
                 : u"    AND UF.SUBMAIN IN ('1', '2') "_s;
    if (const QString kind = code(cboCGT01, m_cgt01); !kind.isEmpty()) {
        where += u"    AND UF.UNITYPE = "_s + quoted(kind);
    }
    const QString labels = eachSize(u"MAX(C%1) C%1"_s);
    const QString sexText = u"CASE WHEN SUDIVIDE = '1' THEN '남' ELSE '여' END"_s;
    const QString ofSchool =
        m_school == kAllSchools ? QString() : u" AND SCHOOLCD = "_s + quoted(m_school);
    return u" WITH SHOW_TITLE AS ( "
           "   SELECT CS.SCHOOLNAME, SS.SCHOOLCD, SU.SUDIVIDE, UF.UNIFORMNAME, SS.CD, "
           "          LEFT(SS.CD, 4) CD1, RTRIM(UF.UNIFORMCOMSEQ) CD2, "_s +
           d.cat({u"SUBSTRING(SS.BSYYYY, 4, 1)"_s, u"RTRIM(UF.SEASON)"_s}) + u" ST, "_s +
           eachSize(u"SS.C%1"_s) + u"     FROM C_UNIFORM UF "_s + nl + u", C_SCHOOLUNIFORM SU "_s +
           nl + u", C_SCHOOL CS "_s + nl + u", VIW_SCHUNIFOMSIZE SS "_s + where +
           u" ) "
           // Common items once for the store, under the greatest school offering them.
           " SELECT 1 SHSEQ, '공통' SCHOOLNAME, UNIFORMNAME, SUDIVIDE, CD, CD1, CD2, ST, "_s +
           d.cat({u"MAX(SCHOOLCD)"_s, u"RTRIM(CD1)"_s, u"RTRIM(CD2)"_s}) +
           u" CDKEY, MAX(SCHOOLCD) SCHOOLCD, "_s + labels +
           u"   FROM SHOW_TITLE WHERE CD2 > '' AND ISNULL(C02, '') <> '' "
           "  GROUP BY UNIFORMNAME, SUDIVIDE, CD, CD1, CD2, ST "
           " UNION ALL "
           " SELECT 2 SHSEQ, "_s +
           d.cat({u"SCHOOLNAME"_s, u"'['"_s, sexText, u"']'"_s}) +
           u" SCHOOLNAME, UNIFORMNAME, SUDIVIDE, CD, CD1, CD2, ST, "_s +
           d.cat({u"SCHOOLCD"_s, u"RTRIM(CD1)"_s, u"RTRIM(CD2)"_s}) + u" CDKEY, SCHOOLCD, "_s +
           labels + u"   FROM SHOW_TITLE WHERE CD2 = '' AND ISNULL(C02, '') <> '' "_s + ofSchool +
           u"  GROUP BY SCHOOLNAME, SCHOOLCD, UNIFORMNAME, SUDIVIDE, CD, CD1, CD2, ST "_s +
           (byItem ? u" ORDER BY UNIFORMNAME, SHSEQ, SCHOOLNAME, SUDIVIDE"_s
                   : u" ORDER BY SHSEQ, SCHOOLNAME, SUDIVIDE, UNIFORMNAME"_s);
}

QString BAMAS320::stockSql() const {
    const Dialect& d = dialect();
    QString join = u" LEFT OUTER JOIN VIW_STOCKQTY_TEMP SC ON SC.COMPANY = SS.COMPANY "
                   "AND SC.STORECD = SS.STORECD AND SC.SCHOOLCD = SS.SCHOOLCD "
                   "AND SC.YYYY = SS.BSYYYY AND SC.UNIFORMCD = SS.CD "_s;
    if (const QString sex = code(cboGT23[0], m_gt23[0]); !sex.isEmpty()) {
        join += sex == u"B"_s ? u" AND SC.SUDIVIDE = '1' "_s : u" AND SC.SUDIVIDE = '2' "_s;
    }
    const QString sums = eachSize(u"SUM(C%1) C%1"_s);
    return u" WITH STOCK_VIEW AS ( "
           "   SELECT SS.SCHOOLCD, LEFT(SS.CD, 4) CD1, RTRIM(SUBSTRING(SS.CD, 5, 2)) CD2, "_s +
           eachSize(u"ISNULL(SC.C%1, 0) C%1"_s) + u"     FROM VIW_SCHUNIFOMSIZE SS "_s + join +
           u"    WHERE SS.COMPANY = "_s + quotedCompany() + u" AND SS.STORECD = "_s +
           quoted(gfComboCode(cboOutStore[0], m_outStore[0])) + u" AND SS.BSYYYY = "_s +
           quoted(entryYear(cboYY[0])) + u" ) SELECT "_s +
           d.cat({u"MAX(SCHOOLCD)"_s, u"RTRIM(CD1)"_s, u"RTRIM(CD2)"_s}) + u" CDKEY, "_s + sums +
           u"   FROM STOCK_VIEW WHERE CD2 > '' GROUP BY CD1, CD2 "
           " UNION ALL SELECT "_s +
           d.cat({u"SCHOOLCD"_s, u"RTRIM(CD1)"_s, u"RTRIM(CD2)"_s}) + u" CDKEY, "_s + sums +
           u"   FROM STOCK_VIEW WHERE CD2 = '' "_s +
           (m_school == kAllSchools ? QString() : u" AND SCHOOLCD = "_s + quoted(m_school)) +
           u"  GROUP BY SCHOOLCD, CD1, CD2"_s;
}

void BAMAS320::loadEntryGrid(bool byItem) {
    guarded(u"sSelectQuery"_s, [this, byItem] {
        const WaitCursor wait;
        RecordSet titles;
        if (!gfbSqlSelectDB(titleSql(byItem), titles)) {
            return;
        }
        RecordSet stock;
        if (!gfbSqlSelectDB(stockSql(), stock)) {
            return;
        }
        SP3->setRedraw(false);
        gsSpreadSetText(SP3, gfHeadRow(0), TrnFirstName, byItem ? u"복종"_s : u"학교 [성]"_s);
        gsSpreadSetText(SP3, gfHeadRow(0), TrnSecondName, byItem ? u"학교 [성]"_s : u"복종"_s);
        SP3->setColumnWidth(TrnFirstName, byItem ? 20 : 14);
        SP3->setColumnWidth(TrnSecondName, byItem ? 14 : 20);
        m_entry->clear();
        QHash<QString, QList<int>> byKey;
        const int firstLabel = titles.fieldIndex(u"C01"_s);
        for (titles.moveFirst(); !titles.eof(); titles.moveNext()) {
            const int line = m_entry->addLine();
            const QString school = titles.field(u"SCHOOLNAME"_s).trimmed();
            const QString item = titles.field(u"UNIFORMNAME"_s).trimmed();
            m_entry->setCommon(line, TrnFirstName, byItem ? item : school);
            m_entry->setCommon(line, TrnSecondName, byItem ? school : item);
            m_entry->setCommon(line, TrnSchoolCd, titles.field(u"SCHOOLCD"_s).trimmed());
            m_entry->setCommon(line, TrnSudivide, titles.field(u"SUDIVIDE"_s).trimmed());
            const QString key = titles.field(u"CDKEY"_s).trimmed();
            m_entry->setCommon(line, TrnCdKey, key);
            m_entry->setCommon(line, TrnUniformCd, titles.field(u"CD"_s).trimmed());
            m_entry->setCommon(line, TrnYear, titles.field(u"ST"_s).trimmed());
            QStringList labels;
            for (int p = 0; p < kSizePositions; ++p) {
                labels << titles.value(firstLabel + p).trimmed();
            }
            m_entry->setLabels(line, labels);
            byKey[key].append(line);
        }
        const int firstSum = stock.fieldIndex(u"C01"_s);
        for (stock.moveFirst(); !stock.eof(); stock.moveNext()) {
            const auto found = byKey.constFind(stock.field(u"CDKEY"_s).trimmed());
            if (found == byKey.constEnd()) {
                continue;
            }
            for (int line : *found) {
                for (int p = 1; p <= kSizePositions; ++p) {
                    m_entry->setQuantity(line, LineRow::Stock, p,
                                         stock.value(firstSum + p - 1).toLongLong());
                }
            }
        }
        m_entry->recompute();
        SP3->setRedraw(true);
        showFound(titles.recordCount(), false);
    });
}
