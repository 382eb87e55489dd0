#include "screens/organisation/BAMAS170.h"

#include "data/database.h"
#include "data/dbroutines.h"
#include "data/dialect.h"
#include "data/messages.h"
#include "data/session.h"
#include "data/sizelabels.h"
#include "data/sqlbuild.h"
#include "data/sqlvalue.h"
#include "grid/excelexport.h"
#include "grid/gridcolumns.h"
#include "grid/inputhelpers.h"
#include "grid/spreadroutines.h"
#include "shell/editband.h"
#include "shell/yearbox.h"

#include <QDate>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

// SP1: the brands.
const GridColumns& listColumns() {
    static const GridColumns table{
        {u"BRANDCD"_s, u"코드"_s, CellType::Static, 6, Align::Centre},
        {u"BRANDNAME"_s, u"브랜드"_s, CellType::Static, 18, Align::Left},
        {u"USEYN"_s,
         u"사용"_s,
         CellType::Static,
         6,
         Align::Centre,
         {{{u"Y"_s, u"사용"_s}}, u"보류"_s}},
    };
    return table;
}

// SP2: one row per pair of teen range and size table, then the 24 labels, kept as typed.
const GridColumns& sizeColumns() {
    static const GridColumns table = [] {
        std::vector<GridColumn> columns{
            {u"TEENSCOPE"_s, u"구분"_s, CellType::Static, 7, Align::Centre},
            {u"GT27CD"_s, u"CD"_s, CellType::Static, 3, Align::Centre},
            {u"SIZETAB"_s, u"탭"_s, CellType::Static, 3, Align::Centre},
        };
        for (int n = 1; n <= kSizePositions; ++n) {
            columns.push_back(
                {sizeLabelColumn(n), QString::number(n), CellType::Edit, 4, Align::Centre});
        }
        return GridColumns(std::move(columns), u"C_BRANDSIZE"_s);
    }();
    return table;
}

QString currentYear() {
    return QDate::currentDate().toString(u"yyyy"_s);
}

} // namespace

BAMAS170::BAMAS170() : Screen(u"BAMAS170"_s, u"브랜드 관리"_s) {}

void BAMAS170::setupScreen() {
    SP1 = grid(u"SP1"_s, listColumns(), 2, true, true);
    connect(SP1, &Spread::clicked, this, [this](int row, int) { SP1_Click(row); });
    auto* list = new QGroupBox(u"조회리스트"_s, this);
    (new QVBoxLayout(list))->addWidget(SP1);
    list->setFixedWidth(300);

    // The edit band across the top; below it the list keeps its width and the size tab takes
    // the rest.
    auto* lower = new QHBoxLayout;
    lower->addWidget(list);
    lower->addWidget(buildSizeBand(), 1);
    contentLayout()->addWidget(buildEditBand());
    contentLayout()->addLayout(lower, 1);
    clearScreen(true);
}

QWidget* BAMAS170::buildEditBand() {
    auto* band = new EditBand(u"브랜드 정보"_s, this);
    lblCode = new QLabel(this);
    lblCode->setObjectName(u"lblCode"_s);
    txtName = textBox(u"txtName"_s);
    QLineEdit* txtTEL = textBox(u"txtTEL"_s);
    gsInputStyle(txtTEL, InputStyle::Phone);
    band->add(0, 0, u"브랜드코드"_s, m_form.key(lblCode, u"BRANDCD"_s));
    band->add(0, 1, u"브랜드명"_s, m_form.text(txtName, u"BRANDNAME"_s).required());
    band->add(0, 2, u"사용여부"_s,
              m_form.options(this, u"optUSEYN"_s, {{u"사용"_s, u"Y"_s}, {u"미사용"_s, u"N"_s}},
                             u"USEYN"_s));
    band->add(1, 0, u"브랜드전체명"_s, m_form.text(textBox(u"txtFullName"_s), u"BRANDFULLNAME"_s));
    band->add(1, 1, u"담당자"_s, m_form.text(textBox(u"txtManager"_s), u"BRANDMANAGER"_s));
    band->add(1, 2, u"전화번호"_s, m_form.text(txtTEL, u"BRANDTEL"_s));
    band->add(2, 0, u"비고"_s, m_form.text(textBox(u"txtRemark"_s), u"REMARK"_s), 3);
    return band;
}

QWidget* BAMAS170::buildSizeBand() {
    yearBox = new YearBox(this);
    connect(yearBox, &YearBox::yearChosen, this, &BAMAS170::fSizeTab_View);
    SP2 = grid(u"SP2"_s, sizeColumns(), 3, false, false);
    // The pair stays in view, grey, while the labels scroll.
    gsSpreadFreezeCols(SP2, sizeColumns().column(u"SIZETAB"_s));
    auto* sizes = new QGroupBox(u"Size 탭"_s, this);
    auto* sizeColumn = new QVBoxLayout(sizes);
    sizeColumn->addWidget(yearBox);
    sizeColumn->addWidget(SP2, 1);
    return sizes;
}

void BAMAS170::clearScreen(bool) {
    m_form.clear();
    yearBox->setYear(currentYear());
    SP2->setMaxRows(0);
}

