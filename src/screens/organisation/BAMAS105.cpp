#include "screens/organisation/BAMAS105.h"

#include "data/dbroutines.h"
#include "data/dialect.h"
#include "data/messages.h"
#include "data/session.h"
#include "data/sqlvalue.h"
#include "grid/excelexport.h"
#include "grid/inputhelpers.h"
#include "grid/spreadroutines.h"
#include "shell/codecontrols.h"
#include "shell/control04.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

namespace {

QString company() {
    return quoted(session().gsCompany);
}

} // namespace

BAMAS105::BAMAS105() : Screen(QStringLiteral("BAMAS105"), QStringLiteral("매장코드 관리")) {}

void BAMAS105::sSelectQuery() {
    guarded(QStringLiteral("sSelectQuery"), [this] {
        const QString nolock = dialect().nolock();
        QStringList sets;
        for (int i = 0; i < 10; ++i) {
            sets << QStringLiteral("CS.") + setColumn(i);
        }
        QString sql =
            QStringLiteral(" SELECT CS.STORECD, GT.GRP_NAM, CB.BRANDNAME, CS.STORENAME, "
                           "CS.STORENO, CS.STOREFULLNAME, ") +
            QStringLiteral("        CS.STORECEO, CS.STORETEL, CS.STOREADDRES, CS.BANKNAME, "
                           "CS.ACCNO, CS.DEPOSITOR, ") +
            QStringLiteral(
                "        CS.USEYN, CS.REMARK, CS.BRANDCD, CS.VANCD, CS.VANSTRCD, CS.CASHBOX, ") +
            sets.join(QStringLiteral(", ")) +
            QStringLiteral(", CS.PRTPORT, CS.PRTTYPE, CS.PRTSPEED, CS.CURRYYYY ") +
            QStringLiteral("   FROM C_STORE CS ") + nolock +
            QStringLiteral("        LEFT OUTER JOIN C_BRAND CB") + nolock +
            QStringLiteral(" ON CS.COMPANY = CB.COMPANY AND CS.BRANDCD = CB.BRANDCD, ") +
            QStringLiteral("        C_GONGTONG GT ") + nolock +
            QStringLiteral("  WHERE CS.COMPANY = ") + company() +
            QStringLiteral("    AND GT.L_GRP_COD = '03'  ") +
            QStringLiteral("    AND STOREGB = GT.S_GRP_COD ");
        if (cboGT03->currentIndex() > 0) {
            sql += QStringLiteral("      AND STOREGB = ") + quoted(gfComboCode(cboGT03, m_gt03)) +
                   QLatin1Char(' ');
        }
        if (!txtName->text().isEmpty()) {
            sql += QStringLiteral("      AND STORENAME LIKE ") +
                   quoted(QLatin1Char('%') + txtName->text() + QLatin1Char('%')) + QLatin1Char(' ');
        }
        sql += QStringLiteral("  ORDER BY CS.USEYN DESC, STORECD ");
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
            for (int col = ColCode; col <= ColYear; ++col) {
                QString text = rs.value(col - 1).trimmed();
                if (col == ColUse) {
                    text = text == QStringLiteral("Y") ? QStringLiteral("개점")
                                                       : QStringLiteral("휴점");
                }
                gsSpreadSetText(SP1, row, col, text);
            }
        }
        SP1->setRedraw(true);
        setStatusNote(count > 0 ? QString() : QStringLiteral("조회된 데이터가 없습니다."));
    });
}

