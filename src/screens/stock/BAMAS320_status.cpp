// BAMAS320 tab 1: the transfers of a sending store in a period, two grid rows a line (the size
// labels over the quantities sent).
#include "data/dbroutines.h"
#include "data/dialect.h"
#include "data/itemcode.h"
#include "data/messages.h"
#include "data/pickers.h"
#include "data/schema/views.h"
#include "data/session.h"
#include "data/sizelabels.h"
#include "data/sqlbuild.h"
#include "data/sqlvalue.h"
#include "data/waitcursor.h"
#include "grid/excelexport.h"
#include "grid/gridcolumns.h"
#include "grid/linegrid.h"
#include "grid/spreadroutines.h"
#include "screens/stock/BAMAS320.h"
#include "screens/stock/stockentry.h"
#include "screens/stock/stockfilterband.h"
#include "shell/codecontrols.h"

#include <QComboBox>
#include <QDate>
#include <QDateEdit>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

// SP31: date, sender, receiver, the two names (school first, or item first), year label, total,
// 24 sizes.
enum StatusCol {
    StaDate = 1,
    StaSender,
    StaReceiver,
    StaFirstName,
    StaSecondName,
    StaYear,
    StaTotal,
    StaFirstSize,
    StaCount = StaFirstSize + kSizePositions - 1
};

constexpr quint32 kLabelBand = 0xC0FFFF;

const GridColumns& statusColumns() {
    static const GridColumns table = [] {
        std::vector<GridColumn> c{
            {QString(), u"출고일"_s, CellType::Static, 10, Align::Centre},
            {QString(), u"출고처"_s, CellType::Static, 12},
            {QString(), u"입고처"_s, CellType::Static, 12},
            {QString(), u"학교 [성]"_s, CellType::Static, 14},
            {QString(), u"복종"_s, CellType::Static, 20},
            {QString(), u"연식"_s, CellType::Static, 4, Align::Centre},
            {QString(), u"합계"_s, CellType::Static, 6, Align::Right},
        };
        for (int n = 1; n <= kSizePositions; ++n) {
            c.push_back({QString(), QString::number(n), CellType::Static, 4, Align::Right});
        }
        return GridColumns(std::move(c));
    }();
    return table;
}

} // namespace

QWidget* BAMAS320::buildStatusTab() {
    StockFilterBand::Parts parts;
    parts.store = u"cboOutStore_1"_s;
    parts.storeCaption = u"출고매장"_s;
    parts.storeName = u"lblOutStore_1"_s;
    parts.year = u"cboYY_1"_s;
    auto* band = new StockFilterBand(parts, this);
    m_statusBand = band;
    QWidget* tab = band;
    const auto button = [tab](const QString& name, const QString& caption) {
        auto* b = new QPushButton(caption, tab);
        b->setObjectName(name);
        return b;
    };
    cboOutStore[1] = band->store();
    lblOutStore[1] = band->storeName();
    cboYY[1] = band->year();
    markRequired(cboYY[1]);
    cboInStore[1] = comboBox(u"cboInStore_1"_s);
    lblInStore[1] = new QLabel(tab);
    lblInStore[1]->setObjectName(u"lblInStore_1"_s);
    cboGT22[1] = comboBox(u"cboGT22_1"_s);
    cboGT23[1] = comboBox(u"cboGT23_1"_s);
    dtpStart[1] = dateBox(u"dtpStart_1"_s, QDate::currentDate().addMonths(-3));
    dtpEnd = dateBox(u"dtpEnd"_s);
    cmdSerchSch = button(u"cmdSerchSch"_s, u"전체"_s);
    cmdUniType = button(u"cmdUniType"_s, u"전체"_s);
    cmdViewSch1 = button(u"cmdViewSch1"_s, u"학교별 실행"_s);
    cmdViewUnifom1 = button(u"cmdViewUnifom1"_s, u"복종별 실행"_s);
    cmdExcel1 = button(u"cmdExcel1"_s, u"Excel"_s);

    band->addField(0, u"입고매장"_s, cboInStore[1]);
    band->addField(0, lblInStore[1]);
    band->addField(0, u"시즌"_s, cboGT22[1]);
    band->addField(0, u"성별"_s, cboGT23[1]);
    band->addField(1, u"조회기간"_s, dtpStart[1]);
    band->addField(1, new QLabel(u"~"_s, tab));
    band->addField(1, dtpEnd);
    band->addField(1, u"학교"_s, cmdSerchSch);
    band->addField(1, u"복종"_s, cmdUniType);
    band->addField(1, cmdViewSch1);
    band->addField(1, cmdViewUnifom1);
    band->addField(1, cmdExcel1);

    SP31 = new Spread(tab);
    SP31->setObjectName(u"SP31"_s);
    gsSpreadInit(SP31, u"굴림체"_s, 10, 18, 18, 0, 0xC0C0C0, 3, false, false);
    statusColumns().setUp(SP31);
    SP31->setLocked(-1, -1, true);
    gsSpreadFreezeCols(SP31, StaTotal);
    m_status = std::make_unique<LineGrid>(
        SP31, LineGridLayout{{{LineRow::Labels, false, kLabelBand}, {LineRow::Quantity, false}},
                             StaFirstSize,
                             StaTotal,
                             0,
                             StaYear,
                             0,
                             std::nullopt});
    band->setBody(SP31);

    connect(band, &StockFilterBand::storeChanged, this,
            [this] { lblOutStore[1]->setText(m_statusBand->storeBrand()); });
    connect(cboInStore[1], &QComboBox::currentIndexChanged, this,
            [this] { lblInStore[1]->setText(m_inStore[1].name(cboInStore[1]->currentIndex())); });
    connect(cmdSerchSch, &QPushButton::clicked, this, &BAMAS320::pickSchools);
    connect(cmdUniType, &QPushButton::clicked, this, &BAMAS320::pickItems);
    connect(cmdViewSch1, &QPushButton::clicked, this, [this] { cmdViewStatus_Click(false); });
    connect(cmdViewUnifom1, &QPushButton::clicked, this, [this] { cmdViewStatus_Click(true); });
    connect(cmdExcel1, &QPushButton::clicked, this, &BAMAS320::cmdExcel1_Click);
    return tab;
}

