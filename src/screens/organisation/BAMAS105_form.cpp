// The widgets of the store screen: the list, the edit band bound to C_STORE, the settings.
#include "data/dbroutines.h"
#include "data/session.h"
#include "data/sqlvalue.h"
#include "grid/gridcolumns.h"
#include "grid/inputhelpers.h"
#include "grid/spreadroutines.h"
#include "screens/organisation/BAMAS105.h"
#include "screens/organisation/BAMAS105_NOTICE.h"
#include "shell/codecontrols.h"
#include "shell/editband.h"

#include <QComboBox>
#include <QDate>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

using namespace Qt::StringLiterals;

namespace {

// Each setting's label and its two choices.
const char* const kSettings[10][3] = {
    {"고객이름", "공개", "보안"},
    {"고객연락처", "공개", "보안"},
    {"입금계좌", "항시공개", "미수금보안"},
    {"제품년식", "표기", "은폐"},
    {"영수증", "1매", "2매"},
    {"현물수선텍", "동시출력", "사후출력"},
    {"현물택배텍", "동시출력", "사후출력"},
    {"예약키핑텍", "동시출력", "사후출력"},
    {"예약수선텍", "동시출력", "사후출력"},
    {"예약택배텍", "동시출력", "사후출력"},
};

} // namespace

void BAMAS105::setupScreen() {
    SP1 = grid(u"SP1"_s, columns(), 3, true, true);
    connect(SP1, &Spread::clicked, this, [this](int row, int) { SP1_Click(row); });
    contentLayout()->addWidget(buildEditBand());
    contentLayout()->addWidget(SP1, 1);
    gsReadCode(cboGT03, m_gt03, u"GT03"_s);
    gsReadCode(cboGT20, m_gt20, u"GT20"_s);
    const int year = QDate::currentDate().year();
    for (int y = year + 1; y >= year - 3; --y) {
        cboYYYY->addItem(QString::number(y));
    }
    m_companyYear = gfSelectValue(u" SELECT MAX(CURRYYYY) FROM C_STORE WHERE COMPANY = "_s +
                                  quoted(session().gsCompany))
                        .trimmed();
    m_form.binding(u"CURRYYYY"_s)->setValue(QString()); // the company's, for a new store
    m_form.clear();
}