void BAMAS170::sSelectQuery() {
    guarded(u"sSelectQuery"_s, [this] {
        QString sql = u" SELECT BRANDCD,  BRANDNAME, USEYN  "_s + u"   FROM C_BRAND "_s +
                      dialect().nolock() + whereCompany();
        if (!txtName->text().trimmed().isEmpty()) {
            sql += u"      AND BRANDNAME LIKE "_s +
                   quoted(u"%"_s + txtName->text().trimmed() + u"%"_s) + u" "_s;
        }
        sql += u"  ORDER BY USEYN DESC, BRANDCD"_s;
        RecordSet rs;
        if (gfbSqlSelectDB(sql, rs)) {
            showList(SP1, listColumns(), rs);
        }
    });
}

void BAMAS170::SP1_Click(int row) {
    if (row < 1 || row > SP1->dataRowCnt()) {
        return;
    }
    m_form.loadRow(listColumns(), SP1, row);
    // The rest of the band is not in the list: read from the brand's row.
    guarded(u"SP1_Click"_s, [this] {
        RecordSet rs;
        if (gfbSqlSelectDB(u" SELECT BRANDFULLNAME, BRANDMANAGER, BRANDTEL, REMARK "_s +
                               u"   FROM C_BRAND "_s + dialect().nolock() + whereCompany() +
                               andEquals(u"BRANDCD"_s, lblCode->text()),
                           rs)) {
            m_form.loadRecord(rs);
        }
    });
    yearBox->setYear(currentYear());
    fSizeTab_View();
}

void BAMAS170::fSizeTab_View() {
    // A brand gets its labels once it exists: a new one is saved first, then picked.
    if (lblCode->text().isEmpty()) {
        SP2->setMaxRows(0);
        return;
    }
    guarded(u"fSizeTab_View"_s, [this] {
        const QString sql = sizeLabelPairsSql(lblCode->text(), yearBox->year());
        RecordSet rs;
        qint64 count = 0;
        if (!gfbSqlSelectDB(sql, rs, count)) {
            return;
        }
        sizeColumns().fill(SP2, rs);
        setStatusNote(QString::number(count) + u"건의 데이터가 조회되었습니다."_s);
    });
}

QString BAMAS170::brandStatement() const {
    if (lblCode->text().isEmpty()) {
        // The row count plus one, not the highest code plus one: after a delete the next brand
        // may collide with an existing code, and the hundredth does not fit two characters
        // (REPLICATE with a negative count gives NULL). Both end in the trap, as they always have.
        return m_form.insertStatement(
            {{u"COMPANY"_s, quoted(session().gsCompany)},
             {u"BRANDCD"_s, nextCodeByCount(u"C_BRAND"_s, 2, whereCompany())}});
    }
    return m_form.updateStatement(whereCompany() + andEquals(u"BRANDCD"_s, lblCode->text()));
}

bool BAMAS170::saveSizeRows() {
    // The year's rows are written anew from the grid, every pair even without labels; the
    // labels shown for an earlier year in force thus become the shown year's own copy.
    const QString where = whereCompany() + andEquals(u"BRANDCD"_s, lblCode->text()) +
                          u"   AND YYYY    = "_s + quoted(yearBox->year());
    if (!gfbSqlExecuteDB(u" DELETE FROM C_BRANDSIZE "_s + where)) {
        return false;
    }
    const GridColumns& columns = sizeColumns();
    for (int row = 1; row <= SP2->maxRows(); ++row) {
        Assignments values{{u"COMPANY"_s, quoted(session().gsCompany)},
                           {u"BRANDCD"_s, quoted(lblCode->text())},
                           {u"YYYY"_s, quoted(yearBox->year())},
                           {u"TEENSCOPE"_s, quoted(columns.value(SP2, row, u"GT27CD"_s).trimmed())},
                           {u"SIZETAB"_s, quoted(columns.value(SP2, row, u"SIZETAB"_s).trimmed())}};
        for (int n = 1; n <= kSizePositions; ++n) {
            values.append({sizeLabelColumn(n),
                           quoted(columns.value(SP2, row, sizeLabelColumn(n)).trimmed())});
        }
        if (!gfbSqlExecuteDB(sqlInsert(u"C_BRANDSIZE"_s, values))) {
            return false;
        }
    }
    return true;
}

void BAMAS170::sSaveQuery() {
    if (!m_form.checkRequired()) {
        return;
    }
    // The labels are stored under the year shown: without one they would belong to none.
    if (!lblCode->text().isEmpty() && yearBox->year().trimmed().size() != 4) {
        gfsMsgBox(u"사이즈 탭의 년도(4자리)를 입력해 주십시오."_s);
        yearBox->box()->setFocus();
        return;
    }
    m_form.cutTexts();
    guarded(
        u"sSaveQuery"_s,
        [this] {
            Transaction tx;
            if (!tx.ok() || !gfbSqlExecuteDB(brandStatement())) {
                return;
            }
            // A new brand has no labels on the grid yet (see fSizeTab_View).
            if (!lblCode->text().isEmpty() && !saveSizeRows()) {
                return;
            }
            if (!tx.commit()) {
                return;
            }
            clearScreen(true);
            sSelectQuery();
        },
        true);
}

void BAMAS170::cmdDelete_Click() {
    // The brand's size rows stay behind on purpose.
    deleteRow(lblCode->text(), 14,
              u" DELETE FROM C_BRAND "_s + whereCompany() +
                  andEquals(u"BRANDCD"_s, lblCode->text()));
}

void BAMAS170::m_Excel() {
    const ReportGrid report = reportGrid();
    gsExcelExport(report.title, report.lastCol, report.grid);
}

Screen::ReportGrid BAMAS170::reportGrid() const {
    return {SP1, u"브랜드 관리"_s, QString(), listColumns().count()};
}
