#include "screens/stock/BAMAS315.h"

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
#include "grid/inputhelpers.h"
#include "grid/linegrid.h"
#include "grid/spreadroutines.h"
#include "screens/stock/stockentry.h"
#include "screens/stock/stockfilterband.h"
#include "shell/codecontrols.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QDate>
#include <QDateEdit>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHash>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

// SP3: names, the order's date, the row's caption, 24 sizes, total, the remainder's handling,
// then the hidden keys of the line.
enum EntryCol {
    EntSchool = 1,
    EntUniform,
    EntYear,
    EntOrderDt,
    EntCaption,
    EntFirstSize,
    EntTotal = EntFirstSize + kSizePositions,
    EntFinish,
    EntOrderSeq,
    EntOrderStore,
    EntSchoolCd,
    EntSudivide,
    EntUniformCd,
    EntSizeTab,
    EntCount = EntSizeTab
};

constexpr quint32 kEntryBack = 0xC0FFC0;
const QString kStillExpected = u"재입고예정"_s;
const QString kNoMore = u"재입고불가"_s;

const GridColumns& entryColumns() {
    static const GridColumns table = [] {
        std::vector<GridColumn> c{
            {QString(), u"학교 [성]"_s, CellType::Static, 14},
            {QString(), u"복종"_s, CellType::Static, 20},
            {QString(), u"연도"_s, CellType::Static, 5, Align::Centre},
            {QString(), u"발주일"_s, CellType::Static, 9, Align::Centre},
            {QString(), u"구분"_s, CellType::Static, 6, Align::Centre},
        };
        for (int n = 1; n <= kSizePositions; ++n) {
            c.push_back({QString(), QString(), CellType::Static, 4, Align::Right});
        }
        c.push_back({QString(), u"합계"_s, CellType::Static, 6, Align::Right});
        c.push_back({QString(), u"미입잔량처리"_s, CellType::Static, 11, Align::Centre});
        for (const char* hidden :
             {"ORDERSEQ", "ORDERSTORE", "SCHOOLCD", "SUDIVIDE", "UNIFORMCD", "SIZETAB"}) {
            c.push_back({QString(), QString::fromLatin1(hidden), CellType::Static, 0});
        }
        return GridColumns(std::move(c));
    }();
    return table;
}

// "240315" shown as "24-03-15"; the save reads it back with "20" in front.
QString shortDate(const QString& ymd) {
    const QString d = ymd.trimmed().right(6);
    return d.size() == 6 ? d.left(2) + u'-' + d.mid(2, 2) + u'-' + d.right(2) : d;
}

} // namespace

BAMAS315::BAMAS315() : Screen(u"BAMAS315"_s, u"입고관리"_s) {}

BAMAS315::~BAMAS315() = default;

void BAMAS315::setupScreen() {
    SSTab1 = new QTabWidget(this);
    SSTab1->setObjectName(u"SSTab1"_s);
    SSTab1->addTab(buildEntryTab(), u"입고등록"_s);
    SSTab1->addTab(buildListTab(1), u"입고현황"_s);
    SSTab1->addTab(buildListTab(2), u"미입고현황"_s);
    contentLayout()->addWidget(SSTab1, 1);

    m_currentYear = stockCurrentYear();
    fillEntryYears(m_band->year(), m_currentYear, {1, 0, -1});
    m_band->readCodes();
    for (int tab = 1; tab <= 2; ++tab) {
        fillEntryYears(m_list[tab].band->year(), m_currentYear, {1, 0, -1});
        m_list[tab].band->readCodes();
    }
    SP1->setMaxRows(30);
}

