#include "screens/organisation/BAMAS105_NOTICE.h"

#include "data/database.h"
#include "data/dbroutines.h"
#include "data/dialect.h"
#include "data/messages.h"
#include "data/session.h"
#include "data/sqlbuild.h"
#include "data/sqlvalue.h"
#include "grid/inputhelpers.h"
#include "shell/codecontrols.h"
#include "shell/trap.h"

#include <QComboBox>
#include <QDateEdit>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

const QString kDateFormat = QStringLiteral("yyyy-MM-dd");

QString company() {
    return quoted(session().gsCompany);
}

QDateEdit* dateField(QWidget* parent, const QString& name) {
    auto* field = new QDateEdit(QDate::currentDate(), parent);
    field->setObjectName(name);
    field->setDisplayFormat(kDateFormat);
    field->setCalendarPopup(true);
    return field;
}

} // namespace

BAMAS105_NOTICE::BAMAS105_NOTICE(QWidget* parent)
    : Popup(parent), cboSchool(new QComboBox(this)),
      dtpStart(dateField(this, QStringLiteral("dtpStart"))),
      dtpEnd(dateField(this, QStringLiteral("dtpEnd"))), txtNotice(new QLineEdit(this)) {
    setObjectName(QStringLiteral("BAMAS105_NOTICE"));
    setWindowTitle(QStringLiteral("학교 임시 공지사항 등록"));
    resize(540, 170);
    cboSchool->setObjectName(QStringLiteral("cboSchool"));
    txtNotice->setObjectName(QStringLiteral("txtNotice"));
    gsByteLimit(txtNotice, 500);

    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("학교"), cboSchool);
    auto* dates = new QHBoxLayout;
    dates->addWidget(dtpStart);
    dates->addSpacing(16);
    dates->addWidget(new QLabel(QStringLiteral("공지종료"), this));
    dates->addWidget(dtpEnd);
    dates->addStretch(1);
    form->addRow(QStringLiteral("공지개시"), dates);
    form->addRow(QStringLiteral("공지사항"), txtNotice);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    const auto button = [this, buttons](const QString& name, const QString& caption) {
        QPushButton* b = Popup::button(name, caption);
        buttons->addWidget(b);
        return b;
    };
    connect(button(QStringLiteral("cmdSerch"), QStringLiteral("조회")), &QPushButton::clicked, this,
            &BAMAS105_NOTICE::sSelectQuery);
    connect(button(QStringLiteral("cmdNew"), QStringLiteral("신규")), &QPushButton::clicked, this,
            &BAMAS105_NOTICE::cmdNew_Click);
    connect(button(QStringLiteral("cmdSave"), QStringLiteral("저장")), &QPushButton::clicked, this,
            &BAMAS105_NOTICE::cmdSave_Click);
    connect(button(QStringLiteral("cmdExit"), QStringLiteral("닫기")), &QPushButton::clicked, this,
            &QDialog::reject);
    auto* column = new QVBoxLayout(this);
    column->addLayout(form);
    column->addStretch(1);
    column->addLayout(buttons);

    gsReadCode(cboSchool, m_schools, QStringLiteral("SCHOOL"));
    connect(cboSchool, &QComboBox::activated, this, [this] { cboSchool_Click(); });
    sSelectQuery();
}

QString BAMAS105_NOTICE::schoolCode() const {
    return gfComboCode(cboSchool, m_schools);
}

void BAMAS105_NOTICE::showNotice(const QString& sql, const QString& place) {
    gfTrap(place, [&] {
        RecordSet rs;
        if (!gfbSqlSelectDB(sql, rs)) {
            return;
        }
        // No notice: nothing of another school's may stay to be saved as this one's.
        if (rs.eof()) {
            txtNotice->clear();
            return;
        }
        dtpStart->setDate(
            QDate::fromString(rs.field(QStringLiteral("STARTDT")).trimmed(), kDateFormat));
        dtpEnd->setDate(
            QDate::fromString(rs.field(QStringLiteral("ENDDT")).trimmed(), kDateFormat));
        txtNotice->setText(rs.field(QStringLiteral("NOTICE")));
    });
}