void BAMAS320::pickSchools() {
    PickerScope scope;
    scope.company = session().gsCompany;
    scope.store = code(cboOutStore[1], m_outStore[1]);
    scope.sex = code(cboGT23[1], m_gt23[1]);
    QList<CheckPickerGrid> grids;
    const QString names[3] = {u"중 등"_s, u"고 등"_s, u"KIDS"_s};
    for (int level = 1; level <= 3; ++level) {
        scope.schoolLevel = level;
        grids << CheckPickerGrid{u"SPLVL%1"_s.arg(level), names[level - 1], schoolPickerSql(scope)};
    }
    CheckPicker picker(
        u"학교선택"_s,
        {u"SCHOOLNAME"_s, u"SCHOOLCD"_s, QString(), u"학교"_s, u"학교코드"_s, u"남여"_s}, grids,
        u"cmdRun1"_s, u"cmdExit1"_s, this);
    picker.setObjectName(u"Frame32"_s);
    picker.exec();
    m_schools = picker.picked();
    cmdSerchSch->setText(m_schools.caption());
    cmdSerchSch->setToolTip(m_schools.caption());
}

void BAMAS320::pickItems() {
    PickerScope scope;
    scope.company = session().gsCompany;
    scope.store = code(cboOutStore[1], m_outStore[1]);
    scope.sex = code(cboGT23[1], m_gt23[1]);
    scope.season = code(cboGT22[1], m_gt22[1]);
    QList<CheckPickerGrid> grids;
    const QString names[3] = {u"주품목"_s, u"부품목"_s, u"별매품"_s};
    for (int k = 1; k <= 3; ++k) {
        scope.subMain = QString::number(k);
        grids << CheckPickerGrid{u"SPSubM%1"_s.arg(k), names[k - 1], itemPickerSql(scope)};
    }
    CheckPicker picker(
        u"복종선택"_s,
        {u"UNIFORMNAME"_s, u"CD"_s, u"SUBMAIN"_s, u"복종"_s, u"품명코드"_s, u"주부"_s}, grids,
        u"cmdRun2"_s, u"cmdExit2"_s, this);
    picker.setObjectName(u"Frame33"_s);
    picker.exec();
    m_items = picker.picked();
    cmdUniType->setText(m_items.caption());
    cmdUniType->setToolTip(m_items.caption());
}