QWidget* BAMAS315::buildEntryTab() {
    StockFilterBand::Parts parts;
    parts.store = u"cboStore_0"_s;
    parts.storeCaption = u"입고매장"_s;
    parts.level = u"cboLevel"_s;
    parts.year = u"cboYY_0"_s;
    parts.schoolList = u"SP1"_s;
    parts.sexFirst = 0;
    parts.seasonFirst = 0;
    parts.classFirst = 0;
    auto* tab = new StockFilterBand(parts, this);
    m_band = tab;
    SP1 = tab->schools();

    cboUniform = comboBox(u"cboUniform"_s);
    dtpStart = dateBox(u"dtpStart_0"_s);
    txtFullName = textBox(u"txtFullName_0"_s, 50);
    Label2[0] = new QLabel(tab);
    Label2[0]->setObjectName(u"Label2_0"_s);
    Label2[1] = new QLabel(tab);
    Label2[1]->setObjectName(u"Label2_1"_s);
    Label2[1]->hide();
    cmdSave2 = new QPushButton(u"등록"_s, tab);
    cmdSave2->setObjectName(u"cmdSave2"_s);
    auto* kinds = new QButtonGroup(tab);
    optOrderGB[0] = optionButton(tab, u"optOrderGB_0"_s, u"발주분"_s, kinds);
    optOrderGB[1] = optionButton(tab, u"optOrderGB_1"_s, u"미발주분"_s, kinds);
    optOrderGB[0]->setChecked(true);
    tab->addOption(optOrderGB[0], true);
    tab->addOption(optOrderGB[1], true);
    tab->addField(0, u"복종"_s, cboUniform);
    tab->addField(1, u"입고일"_s, dtpStart);
    tab->addField(1, u"출고처"_s, txtFullName, 3);
    tab->addField(1, Label2[0]);
    tab->addField(1, cmdSave2);

    SP3 = new Spread(tab);
    SP3->setObjectName(u"SP3"_s);
    gsSpreadInit(SP3, u"굴림체"_s, 10, 18, 18, 0, 0xC0C0C0, 3, false, false);
    entryColumns().setUp(SP3);
    SP3->setLocked(-1, -1, true);
    gsSpreadFreezeCols(SP3, EntCaption);
    m_ordered = std::make_unique<LineGrid>(
        SP3, LineGridLayout{{{LineRow::Ordered, false},
                             {LineRow::Received, true, kEntryBack},
                             {LineRow::Balance, false}},
                            EntFirstSize,
                            EntTotal,
                            EntCaption,
                            EntFirstSize,
                            EntFinish,
                            LineDifference{LineRow::Balance, LineRow::Received, LineRow::Ordered}});
    m_unordered = std::make_unique<LineGrid>(
        SP3, LineGridLayout{{{LineRow::Received, true, kEntryBack, true}},
                            EntFirstSize,
                            EntTotal,
                            EntCaption,
                            EntFirstSize,
                            EntTotal,
                            std::nullopt});
    // The size a quantity stands for, whatever the heading shows.
    SP3->setCellToolTips([this](int row, int col) {
        const int position = col - EntFirstSize + 1;
        if (row < 1 || position < 1 || position > kSizePositions) {
            return QString();
        }
        return m_lineLabels.value(lines().lineOf(row)).value(position - 1);
    });
    tab->setBody(SP3);

    connect(tab, &StockFilterBand::storeChanged, this, [this] { cboStore_Click(); });
    connect(tab, &StockFilterBand::schoolClicked, this, [this](int r) { SP1_Click(r); });
    connect(kinds, &QButtonGroup::buttonClicked, this, [this] { loadEntryGrid(); });
    connect(tab, &StockFilterBand::yearChanged, this, [this] { loadEntryGrid(); });
    connect(cboUniform, &QComboBox::activated, this, [this] { loadEntryGrid(); });
    connect(tab, &StockFilterBand::optionsChanged, this, [this] {
        fillUniforms();
        loadEntryGrid();
    });
    // A quantity left (or Enter) recomputes its line; a choice of the list changes no sum.
    connect(SP3, &Spread::changed, this, [this](int r, int c) {
        if (r >= 1 && c != EntFinish) {
            const int line = lines().lineOf(r);
            lines().recomputeLine(line);
            offerRemainderChoice(line);
        }
    });
    connect(cmdSave2, &QPushButton::clicked, this, &BAMAS315::cmdSave2_Click);
    return tab;
}

bool BAMAS315::ordered() const {
    return optOrderGB[0]->isChecked();
}

LineGrid& BAMAS315::lines() const {
    return ordered() ? *m_ordered : *m_unordered;
}

