#include "screens/organisation/BAMAS170.h"

#include "data/database.h"
#include "data/dbroutines.h"
#include "data/dialect.h"
#include "data/messages.h"
#include "data/session.h"
#include "data/sqlbuild.h"
#include "data/sqlvalue.h"
#include "grid/excelexport.h"
#include "grid/gridcolumns.h"
#include "grid/inputhelpers.h"
#include "grid/spreadroutines.h"

#include <QDate>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpressionValidator>

using namespace Qt::StringLiterals;

namespace {

QString labelColumn(int position) {
    return u"C%1"_s.arg(position, 2, 10, QLatin1Char('0'));
}

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
        for (int n = 1; n <= 24; ++n) {
            columns.push_back(
                {labelColumn(n), QString::number(n), CellType::Edit, 4, Align::Centre});
        }
        return GridColumns(std::move(columns));
    }();
    return table;
}

QString currentYear() {
    return QDate::currentDate().toString(u"yyyy"_s);
}

} // namespace

BAMAS170::BAMAS170() : Screen(u"BAMAS170"_s, u"브랜드 관리"_s) {}

void BAMAS170::setupScreen() {
    SP1 = new Spread(this);
    SP1->setObjectName(u"SP1"_s);
    gsSpreadInit(SP1, u"굴림체"_s, 10, 18, 18, 0, 0xC0C0C0, 2, true, true);
    listColumns().setUp(SP1);
    connect(SP1, &Spread::clicked, this, [this](int row, int) { SP1_Click(row); });

    auto* list = new QGroupBox(u"조회리스트"_s, this);
    auto* listColumn = new QVBoxLayout(list);
    listColumn->addWidget(SP1);
    list->setFixedWidth(300);

    // The edit band across the top; below it the list keeps its width and the size tab takes
    // the rest.
    auto* lower = new QHBoxLayout;
    lower->addWidget(list);
    lower->addWidget(buildSizeBand(), 1);
    contentLayout()->addWidget(buildEditBand());
    contentLayout()->addLayout(lower, 1);
    clearFields();
}

QWidget* BAMAS170::buildEditBand() {
    auto* use = new QWidget(this);
    auto* useRow = new QHBoxLayout(use);
    useRow->setContentsMargins(0, 0, 0, 0);
    QRadioButton* optUSEYN[2];
    for (int i = 0; i < 2; ++i) {
        optUSEYN[i] = new QRadioButton(i == 0 ? u"사용"_s : u"미사용"_s, this);
        optUSEYN[i]->setObjectName(u"optUSEYN_%1"_s.arg(i));
        useRow->addWidget(optUSEYN[i]);
    }
    useRow->addStretch(1);
    m_form.options({{optUSEYN[0], u"Y"_s}, {optUSEYN[1], u"N"_s}}, u"USEYN"_s);

    auto* edit = new QGroupBox(u"브랜드 정보"_s, this);
    auto* form = new QGridLayout(edit);
    const auto add = [form, this](int row, int pair, const QString& label, QWidget* field,
                                  int span = 1) {
        form->addWidget(new QLabel(label, this), row, pair * 2);
        form->addWidget(field, row, pair * 2 + 1, 1, span * 2 - 1);
    };
    lblCode = new QLabel(this);
    lblCode->setObjectName(u"lblCode"_s);
    txtName = textBox(u"txtName"_s);
    add(0, 0, u"브랜드코드"_s, m_form.key(lblCode, u"BRANDCD"_s).widget());
    add(0, 1, u"브랜드명"_s, m_form.text(txtName, u"BRANDNAME"_s).required().widget());
    add(0, 2, u"사용여부"_s, use);
    add(1, 0, u"브랜드전체명"_s,
        m_form.text(textBox(u"txtFullName"_s), u"BRANDFULLNAME"_s).widget());
    add(1, 1, u"담당자"_s, m_form.text(textBox(u"txtManager"_s), u"BRANDMANAGER"_s).widget());
    QLineEdit* txtTEL = textBox(u"txtTEL"_s);
    gsInputStyle(txtTEL, InputStyle::Phone);
    add(1, 2, u"전화번호"_s, m_form.text(txtTEL, u"BRANDTEL"_s).widget());
    add(2, 0, u"비고"_s, m_form.text(textBox(u"txtRemark"_s), u"REMARK"_s).widget(), 3);
    for (int c : {1, 3, 5}) {
        form->setColumnStretch(c, 1);
    }
    return edit;
}

QWidget* BAMAS170::buildSizeBand() {
    txtYYYY = textBox(u"txtYYYY"_s, 4);
    txtYYYY->setValidator(
        new QRegularExpressionValidator(QRegularExpression(u"\\d{0,4}"_s), txtYYYY));
    txtYYYY->setFixedWidth(70);
    txtYYYY->setAlignment(Qt::AlignCenter);
    connect(txtYYYY, &QLineEdit::returnPressed, this, &BAMAS170::fSizeTab_View);
    auto* yearRow = new QHBoxLayout;
    yearRow->addWidget(new QLabel(u"년도"_s, this));
    for (const auto& [name, caption, step] :
         {std::tuple{u"cmdLeft"_s, u"◀"_s, -1}, std::tuple{u"cmdRight"_s, u"▶"_s, 1}}) {
        auto* arrow = new QPushButton(caption, this);
        arrow->setObjectName(name);
        arrow->setFixedWidth(32);
        connect(arrow, &QPushButton::clicked, this, [this, step] { stepYear(step); });
        yearRow->addWidget(arrow);
        if (step < 0) {
            yearRow->addWidget(txtYYYY);
        }
    }
    yearRow->addStretch(1);

    SP2 = new Spread(this);
    SP2->setObjectName(u"SP2"_s);
    gsSpreadInit(SP2, u"굴림체"_s, 10, 18, 18, 0, 0xC0C0C0, 3, false, false);
    sizeColumns().setUp(SP2);
    // The pair stays in view, grey, while the labels scroll.
    gsSpreadFreezeCols(SP2, sizeColumns().column(u"SIZETAB"_s));

    auto* sizes = new QGroupBox(u"Size 탭"_s, this);
    auto* sizeColumn = new QVBoxLayout(sizes);
    sizeColumn->addLayout(yearRow);
    sizeColumn->addWidget(SP2, 1);
    return sizes;
}

