#include "screens/organisation/BAMAS170.h"

#include "data/database.h"
#include "data/dbroutines.h"
#include "data/dialect.h"
#include "data/messages.h"
#include "data/session.h"
#include "data/sqlvalue.h"
#include "grid/excelexport.h"
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

namespace {

// SP1: the list of brands.
enum ListColumn { ListCode = 1, ListName, ListUse, ListColumns = ListUse };
// SP2: one row per pair of teen range and size table, then the 24 labels.
enum SizeColumn {
    SizeRangeName = 1,
    SizeRange,
    SizeTable,
    SizeFirstLabel,
    SizeColumns = SizeFirstLabel + 23
};

QString labelColumn(int position) {
    return QStringLiteral("C%1").arg(position, 2, 10, QLatin1Char('0'));
}

QString company() {
    return quoted(session().gsCompany);
}

} // namespace

BAMAS170::BAMAS170() : Screen(QStringLiteral("BAMAS170"), QStringLiteral("브랜드 관리")) {}

void BAMAS170::setupScreen() {
    SP1 = new Spread(this);
    SP1->setObjectName(QStringLiteral("SP1"));
    gsSpreadInit(SP1, QStringLiteral("굴림체"), 10, 18, 18, 0, 0xC0C0C0, 2, true, true);
    gsSpreadColumn(SP1, ListCode, QStringLiteral("코드"), 5, 6, 0, QStringLiteral("M"));
    gsSpreadColumn(SP1, ListName, QStringLiteral("브랜드"), 5, 18, 0, QStringLiteral("L"));
    gsSpreadColumn(SP1, ListUse, QStringLiteral("사용"), 5, 6, 0, QStringLiteral("M"));
    connect(SP1, &Spread::clicked, this, [this](int row, int) { SP1_Click(row); });

    lblCode = new QLabel(this);
    lblCode->setObjectName(QStringLiteral("lblCode"));
    txtName = textBox(QStringLiteral("txtName"), 20);
    markRequired(txtName);
    txtFullName = textBox(QStringLiteral("txtFullName"), 50);
    txtManager = textBox(QStringLiteral("txtManager"), 20);
    txtTEL = textBox(QStringLiteral("txtTEL"), 20);
    gsInputStyle(txtTEL, InputStyle::Phone);
    txtRemark = textBox(QStringLiteral("txtRemark"), 200);
    auto* useRow = new QHBoxLayout;
    for (int i = 0; i < 2; ++i) {
        optUSEYN[i] =
            new QRadioButton(i == 0 ? QStringLiteral("사용") : QStringLiteral("미사용"), this);
        optUSEYN[i]->setObjectName(QStringLiteral("optUSEYN_%1").arg(i));
        useRow->addWidget(optUSEYN[i]);
    }
    useRow->addStretch(1);

    auto* edit = new QGroupBox(QStringLiteral("브랜드 정보"), this);
    auto* form = new QGridLayout(edit);
    const auto add = [form, this](int row, int pair, const QString& label, QWidget* field,
                                  int span = 1) {
        form->addWidget(new QLabel(label, this), row, pair * 2);
        form->addWidget(field, row, pair * 2 + 1, 1, span * 2 - 1);
    };
    add(0, 0, QStringLiteral("브랜드코드"), lblCode);
    add(0, 1, QStringLiteral("브랜드명"), txtName);
    auto* use = new QWidget(this);
    use->setLayout(useRow);
    useRow->setContentsMargins(0, 0, 0, 0);
    add(0, 2, QStringLiteral("사용여부"), use);
    add(1, 0, QStringLiteral("브랜드전체명"), txtFullName);
    add(1, 1, QStringLiteral("담당자"), txtManager);
    add(1, 2, QStringLiteral("전화번호"), txtTEL);
    add(2, 0, QStringLiteral("비고"), txtRemark, 3);
    for (int c : {1, 3, 5}) {
        form->setColumnStretch(c, 1);
    }

    txtYYYY = textBox(QStringLiteral("txtYYYY"), 4);
    txtYYYY->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral("\\d{0,4}")), txtYYYY));
    txtYYYY->setFixedWidth(70);
    txtYYYY->setAlignment(Qt::AlignCenter);
    auto* cmdLeft = new QPushButton(QStringLiteral("◀"), this);
    cmdLeft->setObjectName(QStringLiteral("cmdLeft"));
    auto* cmdRight = new QPushButton(QStringLiteral("▶"), this);
    cmdRight->setObjectName(QStringLiteral("cmdRight"));
    cmdLeft->setFixedWidth(32);
    cmdRight->setFixedWidth(32);
    connect(cmdLeft, &QPushButton::clicked, this, [this] { stepYear(-1); });
    connect(cmdRight, &QPushButton::clicked, this, [this] { stepYear(1); });
    connect(txtYYYY, &QLineEdit::returnPressed, this, &BAMAS170::fSizeTab_View);

    SP2 = new Spread(this);
    SP2->setObjectName(QStringLiteral("SP2"));
    gsSpreadInit(SP2, QStringLiteral("굴림체"), 10, 18, 18, 0, 0xC0C0C0, 3, false, false);
    gsSpreadColumn(SP2, SizeRangeName, QStringLiteral("구분"), 5, 7, 0, QStringLiteral("M"));
    gsSpreadColumn(SP2, SizeRange, QStringLiteral("CD"), 5, 3, 0, QStringLiteral("M"));
    gsSpreadColumn(SP2, SizeTable, QStringLiteral("탭"), 5, 3, 0, QStringLiteral("M"));
    for (int n = 1; n <= 24; ++n) {
        gsSpreadColumn(SP2, SizeFirstLabel + n - 1, QString::number(n), 1, 4, 10,
                       QStringLiteral("M"));
    }

    // The pair stays in view, grey, while the labels scroll.
    gsSpreadFreezeCols(SP2, SizeTable);

    auto* sizes = new QGroupBox(QStringLiteral("Size 탭"), this);
    auto* sizeColumn = new QVBoxLayout(sizes);
    auto* yearRow = new QHBoxLayout;
    yearRow->addWidget(new QLabel(QStringLiteral("년도"), this));
    yearRow->addWidget(cmdLeft);
    yearRow->addWidget(txtYYYY);
    yearRow->addWidget(cmdRight);
    yearRow->addStretch(1);
    sizeColumn->addLayout(yearRow);
    sizeColumn->addWidget(SP2, 1);

    auto* list = new QGroupBox(QStringLiteral("조회리스트"), this);
    auto* listColumn = new QVBoxLayout(list);
    listColumn->addWidget(SP1);
    list->setFixedWidth(300);

    // The edit band across the top; below it the list keeps its width and the size tab takes
    // the rest.
    auto* lower = new QHBoxLayout;
    lower->addWidget(list);
    lower->addWidget(sizes, 1);
    contentLayout()->addWidget(edit);
    contentLayout()->addLayout(lower, 1);
    clearFields();
}

