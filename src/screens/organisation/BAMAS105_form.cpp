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

struct Setting {
    const char* label;
    const char* first;
    const char* second;
};

const Setting kSettings[10] = {
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

QComboBox* combo(QWidget* parent, const QString& name) {
    auto* box = new QComboBox(parent);
    box->setObjectName(name);
    return box;
}

// Two option buttons side by side, "name_0" and "name_1".
QWidget* optionPair(QWidget* parent, const QString& name, const QString& first,
                    const QString& second, QRadioButton* (&buttons)[2]) {
    auto* holder = new QWidget(parent);
    auto* row = new QHBoxLayout(holder);
    row->setContentsMargins(0, 0, 0, 0);
    for (int i = 0; i < 2; ++i) {
        buttons[i] = new QRadioButton(i == 0 ? first : second, parent);
        buttons[i]->setObjectName(name + u"_%1"_s.arg(i));
        row->addWidget(buttons[i]);
    }
    row->addStretch(1);
    return holder;
}

// Widgets side by side, the first ones stretching.
QWidget* row(QWidget* parent, std::initializer_list<std::pair<QWidget*, int>> widgets) {
    auto* holder = new QWidget(parent);
    auto* layout = new QHBoxLayout(holder);
    layout->setContentsMargins(0, 0, 0, 0);
    for (const auto& [widget, stretch] : widgets) {
        layout->addWidget(widget, stretch);
    }
    return holder;
}

} // namespace

void BAMAS105::setupScreen() {
    SP1 = new Spread(this);
    SP1->setObjectName(u"SP1"_s);
    gsSpreadInit(SP1, u"굴림체"_s, 10, 18, 18, 0, 0xC0C0C0, 3, true, true);
    columns().setUp(SP1);
    connect(SP1, &Spread::clicked, this, [this](int row, int) { SP1_Click(row); });

    contentLayout()->addWidget(buildEditBand());
    contentLayout()->addWidget(SP1, 1);
    gsReadCode(cboGT03, m_gt03, u"GT03"_s);
    gsReadCode(cboGT20, m_gt20, u"GT20"_s);
    const int year = QDate::currentDate().year();
    for (int y = year + 1; y >= year - 3; --y) {
        cboYYYY->addItem(QString::number(y));
    }
    // The company's base year as the stores hold it; the present year for a first store.
    RecordSet rs;
    if (gfbSqlSelectDB(u" SELECT MAX(CURRYYYY) CURRYYYY FROM C_STORE WHERE COMPANY = "_s +
                           quoted(session().gsCompany),
                       rs) &&
        !rs.eof()) {
        m_companyYear = rs.field(u"CURRYYYY"_s).trimmed();
    }
    m_form.binding(u"CURRYYYY"_s)->setValue(QString());
    clearFields();
}

