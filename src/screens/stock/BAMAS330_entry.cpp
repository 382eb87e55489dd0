// BAMAS330 tab 0: the filters, the school list, the modes and the loading of SP3.
#include "screens/stock/BAMAS330_entry.h"

#include "data/dbroutines.h"
#include "data/dialect.h"
#include "data/itemcode.h"
#include "data/messages.h"
#include "data/pickers.h"
#include "data/schema/views.h"
#include "data/session.h"
#include "data/sqlbuild.h"
#include "data/sqlvalue.h"
#include "data/waitcursor.h"
#include "grid/gridcolumns.h"
#include "grid/inputhelpers.h"
#include "grid/linegrid.h"
#include "grid/spreadmodel.h"
#include "grid/spreadroutines.h"
#include "screens/stock/BAMAS330.h"
#include "screens/stock/BAMAS330_CHOICE.h"
#include "screens/stock/sizeheadings.h"
#include "screens/stock/stockentry.h"
#include "screens/stock/stockfilterband.h"
#include "shell/codecontrols.h"

#include <QComboBox>
#include <QDate>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr quint32 kActiveButton = 0xC0FFC0;
constexpr quint32 kStockBack = 0xE0E0E0;
constexpr quint32 kEntryBack = 0xC0FFC0;
const QString kAllSchools = u"**"_s;

const QStringList& entryLeading() {
    static const QStringList headings{u" "_s,    u"SCHCD"_s, u"학교"_s, u"성별"_s, u"복종"_s,
                                      u"코드"_s, u"매장"_s,  u"연식"_s, u"항목"_s, u"합계"_s};
    return headings;
}

const GridColumns& entryColumns() {
    static const GridColumns table = [] {
        std::vector<GridColumn> c{
            {QString(), entryLeading()[0], CellType::Static, 0},
            {QString(), entryLeading()[1], CellType::Static, 0},
            {QString(), entryLeading()[2], CellType::Static, 10},
            {QString(), entryLeading()[3], CellType::Static, 4, Align::Centre},
            {QString(), entryLeading()[4], CellType::Static, 18},
            {QString(), entryLeading()[5], CellType::Static, 6},
            {QString(), entryLeading()[6], CellType::Static, 8},
            {QString(), entryLeading()[7], CellType::Static, 4, Align::Centre},
            {QString(), entryLeading()[8], CellType::Static, 0, Align::Centre},
            {QString(), entryLeading()[9], CellType::Static, 6, Align::Right},
            {QString(), QString(), CellType::Static, 3, Align::Centre},
        };
        for (int n = 1; n <= kSizePositions; ++n) {
            c.push_back({QString(), QString(), CellType::Static, 4, Align::Right});
        }
        c.push_back({QString(), u"연식"_s, CellType::Static, 0});
        return GridColumns(std::move(c));
    }();
    return table;
}