void BAMAS315::cboStore_Click() {
    if (!mbLoaded) {
        return;
    }
    command(u"cboStore_Click"_s, [this] { m_band->loadSchools(); });
}

void BAMAS315::SP1_Click(int row) {
    if (row < 1 || gfSpreadCellText(SP1, row, 2).isEmpty()) {
        return;
    }
    Label2[0]->setText(gfSpreadCellText(SP1, row, 1));
    Label2[1]->setText(gfSpreadCellText(SP1, row, 2));
    m_school = Label2[1]->text();
    fillUniforms();
    loadEntryGrid();
}

void BAMAS315::m_Search() {
    const int row = SP1->activeRow();
    if (row >= 1) {
        SP1_Click(row);
    }
}

// The items of the school at the store, narrowed by the options.
void BAMAS315::fillUniforms() {
    if (!mbLoaded || m_school.isEmpty()) {
        return;
    }
    const Dialect& d = dialect();
    QString sql = u" SELECT DISTINCT SCHOOL_UNIFORM.CD, SCHOOL_UNIFORM.UNIFORMNAME FROM "
                  " (SELECT "_s +
                  itemBaseCode(d, u"UF"_s) +
                  u" CD, UF.UNIFORMNAME, UF.SUBMAIN, SU.SEASON, SU.SUDIVIDE "
                  "    FROM C_SCHOOLUNIFORM SU "_s +
                  d.nolock() + u", C_UNIFORM UF "_s + d.nolock() + u", C_STORESCHOOL SS "_s +
                  d.nolock() + u"   WHERE SU.COMPANY = "_s + quotedCompany() +
                  u"     AND UF.COMPANY = SU.COMPANY AND UF.SEASON = SU.SEASON "
                  "     AND UF.DIVIDE = SU.DIVIDE AND UF.UNIFORMSEQ = SU.UNIFORMSEQ "
                  "     AND UF.UNIFORMCOMSEQ = SU.UNIFORMCOMSEQ AND UF.USEYN = 'Y' "
                  "     AND SU.USEYN = 'Y' AND SS.COMPANY = SU.COMPANY "
                  "     AND SS.SCHOOLCD = SU.SCHOOLCD AND SS.STORECD = "_s +
                  quoted(m_band->storeCode()) + u"     AND SU.SCHOOLCD = "_s + quoted(m_school) +
                  u") SCHOOL_UNIFORM WHERE 1 = 1"_s;
    if (const QString sex = m_band->sexCode(); !sex.isEmpty()) {
        sql += u" AND SCHOOL_UNIFORM.SUDIVIDE = '"_s + sex + u"'"_s;
    }
    sql += m_band->winter() ? u" AND SCHOOL_UNIFORM.SEASON IN ('A', 'N')"_s
                            : u" AND SCHOOL_UNIFORM.SEASON IN ('A', 'S')"_s;
    sql += m_band->mainItems() ? u" AND SCHOOL_UNIFORM.SUBMAIN IN ('1', '2')"_s
                               : u" AND SCHOOL_UNIFORM.SUBMAIN = '3'"_s;
    command(u"cboUniform_Fill"_s, [&] {
        gsFillPicker(cboUniform, m_uniform, sql + u" ORDER BY 2"_s, u"전체"_s, u"**"_s);
    });
}