QWidget* BAMAS105::buildEditBand() {
    auto* band = new EditBand(u"매장 정보"_s, this);
    const auto text = [this](const char* name, const char* column) -> FieldBinding& {
        return m_form.text(textBox(QString::fromLatin1(name)), QString::fromLatin1(column));
    };
    lblCode = new QLabel(this);
    lblCode->setObjectName(u"lblCode"_s);
    cboGT03 = comboBox(u"cboGT03"_s);
    cboGT20 = comboBox(u"cboGT20"_s);
    cboYYYY = comboBox(u"cboYYYY"_s);
    auto* cboPort = comboBox(u"cboPort"_s);
    cboPort->addItems({u"C"_s, u"T"_s});
    lblBrand = new QLabel(this);
    lblBrand->setObjectName(u"lblBrand"_s);
    lblBrand->setFrameShape(QFrame::StyledPanel);
    auto* cmdSerch = new QPushButton(u"브랜드 검색"_s, this);
    cmdSerch->setObjectName(u"cmdSerch"_s);
    connect(cmdSerch, &QPushButton::clicked, this, &BAMAS105::cmdSerch_Click);
    txtName = textBox(u"txtName"_s);
    txtRemark = textBox(u"txtRemark"_s);
    QLineEdit* txtTEL = textBox(u"txtTEL"_s);
    gsInputStyle(txtTEL, InputStyle::Phone);
    QLineEdit* txtPortNo = textBox(u"txtPortNo"_s);
    gsInputStyle(txtPortNo, InputStyle::Number);

    // The brand travels as its code; the label shows its name.
    m_form.value(
        u"BRANDCD"_s, [this] { return m_brandCode; },
        [this](const QString& code) { m_brandCode = code.trimmed(); });
    m_form
        .value(
            u"BRANDNAME"_s, [this] { return lblBrand->text(); },
            [this](const QString& name) { lblBrand->setText(name.trimmed()); }, lblBrand)
        .notSaved()
        .required();
    // A store without a base year shows the company's, never the previous store's.
    m_form
        .value(
            u"CURRYYYY"_s, [this] { return cboYYYY->currentText(); },
            [this](const QString& stored) {
                QString year = stored.trimmed();
                if (year.isEmpty()) {
                    year = m_companyYear.isEmpty() ? QString::number(QDate::currentDate().year())
                                                   : m_companyYear;
                }
                if (cboYYYY->findText(year) < 0) {
                    cboYYYY->addItem(year); // outside the span: kept, so saving does not move it
                }
                cboYYYY->setCurrentText(year);
            },
            cboYYYY)
        .keptOnClear();

    band->add(0, 0, u"매장코드"_s, m_form.key(lblCode, u"STORECD"_s));
    band->add(0, 1, u"구분"_s, m_form.code(cboGT03, m_gt03, u"STOREGB"_s).required());
    band->add(0, 2, u"브랜드"_s, band->row({{lblBrand, 1}, {cmdSerch, 0}}));
    band->add(1, 0, u"매장명"_s, m_form.text(txtName, u"STORENAME"_s).required());
    band->add(1, 1, u"상호"_s, text("txtFullName", "STOREFULLNAME").required());
    band->add(1, 2, u"사업자No"_s, text("txtNO", "STORENO"));
    band->add(2, 0, u"대표자명"_s, text("txtCEOName", "STORECEO").required());
    band->add(2, 1, u"대표전화"_s, m_form.text(txtTEL, u"STORETEL"_s).required());
    band->add(2, 2, u"기준년"_s, cboYYYY);
    band->add(3, 0, u"주소"_s, text("txtAddres", "STOREADDRES").required(), 3);
    band->add(4, 0, u"은행명"_s, text("txtBankName", "BANKNAME"));
    band->add(4, 1, u"예금주"_s, text("txtDepositor", "DEPOSITOR"));
    band->add(4, 2, u"계좌No"_s, text("txtAccNo", "ACCNO"));
    band->add(5, 0, u"영수증 공지사항(안내문)"_s, m_form.text(txtRemark, u"REMARK"_s), 3);
    band->add(6, 0, u"운영"_s,
              m_form.options(this, u"optUSEYN"_s, {{u"개 점"_s, u"Y"_s}, {u"휴 점"_s, u"N"_s}},
                             u"USEYN"_s));
    band->add(6, 1, u"VAN"_s,
              band->row({{m_form.code(cboGT20, m_gt20, u"VANCD"_s).widget(), 1},
                         {text("txtVanSTRCD", "VANSTRCD").widget(), 1}}));
    band->add(6, 2, u"금전함"_s,
              m_form
                  .options(this, u"optCBUSEYN"_s, {{u"사 용"_s, u"Y"_s}, {u"미사용"_s, u"N"_s}},
                           u"CASHBOX"_s)
                  .byDefault(u"N"_s));
    band->add(7, 0, u"프린터 포트"_s, m_form.number(txtPortNo, u"PRTPORT"_s).byDefault(u"1"_s));
    band->add(7, 1, u"통신형태"_s, m_form.choice(cboPort, u"PRTTYPE"_s));
    // The speed is kept as text but the till reads it as a number: digits of a Korean input
    // method's full width become ASCII as they are typed, as in the number boxes.
    QLineEdit* txtSpeed = textBox(u"txtSpeed"_s);
    connect(txtSpeed, &QLineEdit::textEdited, txtSpeed, [txtSpeed] {
        const QString ascii = gfHalfWidth(txtSpeed->text());
        if (ascii != txtSpeed->text()) {
            const int caret = txtSpeed->cursorPosition();
            txtSpeed->setText(ascii);
            txtSpeed->setCursorPosition(caret);
        }
    });
    band->add(7, 2, u"속도"_s, m_form.text(txtSpeed, u"PRTSPEED"_s).byDefault(u"9600"_s));
    band->addWide(8, buildSettings());
    return band;
}

QWidget* BAMAS105::buildSettings() {
    auto* holder = new QWidget(this);
    auto* settings = new QHBoxLayout(holder);
    settings->setContentsMargins(0, 0, 0, 0);
    for (int group = 0; group < 2; ++group) {
        auto* box = new QGroupBox(group == 0 ? u"정보공개"_s : u"POS 출력물"_s, this);
        auto* boxGrid = new QGridLayout(box);
        const int first = group == 0 ? 0 : 4;
        const int last = group == 0 ? 4 : 10;
        for (int i = first; i < last; ++i) {
            const QString number = u"%1"_s.arg(i + 1, 2, 10, QLatin1Char('0'));
            QComboBox* set = comboBox(u"cboSet"_s + number);
            set->addItems({QString::fromUtf8(kSettings[i][1]), QString::fromUtf8(kSettings[i][2])});
            // A setting holds its combo's list index: "0" for the first choice. The clear
            // routine leaves the settings as they are.
            m_form.index(set, u"SET"_s + number).keptOnClear();
            const int slot = i - first;
            boxGrid->addWidget(new QLabel(QString::fromUtf8(kSettings[i][0]), this), slot / 3,
                               (slot % 3) * 2);
            boxGrid->addWidget(set, slot / 3, (slot % 3) * 2 + 1);
        }
        settings->addWidget(box, group == 0 ? 2 : 3);
    }
    auto* cmdNotice = new QPushButton(u"학교 공지문"_s, this);
    cmdNotice->setObjectName(u"cmdNotice"_s);
    connect(cmdNotice, &QPushButton::clicked, this, [this] {
        BAMAS105_NOTICE notice(this);
        notice.exec();
    });
    settings->addWidget(cmdNotice, 0, Qt::AlignBottom);
    return holder;
}