// One leg of the named stock: the common items, or the school items with the school filters.
QString stockLeg(const StockFilter& f, bool common, const Dialect& d) {
    const QString nl = d.nolock();
    QString sql =
        u"   SELECT SC.COMPANY, SC.STORECD, SC.SCHOOLCD, "_s +
        (common ? u"'공통'"_s : u"CS.SCHOOLNAME"_s) +
        u" SCHOOLNAME, "
        "          CASE WHEN UF.DIVIDE = 'B' THEN '남' WHEN UF.DIVIDE = 'G' THEN '여' END GRP_NAM, "
        "          UF.UNIFORMNAME, SC.UNIFORMCD CD, ST.STORENAME, SC.YYYY BSYYYY, UF.SEASON, "_s +
        (common ? u"'1'"_s : u"CS.SCHOOLLEVEL"_s) + u" SCHOOLLEVEL, SC.SIZETAB, SC.SUDIVIDE, "_s +
        eachSize(u"SC.C%1QTY"_s) + u", UF.SUBMAIN, UF.UNITYPE, UF.DISP_SEQ, "_s +
        (common ? u"1"_s : u"2"_s) +
        u" VI_SEQ "
        "     FROM C_UNIFORM UF "_s +
        nl + u", T_VIEW_STOCKQTY SC "_s + u"     LEFT OUTER JOIN C_SCHOOL CS "_s + nl +
        u" ON CS.COMPANY = SC.COMPANY AND CS.SCHOOLCD = SC.SCHOOLCD, C_STORE ST "_s + nl +
        u"    WHERE UF.USEYN = 'Y' AND UF.COMPANY = SC.COMPANY AND SC.STORECD = ST.STORECD "
        "      AND SC.COMPANY = ST.COMPANY AND "_s +
        itemFullCode(d, u"UF"_s) + u" = SC.UNIFORMCD AND SC.COMPANY = "_s + quoted(f.company) +
        u" AND ST.BRANDCD = "_s + quoted(f.brand) + u" AND SC.STORECD = "_s + quoted(f.store) +
        u"      AND SC.YYYY BETWEEN "_s + quoted(f.yearFrom) + u" AND "_s + quoted(f.yearTo);
    if (f.sex == u"B"_s) {
        sql += u" AND SC.SUDIVIDE IN ('1','3')"_s;
    } else if (f.sex == u"G"_s) {
        sql += u" AND SC.SUDIVIDE IN ('2','3')"_s;
    }
    if (!f.season.isEmpty()) {
        sql += u" AND UF.SEASON IN ('A', "_s + quoted(f.season) + u")"_s;
    }
    sql += f.subMain.isEmpty() ? u" AND UF.SUBMAIN IN ('1', '2')"_s
                               : u" AND UF.SUBMAIN IN ("_s + quoted(f.subMain) + u")"_s;
    if (!f.uniform.isEmpty()) {
        sql += u" AND "_s + itemBaseCode(d, u"UF"_s) + u" = "_s + quoted(f.uniform);
    }
    if (common) {
        return sql + u" AND RTRIM(UF.UNIFORMCOMSEQ) > ''"_s;
    }
    if (!f.schoolLevel.isEmpty()) {
        sql += u" AND CS.SCHOOLLEVEL = "_s + quoted(f.schoolLevel);
    }
    if (f.contractRow == 2 || f.contractRow == 3) {
        // A contract counts while today lies in its period.
        sql += u" AND SC.SCHOOLCD "_s + (f.contractRow == 2 ? u"NOT IN"_s : u"IN"_s) +
               u" (SELECT SCHOOLCD FROM C_G2B "_s + nl +
               u" WHERE COMPANY = SC.COMPANY AND BRANDCD = ST.BRANDCD AND YYYY = "_s +
               quoted(f.currentYear) +
               (f.season.isEmpty() ? QString() : u" AND SEASON = "_s + quoted(f.season)) +
               u" AND "_s + quoted(QDate::currentDate().toString(u"yyyy-MM-dd"_s)) +
               u" BETWEEN STARTDT AND ENDDT)"_s;
    }
    return sql + u" AND RTRIM(UF.UNIFORMCOMSEQ) = ''"_s;
}

} // namespace