// The whole statement from the tab's choices, so that it can run wherever the list is filled.
QString BAMAS320::statusSql(bool byItem) const {
    const Dialect& d = dialect();
    const QString nl = d.nolock();
    QString where = u"  WHERE TOU.COMPANY = "_s + quotedCompany() + u"    AND TOU.STORECD = "_s +
                    quoted(gfComboCode(cboOutStore[1], m_outStore[1])) +
                    u"    AND TOU.OUTYYYY = "_s + quoted(entryYear(cboYY[1])) +
                    u"    AND TOU.OUTBOUNDGB IN ('M', 'T') "
                    "    AND TOU.OUTBOUNDDT BETWEEN "_s +
                    quoted(ymdOf(dtpStart[1])) + u" AND "_s + quoted(ymdOf(dtpEnd));
    if (!m_items.isEmpty()) {
        where += u"    AND "_s + itemBaseCode(d, u"UF"_s) + u" IN ("_s + m_items.inList() + u") "_s;
    }
    if (!m_schools.isEmpty()) {
        where += u"    AND TOU.SCHOOLCD IN ("_s + m_schools.inList() + u") "_s;
    }
    if (cboInStore[1]->currentIndex() > 0) {
        where +=
            u"    AND TOU.INBOUNDSTORE = "_s + quoted(gfComboCode(cboInStore[1], m_inStore[1]));
    }
    if (const QString sex = code(cboGT23[1], m_gt23[1]); !sex.isEmpty()) {
        where +=
            sex == u"B"_s ? u"    AND TOU.SUDIVIDE = '1' "_s : u"    AND TOU.SUDIVIDE = '2' "_s;
    }
    if (const QString season = code(cboGT22[1], m_gt22[1]); !season.isEmpty()) {
        where += u"    AND UF.SEASON IN ('A', "_s + quoted(season) + u") "_s;
    }
    const QString labels = eachSize(u"MAX(C%1) C%1"_s);
    const QString sums = eachSize(u"SUM(O%1) O%1"_s);
    const QString common = u"'공통'"_s;
    const QString school = d.cat({u"SCHOOLNAME"_s, u"'['"_s,
                                  u"CASE WHEN SUDIVIDE = '1' THEN '남' ELSE '여' END"_s, u"']'"_s});
    const auto names = [byItem](const QString& schoolText) -> QString {
        if (byItem) {
            return u"UNIFORMNAME, "_s + schoolText + u" SCHOOLNAME"_s;
        }
        return schoolText + u" SCHOOLNAME, UNIFORMNAME"_s;
    };
    return u" WITH VIEW_OUTBOUND AS ( "
           "   SELECT "_s +
           d.cat({u"SUBSTRING(TOU.OUTBOUNDDT, 1, 4)"_s, u"'-'"_s,
                  u"SUBSTRING(TOU.OUTBOUNDDT, 5, 2)"_s, u"'-'"_s,
                  u"SUBSTRING(TOU.OUTBOUNDDT, 7, 2)"_s}) +
           u" OUTDT, ST.STORENAME, ISNULL(IST.STORENAME, TOU.INBOUNDSTORE) INBOUNDSTORE, "
           "          CS.SCHOOLNAME, TOU.SUDIVIDE, UF.UNIFORMNAME, "_s +
           d.cat({u"SUBSTRING(TOU.OUTYYYY, 4, 1)"_s, u"SUBSTRING(TOU.UNIFORMCD, 1, 1)"_s}) +
           u" ST, RTRIM(UF.UNIFORMCOMSEQ) CD2, "_s + eachSize(u"SS.C%1"_s) + u", "_s +
           eachSize(u"TOU.O%1"_s) + u"     FROM T_OUTBOUND TOU "_s + nl +
           u"     LEFT OUTER JOIN C_STORE ST "_s + nl +
           u" ON ST.COMPANY = TOU.COMPANY AND ST.STORECD = TOU.STORECD "
           "     LEFT OUTER JOIN C_STORE IST "_s +
           nl +
           u" ON IST.COMPANY = TOU.COMPANY AND IST.STORECD = TOU.INBOUNDSTORE "
           "     JOIN C_UNIFORM UF "_s +
           nl + u" ON "_s + itemJoin(d, u"UF"_s, u"TOU"_s) +
           u"     LEFT OUTER JOIN C_SCHOOL CS "_s + nl +
           u" ON CS.COMPANY = TOU.COMPANY AND CS.SCHOOLCD = TOU.SCHOOLCD "
           "     LEFT OUTER JOIN VIW_SCHUNIFOMSIZE SS ON SS.COMPANY = TOU.COMPANY "
           "      AND SS.STORECD = TOU.STORECD AND SS.SCHOOLCD = TOU.SCHOOLCD "
           "      AND SS.CD = TOU.UNIFORMCD AND SS.BSYYYY = TOU.OUTYYYY "_s +
           where +
           u" ) "
           " SELECT 1 GB1, OUTDT, STORENAME, INBOUNDSTORE, "_s +
           names(common) + u", ST, "_s + labels + u", "_s + sums +
           u"   FROM VIEW_OUTBOUND WHERE CD2 > '' "
           "  GROUP BY OUTDT, STORENAME, INBOUNDSTORE, UNIFORMNAME, ST "
           " UNION ALL "
           " SELECT 2 GB1, OUTDT, STORENAME, INBOUNDSTORE, "_s +
           names(school) + u", ST, "_s + labels + u", "_s + sums +
           u"   FROM VIEW_OUTBOUND WHERE CD2 = '' "
           "  GROUP BY OUTDT, STORENAME, INBOUNDSTORE, SCHOOLNAME, SUDIVIDE, UNIFORMNAME, ST "_s +
           (byItem
                ? u" ORDER BY GB1, OUTDT, STORENAME, INBOUNDSTORE, UNIFORMNAME, SCHOOLNAME, ST"_s
                : u" ORDER BY GB1, OUTDT, STORENAME, INBOUNDSTORE, SCHOOLNAME, UNIFORMNAME, ST"_s);
}