QWidget* BAMAS105::buildEditBand() {
    auto* band = new QGroupBox(u"매장 정보"_s, this);
    auto* grid = new QGridLayout(band);
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(4);
    const auto add = [grid, this](int row, int pair, const QString& label, QWidget* field,
                                  int span = 1) {
        grid->addWidget(new QLabel(label, this), row, pair * 2);
        grid->addWidget(field, row, pair * 2 + 1, 1, span * 2 - 1);
    };
    const auto text = [this](const char* name, const char* column) -> FieldBinding& {
        return m_form.text(textBox(QString::fromLatin1(name)), QString::fromLatin1(column));
    };

    lblCode = new QLabel(this);
    lblCode->setObjectName(u"lblCode"_s);
    cboGT03 = combo(this, u"cboGT03"_s);
    lblBrand = new QLabel(this);
    lblBrand->setObjectName(u"lblBrand"_s);
    lblBrand->setFrameShape(QFrame::StyledPanel);
    auto* cmdSerch = new QPushButton(u"브랜드 검색"_s, this);
    cmdSerch->setObjectName(u"cmdSerch"_s);
    connect(cmdSerch, &QPushButton::clicked, this, &BAMAS105::cmdSerch_Click);
    txtName = textBox(u"txtName"_s);
    txtRemark = textBox(u"txtRemark"_s);
    cboGT20 = combo(this, u"cboGT20"_s);
    cboYYYY = combo(this, u"cboYYYY"_s);
    auto* cboPort = combo(this, u"cboPort"_s);
    cboPort->addItems({u"C"_s, u"T"_s});
    QLineEdit* txtTEL = textBox(u"txtTEL"_s);
    gsInputStyle(txtTEL, InputStyle::Phone);
    QLineEdit* txtPortNo = textBox(u"txtPortNo"_s);
    gsInputStyle(txtPortNo, InputStyle::Number);
    QRadioButton* optUSEYN[2];
    QRadioButton* optCBUSEYN[2];
    QWidget* use = optionPair(this, u"optUSEYN"_s, u"개 점"_s, u"휴 점"_s, optUSEYN);
    QWidget* cashBox = optionPair(this, u"optCBUSEYN"_s, u"사 용"_s, u"미사용"_s, optCBUSEYN);

    m_form.key(lblCode, u"STORECD"_s);
    m_form.value(
        u"BRANDCD"_s, [this] { return m_brandCode; },
        [this](const QString& code) { m_brandCode = code.trimmed(); });
    m_form
        .value(
            u"BRANDNAME"_s, [this] { return lblBrand->text(); },
            [this](const QString& name) { lblBrand->setText(name.trimmed()); }, lblBrand)
        .notSaved()
        .required();
    m_form.options({{optUSEYN[0], u"Y"_s}, {optUSEYN[1], u"N"_s}}, u"USEYN"_s);
    m_form.options({{optCBUSEYN[0], u"Y"_s}, {optCBUSEYN[1], u"N"_s}}, u"CASHBOX"_s)
        .byDefault(u"N"_s);
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

    add(0, 0, u"매장코드"_s, lblCode);
    add(0, 1, u"구분"_s, m_form.code(cboGT03, m_gt03, u"STOREGB"_s).required().widget());
    add(0, 2, u"브랜드"_s, row(this, {{lblBrand, 1}, {cmdSerch, 0}}));
    add(1, 0, u"매장명"_s, m_form.text(txtName, u"STORENAME"_s).required().widget());
    add(1, 1, u"상호"_s, text("txtFullName", "STOREFULLNAME").required().widget());
    add(1, 2, u"사업자No"_s, text("txtNO", "STORENO").widget());
    add(2, 0, u"대표자명"_s, text("txtCEOName", "STORECEO").required().widget());
    add(2, 1, u"대표전화"_s, m_form.text(txtTEL, u"STORETEL"_s).required().widget());
    add(2, 2, u"기준년"_s, cboYYYY);
    add(3, 0, u"주소"_s, text("txtAddres", "STOREADDRES").required().widget(), 3);
    add(4, 0, u"은행명"_s, text("txtBankName", "BANKNAME").widget());
    add(4, 1, u"예금주"_s, text("txtDepositor", "DEPOSITOR").widget());
    add(4, 2, u"계좌No"_s, text("txtAccNo", "ACCNO").widget());
    add(5, 0, u"영수증 공지사항(안내문)"_s, m_form.text(txtRemark, u"REMARK"_s).widget(), 3);
    add(6, 0, u"운영"_s, use);
    add(6, 1, u"VAN"_s,
        row(this, {{m_form.code(cboGT20, m_gt20, u"VANCD"_s).widget(), 1},
                   {text("txtVanSTRCD", "VANSTRCD").widget(), 1}}));
    add(6, 2, u"금전함"_s, cashBox);
    add(7, 0, u"프린터 포트"_s, m_form.number(txtPortNo, u"PRTPORT"_s).byDefault(u"1"_s).widget());
    add(7, 1, u"통신형태"_s, m_form.choice(cboPort, u"PRTTYPE"_s).widget());
    add(7, 2, u"속도"_s, text("txtSpeed", "PRTSPEED").byDefault(u"9600"_s).widget());
    grid->addWidget(buildSettings(), 8, 0, 1, 6);
    for (int c : {1, 3, 5}) {
        grid->setColumnStretch(c, 1);
    }
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
            QComboBox* set = combo(this, u"cboSet"_s + number);
            set->addItems(
                {QString::fromUtf8(kSettings[i].first), QString::fromUtf8(kSettings[i].second)});
            // A setting holds its combo's list index: "0" for the first choice. The clear
            // routine leaves the settings as they are.
            m_form.index(set, u"SET"_s + number).keptOnClear();
            const int slot = i - first;
            boxGrid->addWidget(new QLabel(QString::fromUtf8(kSettings[i].label), this), slot / 3,
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

void BAMAS105::clearFields() {
    m_form.clear();
}