void BAMAS170::clearFields() {
    lblCode->clear();
    txtName->clear();
    txtFullName->clear();
    txtManager->clear();
    txtTEL->clear();
    txtRemark->clear();
    optUSEYN[0]->setChecked(true);
    txtYYYY->setText(QDate::currentDate().toString(QStringLiteral("yyyy")));
    SP2->setMaxRows(0);
}

void BAMAS170::sSelectQuery() {
    guarded(QStringLiteral("sSelectQuery"), [this] {
        QString sql = QStringLiteral(" SELECT BRANDCD,  BRANDNAME, USEYN  ") +
                      QStringLiteral("   FROM C_BRAND ") + dialect().nolock() +
                      QStringLiteral("  WHERE COMPANY = ") + company();
        if (!txtName->text().trimmed().isEmpty()) {
            QString pattern = txtName->text().trimmed();
            sql += QStringLiteral("      AND BRANDNAME LIKE ") +
                   quoted(QLatin1Char('%') + pattern + QLatin1Char('%')) + QLatin1Char(' ');
        }
        sql += QStringLiteral("  ORDER BY USEYN DESC, BRANDCD");
        RecordSet rs;
        qint64 count = 0;
        if (!gfbSqlSelectDB(sql, rs, count)) {
            return;
        }
        if (count > 0) {
            clearFields();
        }
        SP1->setRedraw(false);
        SP1->setMaxRows(0);
        for (rs.moveFirst(); !rs.eof(); rs.moveNext()) {
            const int row = SP1->maxRows() + 1;
            SP1->setMaxRows(row);
            gsSpreadSetText(SP1, row, ListCode, rs.field(QStringLiteral("BRANDCD")).trimmed());
            gsSpreadSetText(SP1, row, ListName, rs.field(QStringLiteral("BRANDNAME")).trimmed());
            gsSpreadSetText(SP1, row, ListUse,
                            rs.field(QStringLiteral("USEYN")).trimmed() == QStringLiteral("Y")
                                ? QStringLiteral("사용")
                                : QStringLiteral("보류"));
        }
        SP1->setRedraw(true);
        setStatusNote(count > 0
                          ? QString::number(count) + QStringLiteral("건의 데이터가 조회되었습니다.")
                          : QStringLiteral("조회된 데이터가 없습니다."));
    });
}