QString stockEntrySql(const StockFilter& f, const QString& school, StockEntryMode mode,
                      const Dialect& d) {
    const bool zero = mode == StockEntryMode::Register;
    const QString qty = zero ? u"0 C%1QTY"_s : u"SUM(C%1QTY) C%1QTY"_s;
    const QString commonGroups =
        u"COMPANY, STORECD, SCHOOLNAME, GRP_NAM, UNIFORMNAME, CD, STORENAME, BSYYYY, SEASON, "
        "SCHOOLLEVEL, SUDIVIDE, SUBMAIN, UNITYPE, DISP_SEQ, VI_SEQ"_s +
        (zero ? u", SIZETAB"_s : QString());
    const QString columns = u"SCHOOLNAME, GRP_NAM, UNIFORMNAME, CD, STORENAME, BSYYYY, SEASON, "
                            "SCHOOLLEVEL, SUDIVIDE, SUBMAIN, UNITYPE, DISP_SEQ, VI_SEQ"_s;
    const QString ofSchool =
        school == kAllSchools ? QString() : u" WHERE SCHOOLCD = "_s + quoted(school);
    QString sql = u" WITH "_s + stockQuantitySteps(f, d) + u", VIW_STOCK_BAS_COM AS ( "_s +
                  stockLeg(f, true, d) + u" ), VIW_STOCK_BAS_SCH AS ( "_s + stockLeg(f, false, d) +
                  u" ), VIW_STOCK AS ( "
                  "   SELECT COMPANY, STORECD, MAX(SCHOOLCD) SCHOOLCD, "_s +
                  columns + u", MAX(SIZETAB) SIZETAB, "_s + eachSize(qty) +
                  u"     FROM VIW_STOCK_BAS_COM GROUP BY "_s + commonGroups +
                  u"   UNION ALL "
                  "   SELECT COMPANY, STORECD, SCHOOLCD, "_s +
                  columns + u", SIZETAB, "_s + eachSize(zero ? u"0 C%1QTY"_s : u"C%1QTY"_s) +
                  u"     FROM VIW_STOCK_BAS_SCH "_s + ofSchool + u" ) "_s;
    // The school's own items only (and the common items it carries).
    const QString items = school == kAllSchools
                              ? QString()
                              : u"    AND VS.CD IN (SELECT "_s + itemFullCode(d, u"SU"_s) +
                                    u" FROM C_SCHOOLUNIFORM SU "_s + d.nolock() +
                                    u" WHERE SU.COMPANY = "_s + quoted(f.company) +
                                    u" AND SU.SCHOOLCD = "_s + quoted(school) +
                                    u" AND SU.USEYN = 'Y') "_s;
    if (mode == StockEntryMode::Clear) {
        return sql + u" SELECT VS.SCHOOLCD, VS.SUDIVIDE, VS.CD, VS.BSYYYY, "_s +
               eachSize(u"VS.C%1QTY"_s) + u"   FROM VIW_STOCK VS WHERE VS.SIZETAB IS NOT NULL "_s +
               items + u"  ORDER BY VS.VI_SEQ, VS.SCHOOLNAME, VS.CD, VS.BSYYYY"_s;
    }
    const QString rows = mode == StockEntryMode::Correct
                             ? u"(SELECT 1 TTSEQ, '재고' GUBUN UNION ALL SELECT 2, '보정')"_s
                             : u"(SELECT 1 TTSEQ, '재고' GUBUN)"_s;
    return sql + u" SELECT "_s + d.cat({u"VS.STORENAME"_s, u"VS.SCHOOLNAME"_s}) +
           u" MKEY, VS.SCHOOLCD, VS.SCHOOLNAME, VS.GRP_NAM, VS.UNIFORMNAME, VS.CD, "
           "        VS.STORENAME, "_s +
           d.cat({u"SUBSTRING(RTRIM(VS.BSYYYY), 4, 1)"_s, u"RTRIM(VS.SEASON)"_s}) +
           u" ST, TT.GUBUN, '' TOT, VS.SIZETAB, "_s +
           eachSize(u"CASE WHEN TT.GUBUN = '재고' THEN VS.C%1QTY ELSE 0 END C%1QTY"_s) +
           u", VS.BSYYYY, VS.SUDIVIDE, TT.TTSEQ "
           "   FROM VIW_STOCK VS, "_s +
           rows +
           u" TT "
           "  WHERE VS.SIZETAB IS NOT NULL "_s +
           items +
           u"  ORDER BY VS.VI_SEQ, VS.SCHOOLLEVEL, VS.SCHOOLNAME, VS.GRP_NAM, VS.SEASON, "
           "VS.SUBMAIN, VS.UNITYPE, VS.DISP_SEQ, VS.UNIFORMNAME, VS.CD, VS.BSYYYY DESC, "
           "TT.TTSEQ"_s;
}