void BAMAS105::SP1_Click(int row) {
    if (row < 1 || row > SP1->dataRowCnt()) {
        return;
    }
    const auto cell = [this, row](int col) { return gfSpreadText(SP1, row, col); };
    lblCode->setText(cell(ColCode));
    gfComboFindName(cboGT03, m_gt03, cell(ColKind));
    lblBrand->setText(cell(ColBrand));
    m_brandCode = cell(ColBrandCode);
    txtName->setText(cell(ColName));
    txtNO->setText(cell(ColNo));
    txtFullName->setText(cell(ColFullName));
    txtCEOName->setText(cell(ColCeo));
    txtTEL->setText(cell(ColTel));
    txtAddres->setText(cell(ColAddress));
    txtBankName->setText(cell(ColBank));
    txtAccNo->setText(cell(ColAccNo));
    txtDepositor->setText(cell(ColDepositor));
    optUSEYN[cell(ColUse) == QStringLiteral("개점") ? 0 : 1]->setChecked(true);
    txtRemark->setText(cell(ColRemark));
    gfComboFindCode(cboGT20, m_gt20, cell(ColVan));
    txtVanSTRCD->setText(cell(ColVanStore));
    optCBUSEYN[cell(ColCashBox) == QStringLiteral("Y") ? 0 : 1]->setChecked(true);
    for (int i = 0; i < 10; ++i) {
        cboSet[i]->setCurrentIndex(qBound(0, cell(ColSet01 + i).toInt(), 1));
    }
    txtPortNo->setText(cell(ColPortNo));
    cboPort->setCurrentIndex(qMax(0, cboPort->findText(cell(ColPortType))));
    txtSpeed->setText(cell(ColPortSpeed));
    // A base year outside the offered span is added, so that saving does not move it.
    const QString year = cell(ColYear);
    if (!year.isEmpty() && cboYYYY->findText(year) < 0) {
        cboYYYY->addItem(year);
    }
    cboYYYY->setCurrentText(year);
}

void BAMAS105::cmdSerch_Click() {
    if (showControl04(QStringLiteral("브랜드"), this)) {
        setBrand(session().gsPopupCode, session().gsPopupName);
    }
}

void BAMAS105::setBrand(const QString& code, const QString& name) {
    m_brandCode = code;
    lblBrand->setText(name);
}

QList<BAMAS105::ColumnValue> BAMAS105::editedColumns() const {
    const auto yesNo = [](const QRadioButton* yes) {
        return quoted(yes->isChecked() ? QStringLiteral("Y") : QStringLiteral("N"));
    };
    QList<ColumnValue> columns = {
        {QStringLiteral("STOREGB"), quoted(gfComboCode(cboGT03, m_gt03))},
        {QStringLiteral("BRANDCD"), quoted(m_brandCode)},
        {QStringLiteral("STORENAME"), quoted(txtName->text())},
        {QStringLiteral("STOREFULLNAME"), quoted(txtFullName->text())},
        {QStringLiteral("STORECEO"), quoted(txtCEOName->text())},
        {QStringLiteral("STORETEL"), quoted(txtTEL->text())},
        {QStringLiteral("STORENO"), quoted(txtNO->text())},
        {QStringLiteral("STOREADDRES"), quoted(txtAddres->text())},
        {QStringLiteral("USEYN"), yesNo(optUSEYN[0])},
        {QStringLiteral("BANKNAME"), quoted(txtBankName->text())},
        {QStringLiteral("DEPOSITOR"), quoted(txtDepositor->text())},
        {QStringLiteral("ACCNO"), quoted(txtAccNo->text())},
        {QStringLiteral("REMARK"), quoted(txtRemark->text())},
        {QStringLiteral("VANCD"), quoted(gfComboCode(cboGT20, m_gt20))},
        {QStringLiteral("VANSTRCD"), quoted(txtVanSTRCD->text())},
        {QStringLiteral("CASHBOX"), yesNo(optCBUSEYN[0])},
        {QStringLiteral("PRTPORT"), numeric(txtPortNo->text())},
        {QStringLiteral("PRTTYPE"), quoted(cboPort->currentText())},
        {QStringLiteral("PRTSPEED"), quoted(txtSpeed->text())},
        {QStringLiteral("CURRYYYY"), quoted(cboYYYY->currentText())},
    };
    // A setting holds its combo's list index: "0" for the first choice.
    for (int i = 0; i < 10; ++i) {
        columns.append({setColumn(i), quoted(QString::number(cboSet[i]->currentIndex()))});
    }
    return columns;
}