QString BAMAS315::orderedLinesSql() const {
    const Dialect& d = dialect();
    const QString nl = d.nolock();
    QStringList remainders;
    for (int p = 1; p <= kSizePositions; ++p) {
        remainders << u"CASE WHEN (TOR.O%1 - ISNULL(TIN.I%1, 0)) <= 0 THEN 0 "
                      "ELSE (TOR.O%1 - ISNULL(TIN.I%1, 0)) END R%1"_s.arg(p, 2, 10,
                                                                          QLatin1Char('0'));
    }
    QString sql =
        u" SELECT DISTINCT "_s + schoolSexText(d) +
        u" SCHOOLTEXT, UF.UNIFORMNAME, TOR.ORDYYYY, TOR.ORDERDT, '' GB, "_s +
        remainders.join(u", "_s) +
        u", '' TOTAL, '' FINISH, TOR.ORDERSEQ, TOR.ORDERSTORE, TOR.SCHOOLCD, TOR.SUDIVIDE, "
        "        TOR.UNIFORMCD, TOR.SIZETAB "
        "   FROM T_ORDER TOR "_s +
        nl + u"   JOIN C_UNIFORM UF "_s + nl + u" ON "_s + itemJoin(d, u"UF"_s, u"TOR"_s) +
        u"   JOIN C_SCHOOLUNIFORM SU "_s + nl +
        u" ON SU.COMPANY = TOR.COMPANY AND SU.SCHOOLCD = TOR.SCHOOLCD "
        "        AND SU.SUDIVIDE = TOR.SUDIVIDE AND SU.SEASON = UF.SEASON "
        "        AND SU.DIVIDE = UF.DIVIDE AND SU.UNIFORMSEQ = UF.UNIFORMSEQ "
        "        AND SU.UNIFORMCOMSEQ = UF.UNIFORMCOMSEQ "
        "   LEFT OUTER JOIN C_SCHOOL CS "_s +
        nl +
        u" ON CS.COMPANY = TOR.COMPANY AND CS.SCHOOLCD = TOR.SCHOOLCD "
        "   LEFT OUTER JOIN C_GONGTONG GT24 "_s +
        nl +
        u" ON GT24.L_GRP_COD = '24' AND GT24.S_GRP_COD = TOR.SUDIVIDE "
        "   LEFT OUTER JOIN VIW_T_INBOUND TIN "_s +
        u" ON TIN.COMPANY = TOR.COMPANY AND TIN.STORECD = TOR.STORECD "
        "        AND TIN.SCHOOLCD = TOR.SCHOOLCD AND TIN.SUDIVIDE = TOR.SUDIVIDE "
        "        AND TIN.INYYYY = TOR.ORDYYYY AND TIN.UNIFORMCD = TOR.UNIFORMCD "
        "        AND TIN.ORDERDT = TOR.ORDERDT AND TIN.OUTBOUNDSTORE = TOR.ORDERSTORE "
        "        AND TIN.ORDERSEQ = TOR.ORDERSEQ "
        "  WHERE TOR.COMPANY = "_s +
        quotedCompany() + u"    AND TOR.STORECD = "_s + quoted(m_band->storeCode()) +
        u"    AND TOR.ORDYYYY = "_s + quoted(entryYear(m_band->year())) +
        u"    AND TOR.SCHOOLCD = "_s + quoted(m_school) + u"    AND TOR.FINISHGB IN ('A', 'I') "_s;
    if (cboUniform->currentIndex() > 0) {
        sql +=
            u"    AND TOR.UNIFORMCD LIKE "_s + quoted(gfComboCode(cboUniform, m_uniform) + u"%"_s);
    }
    if (const QString sex = m_band->sexCode(); !sex.isEmpty()) {
        sql += u"    AND TOR.SUDIVIDE = '"_s + sex + u"' "_s;
    }
    sql += m_band->winter() ? u"    AND SU.SEASON IN ('A',  'N') "_s
                            : u"    AND SU.SEASON IN ('A',  'S') "_s;
    sql += m_band->mainItems() ? u"    AND UF.SUBMAIN IN ('1', '2') "_s
                               : u"    AND UF.SUBMAIN = '3' "_s;
    return sql + u"  ORDER BY TOR.ORDERDT,  UF.UNIFORMNAME"_s;
}