QWidget* BAMAS330::buildEntryTab() {
    StockFilterBand::Parts parts;
    parts.store = u"cboStore_0"_s;
    parts.level = u"cboGT25_0"_s;
    parts.year = u"cboYY0_0"_s;
    parts.schoolList = u"SP1"_s;
    m_band0 = new StockFilterBand(parts, this);
    QWidget* tab = m_band0;
    const auto combo = [this](const QString& name) { return comboBox(name); };
    const auto button = [tab](const QString& name, const QString& caption) {
        auto* b = new QPushButton(caption, tab);
        b->setObjectName(name);
        return b;
    };
    SP1 = m_band0->schools();
    cboStore0 = m_band0->store();
    cboGT25_0 = m_band0->level();
    cboYY0[0] = m_band0->year();
    cboYY0[1] = combo(u"cboYY0_1"_s);
    cboYY0[1]->setMinimumWidth(55);
    cboBrand0 = combo(u"cboBrand_0"_s);
    cboGT23_0 = combo(u"cboGT23_0"_s);
    cboGT22_0 = combo(u"cboGT22_0"_s);
    cboGT28_0 = combo(u"cboGT28_0"_s);
    cboUniform0 = combo(u"cboUniform_0"_s);
    cboGT29_0 = combo(u"cboGT29_0"_s);
    txtRegDT = textBox(u"txtRegDT"_s, 10);
    markRequired(txtRegDT);
    txtRegDT->setText(QDate::currentDate().toString(u"yyyy-MM-dd"_s));
    gsInputStyle(txtRegDT, InputStyle::Date);
    // Room for the whole date, "2024-03-15".
    txtRegDT->setMinimumWidth(txtRegDT->fontMetrics().horizontalAdvance(u"0000-00-00__"_s));
    m_band0->addField(0, new QLabel(u"~"_s, tab));
    m_band0->addField(0, cboYY0[1]);
    m_band0->addField(0, u"브랜드"_s, cboBrand0);
    m_band0->addField(1, u"등록일"_s, txtRegDT);
    m_band0->addField(1, u"성별"_s, cboGT23_0);
    m_band0->addField(1, u"시즌"_s, cboGT22_0);
    m_band0->addField(1, u"품목구분"_s, cboGT28_0);
    m_band0->addField(1, u"복종"_s, cboUniform0, 2);
    m_band0->addField(1, u"구매구분"_s, cboGT29_0);
    for (int k = 0; k < 3; ++k) {
        Label2[k] = new QLabel(tab);
        Label2[k]->setObjectName(u"Label2_%1"_s.arg(k));
    }
    Label2[2]->hide();
    Label2[0]->setMinimumWidth(60);
    Label2[1]->setMinimumWidth(100);
    cmdViewUnifom = button(u"cmdViewUnifom"_s, u"재고등록"_s);
    cmdViewSch = button(u"cmdViewSch"_s, u"재고보정"_s);
    cmdSave2 = button(u"cmdSave2"_s, u"등록"_s);
    cmdDelete = button(u"cmdDelete"_s, u"DATA삭제"_s);
    Frame17 = new QWidget(tab);
    Frame17->setObjectName(u"Frame17"_s);
    auto* frame = new QHBoxLayout(Frame17);
    frame->setContentsMargins(0, 0, 0, 0);
    cboChack = comboBox(u"cboChack"_s);
    cboChack->addItems({QString(), u"재고전체"_s, u"마이너스"_s});
    frame->addWidget(cboChack);
    frame->addWidget(cmdDelete);
    auto* commands = new QWidget(tab);
    auto* line = new QHBoxLayout(commands);
    line->setContentsMargins(0, 0, 0, 0);
    for (QWidget* w : {static_cast<QWidget*>(cmdViewUnifom), static_cast<QWidget*>(cmdViewSch),
                       static_cast<QWidget*>(Label2[0]), static_cast<QWidget*>(Label2[1]),
                       static_cast<QWidget*>(cmdSave2), Frame17}) {
        line->addWidget(w);
    }
    line->addStretch(1);
    m_band0->addOption(commands);

    SP3 = new Spread(tab);
    SP3->setObjectName(u"SP3"_s);
    gsSpreadInit(SP3, u"굴림체"_s, 10, 18, 18, 0, 0xC0C0C0, 3, false, false);
    entryColumns().setUp(SP3);
    SP3->setLocked(-1, -1, true);
    gsSpreadFreezeCols(SP3, SenTotal);
    m_register =
        std::make_unique<LineGrid>(SP3, LineGridLayout{{{LineRow::Quantity, true, kEntryBack}},
                                                       SenFirstSize,
                                                       SenTotal,
                                                       SenCaption,
                                                       SenFirstSize,
                                                       SenModelYear - 1,
                                                       std::nullopt});
    // A counted 0 stays a 0: an empty cell keeps its size as it is.
    m_correct = std::make_unique<LineGrid>(
        SP3, LineGridLayout{{{LineRow::Stock, false, kStockBack},
                             {LineRow::Correction, true, kEntryBack, true}},
                            SenFirstSize,
                            SenTotal,
                            SenCaption,
                            SenCaption,
                            SenModelYear - 1,
                            std::nullopt});
    m_band0->setBody(SP3);

    connect(cboBrand0, &QComboBox::currentIndexChanged, this, [this] { cboBrand0_Click(); });
    // The store and the lists that narrow the school list all re-enter the store's handler.
    connect(m_band0, &StockFilterBand::storeChanged, this, [this] { cboStore0_Click(); });
    for (QComboBox* c : {cboGT22_0, cboGT23_0, cboGT29_0}) {
        connect(c, &QComboBox::currentIndexChanged, this, [this] { cboStore0_Click(); });
    }
    connect(cboGT28_0, &QComboBox::currentIndexChanged, this, [this] { fillEntryUniforms(); });
    connect(m_band0, &StockFilterBand::schoolClicked, this, [this](int r) { SP1_Click(r); });
    connect(txtRegDT, &QLineEdit::editingFinished, this, [this] { checkRegDate(); });
    connect(cmdViewUnifom, &QPushButton::clicked, this, &BAMAS330::cmdViewUnifom_Click);
    connect(cmdViewSch, &QPushButton::clicked, this, &BAMAS330::cmdViewSch_Click);
    connect(cmdSave2, &QPushButton::clicked, this, &BAMAS330::cmdSave2_Click);
    connect(cmdDelete, &QPushButton::clicked, this, &BAMAS330::cmdDelete_Click);
    connect(SP3, &Spread::changed, this, [this](int r, int) {
        if (r >= 1) {
            entryLines().recomputeLine(entryLines().lineOf(r));
        }
    });
    return tab;
}