void BAMAS170::clearFields() {
    m_form.clear();
    txtYYYY->setText(currentYear());
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
        qint64 count = 0;
        if (!gfbSqlSelectDB(sql, rs, count)) {
            return;
        }
        if (count > 0) {
            clearFields();
        }
        listColumns().fill(SP1, rs);
        setStatusNote(count > 0 ? QString::number(count) + u"건의 데이터가 조회되었습니다."_s
                                : u"조회된 데이터가 없습니다."_s);
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
    txtYYYY->setText(currentYear());
    fSizeTab_View();
}

void BAMAS170::stepYear(int delta) {
    txtYYYY->setText(QString::number(txtYYYY->text().toInt() + delta));
    fSizeTab_View();
}

void BAMAS170::fSizeTab_View() {
    // A brand gets its labels once it exists: a new one is saved first, then picked.
    if (lblCode->text().isEmpty()) {
        SP2->setMaxRows(0);
        return;
    }
    guarded(u"fSizeTab_View"_s, [this] {
        const Dialect& d = dialect();
        const QString brand = andEquals(u"BRANDCD"_s, lblCode->text());
        // The year in force: the greatest year with labels not above the one asked for.
        const QString yearInForce =
            u"(SELECT ISNULL(MAX(YYYY), YEAR(GETDATE())) FROM C_BRANDSIZE "_s + d.nolock() +
            whereCompany() + brand + u" AND YYYY    <= "_s + quoted(txtYYYY->text()) + u")"_s;
        QStringList empty, stored, maxima;
        for (int n = 1; n <= 24; ++n) {
            empty << u"'' "_s + labelColumn(n);
            stored << u"BS."_s + labelColumn(n);
            maxima << u"MAX(%1) %1"_s.arg(labelColumn(n));
        }
        const QString sql =
            u" SELECT TEENSCOPE, GT27CD, SIZETAB, "_s + maxima.join(u", "_s) +
            u", MAX(DISP_SEQ) DISP_SEQ "_s + u"   FROM ( "_s +
            u"         SELECT GT27.GRP_NAM TEENSCOPE, GT27.S_GRP_COD GT27CD, GT26.S_GRP_COD SIZETAB, "_s +
            empty.join(u", "_s) + u", GT26.DISP_SEQ DISP_SEQ "_s +
            u"           FROM C_GONGTONG GT26"_s + d.nolock() + u", C_GONGTONG GT27"_s +
            d.nolock() + u"          WHERE GT26.L_GRP_COD = '26' AND GT27.L_GRP_COD = '27' "_s +
            u"         Union All "_s +
            u"         SELECT GT27.GRP_NAM, BS.TEENSCOPE, BS.SIZETAB, "_s + stored.join(u", "_s) +
            u", 0 "_s + u"           FROM C_BRANDSIZE BS"_s + d.nolock() +
            u"           LEFT OUTER JOIN C_GONGTONG GT27"_s + d.nolock() +
            u" ON GT27.L_GRP_COD = '27' AND GT27.S_GRP_COD = BS.TEENSCOPE "_s +
            u"          WHERE BS.COMPANY = "_s + quoted(session().gsCompany) +
            u"            AND BS.BRANDCD = "_s + quoted(lblCode->text()) +
            u"            AND BS.YYYY = "_s + yearInForce + u"        ) A "_s +
            u"  GROUP BY TEENSCOPE, GT27CD, SIZETAB "_s + u"  ORDER BY TEENSCOPE, DISP_SEQ "_s;
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
                          u"   AND YYYY    = "_s + quoted(txtYYYY->text());
    if (!gfbSqlExecuteDB(u" DELETE FROM C_BRANDSIZE "_s + where)) {
        return false;
    }
    const GridColumns& columns = sizeColumns();
    for (int row = 1; row <= SP2->maxRows(); ++row) {
        Assignments values{{u"COMPANY"_s, quoted(session().gsCompany)},
                           {u"BRANDCD"_s, quoted(lblCode->text())},
                           {u"YYYY"_s, quoted(txtYYYY->text())},
                           {u"TEENSCOPE"_s, quoted(columns.value(SP2, row, u"GT27CD"_s).trimmed())},
                           {u"SIZETAB"_s, quoted(columns.value(SP2, row, u"SIZETAB"_s).trimmed())}};
        for (int n = 1; n <= 24; ++n) {
            values.append(
                {labelColumn(n), quoted(columns.value(SP2, row, labelColumn(n)).trimmed())});
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
    if (!lblCode->text().isEmpty() && txtYYYY->text().trimmed().size() != 4) {
        gfsMsgBox(u"사이즈 탭의 년도(4자리)를 입력해 주십시오."_s);
        txtYYYY->setFocus();
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
            clearFields();
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
    gsExcelExport(u"브랜드 관리"_s, listColumns().count(), SP1);
}