QString BAMAS315::unorderedLinesSql() const {
    const Dialect& d = dialect();
    const QString nl = d.nolock();
    QString sql =
        u" SELECT "_s + schoolSexText(d) +
        u" SCHOOLTEXT, UF.UNIFORMNAME, SS.BSYYYY, SU.SCHOOLCD, SU.SUDIVIDE, SS.CD, SS.SIZETAB "
        "   FROM C_UNIFORM UF "_s +
        nl + u", C_SCHOOLUNIFORM SU "_s + nl + u", C_SCHOOL CS "_s + nl +
        u", VIW_SCHUNIFOMSIZE SS, C_GONGTONG GT24 "_s + nl + u"  WHERE UF.COMPANY = "_s +
        quotedCompany() +
        u"    AND SU.COMPANY = UF.COMPANY AND SU.SEASON = UF.SEASON AND SU.DIVIDE = UF.DIVIDE "
        "    AND SU.UNIFORMSEQ = UF.UNIFORMSEQ AND SU.UNIFORMCOMSEQ = UF.UNIFORMCOMSEQ "
        "    AND SU.USEYN = 'Y' AND SU.SCHOOLCD = "_s +
        quoted(m_school) +
        u"    AND CS.COMPANY = SU.COMPANY AND CS.SCHOOLCD = SU.SCHOOLCD "
        "    AND GT24.L_GRP_COD = '24' AND GT24.S_GRP_COD = SU.SUDIVIDE "
        "    AND SS.COMPANY = UF.COMPANY AND SS.STORECD = "_s +
        quoted(m_band->storeCode()) + u"    AND SS.SCHOOLCD = SU.SCHOOLCD AND SS.CD = "_s +
        itemFullCode(d, u"UF"_s) + u"    AND SS.BSYYYY = "_s + quoted(entryYear(m_band->year())) +
        u"    AND UF.USEYN = 'Y' "
        "    AND (UF.DIVIDE NOT IN ('B', 'G') OR SU.SUDIVIDE = "
        "         CASE UF.DIVIDE WHEN 'B' THEN '1' ELSE '2' END) "_s;
    if (cboUniform->currentIndex() > 0) {
        sql += u"    AND SS.CD LIKE "_s + quoted(gfComboCode(cboUniform, m_uniform) + u"%"_s);
    }
    if (const QString sex = m_band->sexCode(); !sex.isEmpty()) {
        sql += u"    AND SU.SUDIVIDE = '"_s + sex + u"' "_s;
    }
    sql += m_band->winter() ? u"    AND SU.SEASON IN ('A',  'N') "_s
                            : u"    AND SU.SEASON IN ('A',  'S') "_s;
    sql += m_band->mainItems() ? u"    AND UF.SUBMAIN IN ('1', '2') "_s
                               : u"    AND UF.SUBMAIN = '3' "_s;
    return sql + u"  ORDER BY UF.UNIFORMNAME, SU.SUDIVIDE"_s;
}

// The size heading over the entry grid, from the labels of the school's items in the year (the
// chosen item's, when one is chosen). Lines that all have the same labels show them; lines of
// different size tables show the positions 1 to 24, since one line's labels would stand over
// another's sizes (trousers over jackets). Either way each size cell tells its own label in its
// tool tip.
void BAMAS315::writeEntryHeading() {
    const QString like =
        cboUniform->currentIndex() > 0 ? gfComboCode(cboUniform, m_uniform) + u"%"_s : u"%"_s;
    RecordSet rs;
    if (!gfbSqlSelectDB(u" SELECT DISTINCT SS.CD, "_s + eachSize(u"SS.C%1"_s) +
                            u" FROM VIW_SCHUNIFOMSIZE SS WHERE SS.COMPANY = "_s + quotedCompany() +
                            u" AND SS.STORECD = "_s + quoted(m_band->storeCode()) +
                            u" AND SS.BSYYYY = "_s + quoted(entryYear(m_band->year())) +
                            u" AND SS.SCHOOLCD = "_s + quoted(m_school) + u" AND SS.CD LIKE "_s +
                            quoted(like),
                        rs)) {
        return;
    }
    QHash<QString, QStringList> byItem;
    QStringList lastRead;
    for (qsizetype r = 0; r < rs.recordCount(); ++r) {
        QStringList labels;
        for (int p = 1; p <= kSizePositions; ++p) {
            labels << rs.at(r, p).trimmed();
        }
        byItem.insert(rs.at(r, 0).trimmed(), labels);
        lastRead = labels;
    }
    m_lineLabels.clear();
    QList<QStringList> distinct;
    for (int line = 0; line < lines().lineCount(); ++line) {
        const QStringList labels = byItem.value(lines().common(line, EntUniformCd));
        m_lineLabels << labels;
        if (!distinct.contains(labels)) {
            distinct << labels;
        }
    }
    for (int p = 1; p <= kSizePositions; ++p) {
        const QString heading = distinct.size() > 1    ? QString::number(p)
                                : distinct.size() == 1 ? distinct.first().value(p - 1)
                                                       : lastRead.value(p - 1);
        gsSpreadSetText(SP3, gfHeadRow(0), EntFirstSize + p - 1, heading);
    }
}