QString BAMAS330::mode() const {
    return Label2[0]->text();
}

LineGrid& BAMAS330::entryLines() const {
    return mode() == kCorrectMode ? *m_correct : *m_register;
}

QString BAMAS330::entrySchool() const {
    return Label2[2]->text();
}

void BAMAS330::cboBrand0_Click() {
    if (!mbLoaded) {
        return;
    }
    gsReadCode(cboStore0, m_store0, u"BRDSTORE"_s, gfComboCode(cboBrand0, m_brand0));
    cboStore0_Click();
}

void BAMAS330::clearMode() {
    for (QLabel* label : Label2) {
        label->clear();
    }
    cmdSave2->setEnabled(false);
    cmdDelete->setEnabled(false);
    Frame17->hide();
    for (QPushButton* b : {cmdViewUnifom, cmdViewSch}) {
        b->setStyleSheet(QString());
    }
    m_register->clear();
    m_correct->clear();
    SP1->setMaxRows(0);
    SP1->setMaxRows(30);
}

void BAMAS330::cboStore0_Click() {
    if (!mbLoaded) {
        return;
    }
    clearMode();
    fillEntryUniforms();
    if (cboStore0->currentIndex() < 1 || cboGT29_0->currentIndex() < 1) {
        return;
    }
    guarded(u"cboStore_Click"_s, [this] {
        PickerScope scope;
        scope.company = session().gsCompany;
        scope.store = gfComboCode(cboStore0, m_store0);
        scope.brand = cboBrand0->currentIndex() > 0 ? gfComboCode(cboBrand0, m_brand0) : QString();
        scope.sex = cboGT23_0->currentIndex() > 0 ? gfComboCode(cboGT23_0, m_gt23_0) : QString();
        scope.schoolLevel = m_band0->levelCode().toInt();
        scope.contractRow = cboGT29_0->currentIndex();
        scope.contractYear = m_currentYear;
        scope.season = cboGT22_0->currentIndex() > 0 ? gfComboCode(cboGT22_0, m_gt22_0) : QString();
        RecordSet rs;
        if (!gfbSqlSelectDB(schoolPickerSql(scope), rs)) {
            return;
        }
        SP1->setRedraw(false);
        SP1->setMaxRows(0);
        SP1->setMaxRows(qMax(30, int(rs.recordCount()) + 1));
        gsSpreadSetText(SP1, 1, 1, u"전체학교"_s);
        gsSpreadSetText(SP1, 1, 2, kAllSchools);
        for (qsizetype r = 0; r < rs.recordCount(); ++r) {
            gsSpreadSetText(SP1, int(r) + 2, 1, rs.at(r, 1).trimmed());
            gsSpreadSetText(SP1, int(r) + 2, 2, rs.at(r, 0).trimmed());
        }
        SP1->setRedraw(true);
    });
}