void BAMAS170::SP1_Click(int row) {
    if (row < 1 || row > SP1->dataRowCnt()) {
        return;
    }
    guarded(QStringLiteral("SP1_Click"), [this, row] {
        const QString code = gfSpreadText(SP1, row, ListCode);
        RecordSet rs;
        if (!gfbSqlSelectDB(
                QStringLiteral(
                    " SELECT BRANDNAME, BRANDFULLNAME, BRANDMANAGER, BRANDTEL, REMARK ") +
                    QStringLiteral("   FROM C_BRAND ") + dialect().nolock() +
                    QStringLiteral("  WHERE COMPANY = ") + company() +
                    QStringLiteral("    AND BRANDCD = ") + quoted(code),
                rs) ||
            rs.eof()) {
            return;
        }
        lblCode->setText(code);
        txtName->setText(rs.field(QStringLiteral("BRANDNAME")));
        txtFullName->setText(rs.field(QStringLiteral("BRANDFULLNAME")));
        txtManager->setText(rs.field(QStringLiteral("BRANDMANAGER")));
        txtTEL->setText(rs.field(QStringLiteral("BRANDTEL")));
        txtRemark->setText(rs.field(QStringLiteral("REMARK")));
        optUSEYN[gfSpreadText(SP1, row, ListUse) == QStringLiteral("사용") ? 0 : 1]->setChecked(
            true);
        txtYYYY->setText(QDate::currentDate().toString(QStringLiteral("yyyy")));
    });
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
    guarded(QStringLiteral("fSizeTab_View"), [this] {
        const Dialect& d = dialect();
        // The year in force: the greatest year with labels not above the one asked for.
        const QString yearInForce =
            QStringLiteral("(SELECT ISNULL(MAX(YYYY), YEAR(GETDATE())) FROM C_BRANDSIZE ") +
            d.nolock() + QStringLiteral(" WHERE COMPANY = ") + company() +
            QStringLiteral(" AND BRANDCD = ") + quoted(lblCode->text()) +
            QStringLiteral(" AND YYYY    <= ") + quoted(txtYYYY->text()) + QStringLiteral(")");
        QStringList empty, stored, maxima;
        for (int n = 1; n <= 24; ++n) {
            empty << QStringLiteral("'' ") + labelColumn(n);
            stored << QStringLiteral("BS.") + labelColumn(n);
            maxima << QStringLiteral("MAX(%1) %1").arg(labelColumn(n));
        }
        const QString sql =
            QStringLiteral(" SELECT TEENSCOPE, GT27CD, SIZETAB, ") +
            maxima.join(QStringLiteral(", ")) + QStringLiteral(", MAX(DISP_SEQ) DISP_SEQ ") +
            QStringLiteral("   FROM ( ") +
            QStringLiteral("         SELECT GT27.GRP_NAM TEENSCOPE, GT27.S_GRP_COD GT27CD, "
                           "GT26.S_GRP_COD SIZETAB, ") +
            empty.join(QStringLiteral(", ")) + QStringLiteral(", GT26.DISP_SEQ DISP_SEQ ") +
            QStringLiteral("           FROM C_GONGTONG GT26") + d.nolock() +
            QStringLiteral(", C_GONGTONG GT27") + d.nolock() +
            QStringLiteral("          WHERE GT26.L_GRP_COD = '26' AND GT27.L_GRP_COD = '27' ") +
            QStringLiteral("         Union All ") +
            QStringLiteral("         SELECT GT27.GRP_NAM, BS.TEENSCOPE, BS.SIZETAB, ") +
            stored.join(QStringLiteral(", ")) + QStringLiteral(", 0 ") +
            QStringLiteral("           FROM C_BRANDSIZE BS") + d.nolock() +
            QStringLiteral("           LEFT OUTER JOIN C_GONGTONG GT27") + d.nolock() +
            QStringLiteral(" ON GT27.L_GRP_COD = '27' AND GT27.S_GRP_COD = BS.TEENSCOPE ") +
            QStringLiteral("          WHERE BS.COMPANY = ") + company() +
            QStringLiteral("            AND BS.BRANDCD = ") + quoted(lblCode->text()) +
            QStringLiteral("            AND BS.YYYY = ") + yearInForce +
            QStringLiteral("        ) A ") +
            QStringLiteral("  GROUP BY TEENSCOPE, GT27CD, SIZETAB ") +
            QStringLiteral("  ORDER BY TEENSCOPE, DISP_SEQ ");
        RecordSet rs;
        qint64 count = 0;
        if (!gfbSqlSelectDB(sql, rs, count)) {
            return;
        }
        SP2->setRedraw(false);
        SP2->setMaxRows(0);
        for (rs.moveFirst(); !rs.eof(); rs.moveNext()) {
            const int row = SP2->maxRows() + 1;
            SP2->setMaxRows(row);
            for (int col = SizeRangeName; col <= SizeColumns; ++col) {
                gsSpreadSetText(SP2, row, col, rs.value(col - 1).trimmed(), 0, QString(),
                                QStringLiteral("N"));
            }
        }
        SP2->setRedraw(true);
        setStatusNote(QString::number(count) + QStringLiteral("건의 데이터가 조회되었습니다."));
    });
}