void BAMAS105_NOTICE::cboSchool_Click() {
    // The school's latest notice, whatever its period. A school without one starts from today's
    // dates, not from the period of the school shown before.
    dtpStart->setDate(QDate::currentDate());
    dtpEnd->setDate(QDate::currentDate());
    const QString school = quoted(schoolCode());
    showNotice(
        QStringLiteral(" SELECT STARTDT, ENDDT, NOTICE ") +
            QStringLiteral("   FROM C_SCHOOLNOTICE ") + QStringLiteral("  WHERE COMPANY = ") +
            company() + QStringLiteral("    AND SCHOOLCD = ") + school +
            QStringLiteral(
                "    AND NOTICESEQ = (SELECT MAX(NOTICESEQ) FROM C_SCHOOLNOTICE WHERE COMPANY = ") +
            company() + QStringLiteral(" AND SCHOOLCD = ") + school + QStringLiteral(")"),
        QStringLiteral("BAMAS105_NOTICE : cboSchool_Click"));
}

void BAMAS105_NOTICE::sSelectQuery() {
    // The notice in force over the dates in the fields.
    const QString school = quoted(schoolCode());
    const QString start = quoted(dtpStart->date().toString(kDateFormat));
    const QString end = quoted(dtpEnd->date().toString(kDateFormat));
    showNotice(
        QStringLiteral(" SELECT STARTDT, ENDDT, NOTICE ") +
            QStringLiteral("   FROM C_SCHOOLNOTICE ") + QStringLiteral("  WHERE COMPANY = ") +
            company() + QStringLiteral("    AND SCHOOLCD = ") + school +
            QStringLiteral(
                "    AND NOTICESEQ = (SELECT MAX(NOTICESEQ) FROM C_SCHOOLNOTICE WHERE COMPANY = ") +
            company() + QStringLiteral(" AND SCHOOLCD = ") + school +
            QStringLiteral(" AND STARTDT <= ") + start + QStringLiteral(" AND ENDDT >= ") + end +
            QStringLiteral(")"),
        QStringLiteral("BAMAS105_NOTICE : sSelectQuery"));
}

void BAMAS105_NOTICE::cmdNew_Click() {
    txtNotice->clear();
    dtpStart->setDate(QDate::currentDate());
    dtpEnd->setDate(QDate::currentDate());
}

void BAMAS105_NOTICE::cmdSave_Click() {
    if (cboSchool->currentIndex() < 1) {
        gfsMessage(22);
        return;
    }
    gsTextCut(txtNotice);
    const QString school = quoted(schoolCode());
    const QString start = quoted(dtpStart->date().toString(kDateFormat));
    const QString end = quoted(dtpEnd->date().toString(kDateFormat));
    gfTrap(
        objectName() + QStringLiteral(" : sSaveQuery"),
        [&] {
            Transaction tx;
            RecordSet rs;
            if (!tx.ok() ||
                !gfbSqlSelectDB(QStringLiteral(" SELECT NOTICESEQ FROM C_SCHOOLNOTICE ") +
                                    QStringLiteral("  WHERE COMPANY = ") + company() +
                                    QStringLiteral("    AND SCHOOLCD = ") + school +
                                    QStringLiteral("    AND STARTDT <= ") + start +
                                    QStringLiteral("    AND ENDDT >= ") + end +
                                    QStringLiteral("  ORDER BY NOTICESEQ DESC"),
                                rs)) {
                return;
            }
            const Assignments period{{QStringLiteral("STARTDT"), start},
                                     {QStringLiteral("ENDDT"), end},
                                     {QStringLiteral("NOTICE"), quoted(txtNotice->text())}};
            const QString where =
                whereCompany() + andEquals(QStringLiteral("SCHOOLCD"), schoolCode());
            // Found: the notice in force is rewritten; else the school's next number, three digits.
            const QString sql =
                !rs.eof() ? sqlUpdate(QStringLiteral("C_SCHOOLNOTICE"), period,
                                      where + andEquals(QStringLiteral("NOTICESEQ"),
                                                        rs.field(QStringLiteral("NOTICESEQ"))))
                          : sqlInsert(QStringLiteral("C_SCHOOLNOTICE"),
                                      Assignments{
                                          {QStringLiteral("COMPANY"), company()},
                                          {QStringLiteral("SCHOOLCD"), school},
                                          {QStringLiteral("NOTICESEQ"),
                                           nextCodeByMax(QStringLiteral("C_SCHOOLNOTICE"),
                                                         QStringLiteral("NOTICESEQ"), 3, where)}} +
                                          period);
            if (gfbSqlExecuteDB(sql)) {
                tx.commit();
            }
        },
        true);
}