void BAMAS330::fillEntryUniforms() {
    if (!mbLoaded) {
        return;
    }
    PickerScope scope;
    scope.company = session().gsCompany;
    scope.store = cboStore0->currentIndex() > 0 ? gfComboCode(cboStore0, m_store0) : QString();
    scope.brand = cboBrand0->currentIndex() > 0 ? gfComboCode(cboBrand0, m_brand0) : QString();
    scope.sex = cboGT23_0->currentIndex() > 0 ? gfComboCode(cboGT23_0, m_gt23_0) : QString();
    scope.schoolLevel = m_band0->levelCode().toInt();
    scope.season = cboGT22_0->currentIndex() > 0 ? gfComboCode(cboGT22_0, m_gt22_0) : QString();
    scope.subMain = cboGT28_0->currentIndex() > 0 ? gfComboCode(cboGT28_0, m_gt28_0) : QString();
    guarded(u"cboUniform_Fill"_s, [&] {
        gsFillPicker(cboUniform0, m_uniform0, itemPickerSql(scope), u"전체"_s, u"**"_s);
    });
}

bool BAMAS330::checkRegDate() {
    const QString text = txtRegDT->text().trimmed();
    if (text.isEmpty() || QDate::fromString(text, u"yyyy-MM-dd"_s).isValid()) {
        return true;
    }
    gfsMessage(8086);
    txtRegDT->clear();
    return false;
}

void BAMAS330::cmdViewUnifom_Click() {
    if (cboStore0->currentIndex() < 1) {
        gfsMessage(8067);
        return;
    }
    Frame17->hide();
    Label2[0]->setText(kRegisterMode);
    cmdViewUnifom->setStyleSheet(u"background: %1;"_s.arg(spreadColor(kActiveButton).name()));
    cmdViewSch->setStyleSheet(QString());
    m_register->clear();
    m_correct->clear();
}

void BAMAS330::cmdViewSch_Click() {
    if (mode() != kCorrectMode) {
        Label2[0]->setText(kCorrectMode);
        cmdViewSch->setStyleSheet(u"background: %1;"_s.arg(spreadColor(kActiveButton).name()));
        cmdViewUnifom->setStyleSheet(QString());
        QStringList years;
        for (int k = 0; k < cboYY0[0]->count(); ++k) {
            years << cboYY0[0]->itemText(k);
        }
        BAMAS330_CHOICE choice(mode(), years, this);
        if (choice.exec() == QDialog::Accepted) {
            cmdSave2->setEnabled(true);
            cmdDelete->setEnabled(true);
        }
    }
    Frame17->show();
    m_register->clear();
    m_correct->clear();
}

void BAMAS330::SP1_Click(int row) {
    if (row < 1 || gfSpreadCellText(SP1, row, 2).isEmpty()) {
        return;
    }
    if (txtRegDT->text().trimmed().isEmpty()) {
        gfsMessage(22);
        return;
    }
    Label2[1]->setText(gfSpreadCellText(SP1, row, 1));
    Label2[2]->setText(gfSpreadCellText(SP1, row, 2));
    if (mode().isEmpty()) {
        cmdSave2->setEnabled(false);
        return;
    }
    cmdSave2->setEnabled(true);
    loadEntryGrid();
}