QString BAMAS170::brandKeyExpression() const {
    // The row count plus one, not the highest code plus one: after a delete the next brand may
    // collide with an existing code, and the hundredth does not fit two characters (REPLICATE
    // with a negative count gives NULL). Both end in the trap, as they always have.
    return QStringLiteral("(SELECT RTRIM(") +
           dialect().cat({QStringLiteral("REPLICATE('0', 2 - LEN(COUNT(*)+1))"),
                          QStringLiteral("CAST(COUNT(*)+1 AS CHAR)")}) +
           QStringLiteral(") FROM C_BRAND ") + dialect().nolock() +
           QStringLiteral(" WHERE COMPANY = ") + company() + QStringLiteral(")");
}

QString BAMAS170::brandStatement() const {
    const QString use =
        quoted(optUSEYN[0]->isChecked() ? QStringLiteral("Y") : QStringLiteral("N"));
    const QString user = quoted(session().gsUserId);
    if (lblCode->text().isEmpty()) {
        return QStringLiteral(" INSERT INTO C_BRAND (COMPANY, BRANDCD, BRANDNAME, BRANDFULLNAME, "
                              "BRANDMANAGER, BRANDTEL, USEYN, REMARK, REGDT, REGUSER, UPDDT, "
                              "UPDUSER) ") +
               QStringLiteral(" VALUES (") + company() + QStringLiteral(", ") +
               brandKeyExpression() + QStringLiteral(", ") + quoted(txtName->text()) +
               QStringLiteral(", ") + quoted(txtFullName->text()) + QStringLiteral(", ") +
               quoted(txtManager->text()) + QStringLiteral(", ") + quoted(txtTEL->text()) +
               QStringLiteral(", ") + use + QStringLiteral(", ") + quoted(txtRemark->text()) +
               QStringLiteral(", GETDATE(), ") + user + QStringLiteral(", GETDATE(), ") + user +
               QStringLiteral(")");
    }
    return QStringLiteral(" UPDATE C_BRAND SET BRANDNAME = ") + quoted(txtName->text()) +
           QStringLiteral(", BRANDFULLNAME = ") + quoted(txtFullName->text()) +
           QStringLiteral(", BRANDMANAGER = ") + quoted(txtManager->text()) +
           QStringLiteral(", BRANDTEL = ") + quoted(txtTEL->text()) + QStringLiteral(", USEYN = ") +
           use + QStringLiteral(", REMARK = ") + quoted(txtRemark->text()) +
           QStringLiteral(", UPDDT = GETDATE(), UPDUSER = ") + user +
           QStringLiteral("  WHERE COMPANY = ") + company() + QStringLiteral("    AND BRANDCD = ") +
           quoted(lblCode->text());
}