QString BAMAS105::insertStatement() const {
    // The highest code plus one in two digits; the hundredth store does not fit and its null key
    // ends in the trap.
    const Dialect& d = dialect();
    const QString key = QStringLiteral("(SELECT RTRIM(") +
                        d.cat({QStringLiteral("REPLICATE('0', 2 - LEN(ISNULL(MAX(STORECD),0)+1))"),
                               QStringLiteral(" CAST(ISNULL(MAX(STORECD),0)+1 AS CHAR)")}) +
                        QStringLiteral(") FROM C_STORE ") + d.nolock() +
                        QStringLiteral(" WHERE COMPANY = ") + company() + QStringLiteral(")");
    const QString user = quoted(session().gsUserId);
    QList<ColumnValue> columns = {{QStringLiteral("COMPANY"), company()},
                                  {QStringLiteral("STORECD"), key}};
    columns += editedColumns();
    columns += {{QStringLiteral("POSID"), QStringLiteral("' '")},
                {QStringLiteral("REGDT"), QStringLiteral("GETDATE()")},
                {QStringLiteral("REGUSER"), user},
                {QStringLiteral("UPDDT"), QStringLiteral("GETDATE()")},
                {QStringLiteral("UPDUSER"), user}};
    QStringList names, values;
    for (const auto& [name, value] : columns) {
        names << name;
        values << value;
    }
    return QStringLiteral(" INSERT INTO C_STORE (") + names.join(QStringLiteral(", ")) +
           QStringLiteral(") ") + QStringLiteral(" VALUES (") + values.join(QStringLiteral(", ")) +
           QStringLiteral(")");
}

QString BAMAS105::updateStatement() const {
    QStringList sets;
    for (const auto& [name, value] : editedColumns()) {
        sets << name + QStringLiteral(" = ") + value;
    }
    sets << QStringLiteral("UPDDT = GETDATE()")
         << QStringLiteral("UPDUSER = ") + quoted(session().gsUserId);
    // The receipt notice and the base year are the company's, although edited on one store.
    return QStringLiteral(" UPDATE C_STORE SET ") + sets.join(QStringLiteral(", ")) +
           QStringLiteral("  WHERE COMPANY = ") + company() + QStringLiteral("    AND STORECD = ") +
           quoted(lblCode->text()) + QStringLiteral(";") + QStringLiteral("UPDATE  C_STORE SET ") +
           QStringLiteral(" REMARK = ") + quoted(txtRemark->text()) +
           QStringLiteral("  WHERE COMPANY = ") + company() + QStringLiteral(";") +
           QStringLiteral("UPDATE  C_STORE SET ") + QStringLiteral(" CURRYYYY = ") +
           quoted(cboYYYY->currentText()) + QStringLiteral("  WHERE COMPANY = ") + company();
}

void BAMAS105::sSaveQuery() {
    for (QLineEdit* box : {txtName, txtFullName, txtAddres, txtCEOName, txtTEL}) {
        if (box->text().trimmed().isEmpty()) {
            gfsMessage(22);
            return;
        }
    }
    if (cboGT03->currentIndex() < 1 || lblBrand->text().trimmed().isEmpty()) {
        gfsMessage(22);
        return;
    }
    for (QLineEdit* box : {txtName, txtFullName, txtAddres, txtCEOName, txtTEL, txtBankName,
                           txtDepositor, txtAccNo, txtRemark}) {
        gsTextCut(box);
    }
    guarded(QStringLiteral("sSaveQuery"), [this] {
        const bool isNew = lblCode->text().isEmpty();
        if (isNew && gfTableCount(QStringLiteral("C_STORE"), QStringLiteral("  AND STORENAME = ") +
                                                                 quoted(txtName->text())) >= 1) {
            gfsMessage(24);
            return;
        }
        if (!gfbSqlExecuteDB(isNew ? insertStatement() : updateStatement())) {
            return;
        }
        clearFields();
        sSelectQuery();
    });
}

void BAMAS105::cmdDelete_Click() {
    deleteRow(lblCode->text(), 95,
              QStringLiteral(" DELETE FROM C_STORE ") + QStringLiteral("  WHERE COMPANY = ") +
                  company() + QStringLiteral("    AND STORECD = ") + quoted(lblCode->text()));
}

void BAMAS105::m_Excel() {
    gsExcelExport(QStringLiteral("매장 등록 현황"), ColYear, SP1);
}