void BAMAS320::cmdViewStatus_Click(bool byItem) {
    if (refuseMissingStores(1)) {
        return;
    }
    m_statusByItem = byItem;
    guarded(u"sSelectQuery2"_s, [this, byItem] {
        const WaitCursor wait;
        RecordSet rs;
        if (!gfbSqlSelectDB(statusSql(byItem), rs)) {
            return;
        }
        SP31->setRedraw(false);
        gsSpreadSetText(SP31, gfHeadRow(0), StaFirstName, byItem ? u"복종"_s : u"학교 [성]"_s);
        gsSpreadSetText(SP31, gfHeadRow(0), StaSecondName, byItem ? u"학교 [성]"_s : u"복종"_s);
        SP31->setColumnWidth(StaFirstName, byItem ? 20 : 14);
        SP31->setColumnWidth(StaSecondName, byItem ? 14 : 20);
        m_status->clear();
        const int firstLabel = rs.fieldIndex(u"C01"_s);
        const int firstSum = rs.fieldIndex(u"O01"_s);
        for (rs.moveFirst(); !rs.eof(); rs.moveNext()) {
            const int line = m_status->addLine();
            // The texts stand on the quantity row; the label row above carries the sizes only.
            const int row = m_status->row(line, LineRow::Quantity);
            for (int col = StaDate; col <= StaYear; ++col) {
                gsSpreadSetText(SP31, row, col, rs.value(col).trimmed());
            }
            QStringList labels;
            for (int p = 0; p < kSizePositions; ++p) {
                labels << rs.value(firstLabel + p).trimmed();
            }
            m_status->setLabels(line, labels);
            for (int p = 1; p <= kSizePositions; ++p) {
                m_status->setQuantity(line, LineRow::Quantity, p,
                                      rs.value(firstSum + p - 1).toLongLong());
            }
        }
        m_status->recompute();
        SP31->setRedraw(true);
        showFound(rs.recordCount());
    });
}

Screen::ReportGrid BAMAS320::reportGrid() const {
    const int season = cboGT22[1]->currentIndex();
    return {SP31, u"매장이동현황"_s,
            u"시즌 : "_s + (season > 0 ? m_gt22[1].name(season) : QString()) + u"   출고매장 : "_s +
                cboOutStore[1]->currentText() + u"   조회기간 : "_s +
                dtpStart[1]->date().toString(u"yyyy-MM-dd"_s) + u" ~ "_s +
                dtpEnd->date().toString(u"yyyy-MM-dd"_s),
            StaCount};
}

void BAMAS320::cmdExcel1_Click() {
    const ReportGrid report = reportGrid();
    gsExcelExport(report.title, report.lastCol, report.grid, report.subTitle);
}