void BAMAS330::m_Search() {
    const int row = SP1->activeRow();
    if (row >= 1) {
        SP1_Click(row);
    }
}

void BAMAS330::m_clear() {
    m_register->clear();
    m_correct->clear();
    SP1->setMaxRows(0);
    SP1->setMaxRows(30);
    SP3->setMaxRows(30);
}

StockFilter BAMAS330::entryFilter() const {
    StockFilter f;
    f.company = session().gsCompany;
    f.store = gfComboCode(cboStore0, m_store0);
    f.brand = gfComboCode(cboBrand0, m_brand0);
    if (f.brand.isEmpty() || f.brand == u"*"_s) {
        // Without a brand chosen, the store's own.
        f.brand = gfSelectValue(u"SELECT BRANDCD FROM C_STORE WHERE COMPANY = "_s +
                                quoted(f.company) + u" AND STORECD = "_s + quoted(f.store))
                      .trimmed();
    }
    QString low = u"20"_s + cboYY0[0]->currentText();
    QString high = u"20"_s + cboYY0[1]->currentText();
    if (low > high) {
        std::swap(low, high);
    }
    f.yearFrom = low;
    f.yearTo = high;
    const auto chosen = [](const QComboBox* c, const CodeArray& a) {
        return c->currentIndex() > 0 ? gfComboCode(c, a) : QString();
    };
    const QString sex = chosen(cboGT23_0, m_gt23_0);
    f.sex = sex == u"B"_s || sex == u"G"_s ? sex : QString();
    f.season = chosen(cboGT22_0, m_gt22_0);
    f.subMain = chosen(cboGT28_0, m_gt28_0);
    f.uniform = chosen(cboUniform0, m_uniform0);
    f.schoolLevel = m_band0->levelCode();
    f.contractRow = cboGT29_0->currentIndex();
    f.currentYear = m_currentYear;
    return f;
}

void BAMAS330::loadEntryGrid() {
    const bool correcting = mode() == kCorrectMode;
    guarded(u"SP1_Click"_s, [this, correcting] {
        const WaitCursor wait;
        const StockFilter filter = entryFilter();
        QList<SizeHeadingRow> headings;
        if (!readSizeHeadings(filter.store, filter.brand,
                              cboGT25_0->currentIndex() == 3 ? u"L"_s : u"H"_s, headings)) {
            return;
        }
        RecordSet rs;
        if (!gfbSqlSelectDB(
                stockEntrySql(filter, entrySchool(),
                              correcting ? StockEntryMode::Correct : StockEntryMode::Register,
                              dialect()),
                rs)) {
            return;
        }
        SP3->setRedraw(false);
        writeSizeHeadings(SP3, headings, entryLeading(), {u"연식"_s});
        SP3->setColumnWidth(SenCaption, correcting ? 7 : 0);
        m_register->clear();
        m_correct->clear();
        LineGrid& g = entryLines();
        const int first = rs.fieldIndex(u"C01QTY"_s);
        const int seq = rs.fieldIndex(u"TTSEQ"_s);
        const LineRow shown = correcting ? LineRow::Stock : LineRow::Quantity;
        for (rs.moveFirst(); !rs.eof(); rs.moveNext()) {
            if (rs.value(seq).trimmed() != u"1"_s) {
                continue; // the 보정 row of a line comes with the line
            }
            const int line = g.addLine();
            for (int col = SenKey; col <= SenYear; ++col) {
                g.setCommon(line, col, rs.value(col - 1).trimmed());
            }
            g.setCommon(line, SenSizeTab, rs.field(u"SIZETAB"_s).trimmed());
            g.setCommon(line, SenModelYear, rs.field(u"BSYYYY"_s).trimmed());
            for (int p = 1; p <= kSizePositions; ++p) {
                g.setQuantity(line, shown, p, rs.value(first + p - 1).toLongLong());
            }
        }
        g.recompute();
        gsSpreadColMerge(SP3, SenKey, SenUniform);
        SP3->setRedraw(true);
    });
}