bool BAMAS170::saveSizeRows() {
    // The year's rows are written anew from the grid, every pair even without labels; the
    // labels shown for an earlier year in force thus become the shown year's own copy.
    const QString brand = quoted(lblCode->text());
    const QString year = quoted(txtYYYY->text());
    if (!gfbSqlExecuteDB(QStringLiteral(" DELETE FROM C_BRANDSIZE ") +
                         QStringLiteral("  WHERE COMPANY = ") + company() +
                         QStringLiteral("    AND BRANDCD = ") + brand +
                         QStringLiteral("   AND YYYY    = ") + year)) {
        return false;
    }
    QStringList labels;
    for (int n = 1; n <= 24; ++n) {
        labels << labelColumn(n);
    }
    const QString insert = QStringLiteral(" INSERT INTO C_BRANDSIZE (COMPANY, BRANDCD, YYYY, "
                                          "TEENSCOPE, SIZETAB, ") +
                           labels.join(QStringLiteral(", ")) + QStringLiteral(") ") +
                           QStringLiteral(" VALUES (") + company() + QStringLiteral(", ") + brand +
                           QStringLiteral(", ") + year + QStringLiteral(", ");
    for (int row = 1; row <= SP2->maxRows(); ++row) {
        QStringList values;
        for (int col = SizeRange; col <= SizeColumns; ++col) {
            values << quoted(gfSpreadText(SP2, row, col).trimmed());
        }
        if (!gfbSqlExecuteDB(insert + values.join(QStringLiteral(", ")) + QStringLiteral(")"))) {
            return false;
        }
    }
    return true;
}

void BAMAS170::sSaveQuery() {
    if (txtName->text().trimmed().isEmpty()) {
        gfsMessage(22);
        return;
    }
    for (QLineEdit* box : {txtName, txtFullName, txtManager, txtTEL, txtRemark, txtYYYY}) {
        gsTextCut(box);
    }
    guarded(
        QStringLiteral("sSaveQuery"),
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
              QStringLiteral(" DELETE FROM C_BRAND ") + QStringLiteral("  WHERE COMPANY = ") +
                  company() + QStringLiteral("    AND BRANDCD = ") + quoted(lblCode->text()));
}

void BAMAS170::m_Excel() {
    gsExcelExport(QStringLiteral("브랜드 관리"), ListColumns, SP1);
}