void BAMAS315::loadEntryGrid() {
    if (!mbLoaded || m_school.isEmpty() || m_band->storeCode().isEmpty()) {
        return;
    }
    if (entryYear(m_band->year()).isEmpty()) {
        gfsMessage(8061);
        return;
    }
    command(u"SP1_Click"_s, [this] {
        const WaitCursor wait;
        RecordSet rs;
        if (!gfbSqlSelectDB(ordered() ? orderedLinesSql() : unorderedLinesSql(), rs)) {
            return;
        }
        SP3->setRedraw(false);
        m_ordered->clear();
        m_unordered->clear();
        LineGrid& g = lines();
        const QString today = shortDate(ymdOf(dtpStart));
        for (rs.moveFirst(); !rs.eof(); rs.moveNext()) {
            const int line = g.addLine();
            g.setCommon(line, EntSchool, rs.field(u"SCHOOLTEXT"_s).trimmed());
            g.setCommon(line, EntUniform, rs.field(u"UNIFORMNAME"_s).trimmed());
            g.setCommon(line, EntSchoolCd, rs.field(u"SCHOOLCD"_s).trimmed());
            g.setCommon(line, EntSudivide, rs.field(u"SUDIVIDE"_s).trimmed());
            g.setCommon(line, EntSizeTab, rs.field(u"SIZETAB"_s).trimmed());
            if (ordered()) {
                g.setCommon(line, EntYear, rs.field(u"ORDYYYY"_s).trimmed());
                g.setCommon(line, EntOrderDt, shortDate(rs.field(u"ORDERDT"_s)));
                g.setCommon(line, EntOrderSeq, rs.field(u"ORDERSEQ"_s).trimmed());
                g.setCommon(line, EntOrderStore, rs.field(u"ORDERSTORE"_s).trimmed());
                g.setCommon(line, EntUniformCd, rs.field(u"UNIFORMCD"_s).trimmed());
                for (int p = 1; p <= kSizePositions; ++p) {
                    g.setQuantity(line, LineRow::Ordered, p,
                                  rs.field(u"R%1"_s.arg(p, 2, 10, QLatin1Char('0'))).toLongLong());
                }
            } else {
                g.setCommon(line, EntYear, rs.field(u"BSYYYY"_s).trimmed());
                g.setCommon(line, EntOrderDt, today);
                g.setCommon(line, EntUniformCd, rs.field(u"CD"_s).trimmed());
                for (int p = 1; p <= kSizePositions; ++p) {
                    gsSpreadSetText(SP3, g.row(line, LineRow::Received), EntFirstSize + p - 1,
                                    u"0"_s);
                }
            }
        }
        writeEntryHeading();
        recomputeEntry();
        SP3->setRedraw(true);
    });
}

void BAMAS315::recomputeEntry() {
    lines().recompute();
    for (int line = 0; line < lines().lineCount(); ++line) {
        offerRemainderChoice(line);
    }
}

// The 입고량 row's handling cell is a list while the line's balance is short and plain text
// otherwise; either way it keeps what it shows.
void BAMAS315::offerRemainderChoice(int line) {
    if (!ordered()) {
        return;
    }
    const int row = m_ordered->row(line, LineRow::Received);
    const QString text = gfSpreadCellText(SP3, row, EntFinish);
    if (m_ordered->total(line, LineRow::Balance) < 0) {
        gsSpreadCell(SP3, row, EntFinish, SpreadCombo, 0, 2, 0, false, 99999999999.0,
                     -99999999999.0, 0, QString(), kStillExpected + u'\t' + kNoMore);
        SP3->setLocked(row, EntFinish, false);
    } else {
        gsSpreadCell(SP3, row, EntFinish, SpreadStatic, 0, 2);
        SP3->setLocked(row, EntFinish, true);
    }
    gsSpreadSetText(SP3, row, EntFinish, text);
}
