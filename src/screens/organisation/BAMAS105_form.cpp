// The widgets of the store screen: the list, the edit band with its settings, the defaults.
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

QRadioButton* option(QWidget* parent, const QString& name, const QString& caption) {
    auto* button = new QRadioButton(caption, parent);
    button->setObjectName(name);
    return button;
}

} // namespace

QString BAMAS105::setColumn(int i) {
    return QStringLiteral("SET%1").arg(i + 1, 2, 10, QLatin1Char('0'));
}

void BAMAS105::setupScreen() {
    SP1 = new Spread(this);
    SP1->setObjectName(QStringLiteral("SP1"));
    gsSpreadInit(SP1, QStringLiteral("굴림체"), 10, 18, 18, 0, 0xC0C0C0, 3, true, true);
    const struct {
        int col;
        const char* heading;
        double width;
        const char* align;
    } columns[] = {
        {ColCode, "코드", 4, "M"},     {ColKind, "구분", 6, "M"},
        {ColBrand, "브랜드", 10, "L"}, {ColName, "매장", 12, "L"},
        {ColNo, "등록번호", 12, "L"},  {ColFullName, "상호", 16, "L"},
        {ColCeo, "대표자명", 8, "L"},  {ColTel, "대표전화", 12, "L"},
        {ColAddress, "주소", 28, "L"}, {ColBank, "은행명", 8, "L"},
        {ColAccNo, "계좌No", 14, "L"}, {ColDepositor, "예금주", 8, "L"},
        {ColUse, "운영", 5, "M"},      {ColRemark, "안내문", 30, "L"},
    };
    for (const auto& c : columns) {
        gsSpreadColumn(SP1, c.col, QString::fromUtf8(c.heading), 5, c.width, 0,
                       QString::fromLatin1(c.align));
    }
    QStringList hidden = {QStringLiteral("브랜드코드"), QStringLiteral("VANCD"),
                          QStringLiteral("VANSTRCD"), QStringLiteral("CASHBOX")};
    for (int i = 0; i < 10; ++i) {
        hidden << setColumn(i);
    }
    hidden << QStringLiteral("PORTNO") << QStringLiteral("PORTTYPE") << QStringLiteral("PORTSPEED")
           << QStringLiteral("CURRYYYY");
    for (int i = 0; i < hidden.size(); ++i) {
        gsSpreadColumn(SP1, ColBrandCode + i, hidden.at(i), 5, 0);
    }
    connect(SP1, &Spread::clicked, this, [this](int row, int) { SP1_Click(row); });

    contentLayout()->addWidget(buildEditBand());
    contentLayout()->addWidget(SP1, 1);
    gsReadCode(cboGT03, m_gt03, QStringLiteral("GT03"));
    gsReadCode(cboGT20, m_gt20, QStringLiteral("GT20"));
    clearFields();
}

QWidget* BAMAS105::buildEditBand() {
    auto* band = new QGroupBox(QStringLiteral("매장 정보"), this);
    auto* grid = new QGridLayout(band);
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(4);
    const auto combo = [this](const QString& name) {
        auto* box = new QComboBox(this);
        box->setObjectName(name);
        return box;
    };
    const auto add = [grid, this](int row, int pair, const QString& label, QWidget* field,
                                  int span = 1) {
        grid->addWidget(new QLabel(label, this), row, pair * 2);
        grid->addWidget(field, row, pair * 2 + 1, 1, span * 2 - 1);
    };

    lblCode = new QLabel(this);
    lblCode->setObjectName(QStringLiteral("lblCode"));
    cboGT03 = combo(QStringLiteral("cboGT03"));
    lblBrand = new QLabel(this);
    lblBrand->setObjectName(QStringLiteral("lblBrand"));
    lblBrand->setFrameShape(QFrame::StyledPanel);
    auto* cmdSerch = new QPushButton(QStringLiteral("브랜드 검색"), this);
    cmdSerch->setObjectName(QStringLiteral("cmdSerch"));
    connect(cmdSerch, &QPushButton::clicked, this, &BAMAS105::cmdSerch_Click);
    auto* brandRow = new QWidget(this);
    auto* brandLayout = new QHBoxLayout(brandRow);
    brandLayout->setContentsMargins(0, 0, 0, 0);
    brandLayout->addWidget(lblBrand, 1);
    brandLayout->addWidget(cmdSerch);

    txtName = textBox(QStringLiteral("txtName"), 20);
    txtFullName = textBox(QStringLiteral("txtFullName"), 50);
    txtNO = textBox(QStringLiteral("txtNO"), 20);
    txtCEOName = textBox(QStringLiteral("txtCEOName"), 20);
    txtTEL = textBox(QStringLiteral("txtTEL"), 20);
    gsInputStyle(txtTEL, InputStyle::Phone);
    txtAddres = textBox(QStringLiteral("txtAddres"), 100);
    txtBankName = textBox(QStringLiteral("txtBankName"), 20);
    txtDepositor = textBox(QStringLiteral("txtDepositor"), 20);
    txtAccNo = textBox(QStringLiteral("txtAccNo"), 30);
    txtRemark = textBox(QStringLiteral("txtRemark"), 200);
    txtVanSTRCD = textBox(QStringLiteral("txtVanSTRCD"), 20);
    txtPortNo = textBox(QStringLiteral("txtPortNo"), 4);
    gsInputStyle(txtPortNo, InputStyle::Number);
    txtSpeed = textBox(QStringLiteral("txtSpeed"), 10);
    cboGT20 = combo(QStringLiteral("cboGT20"));
    cboPort = combo(QStringLiteral("cboPort"));
    cboPort->addItems({QStringLiteral("C"), QStringLiteral("T")});
    cboYYYY = combo(QStringLiteral("cboYYYY"));
    const int year = QDate::currentDate().year();
    for (int y = year + 1; y >= year - 3; --y) {
        cboYYYY->addItem(QString::number(y));
    }
    for (QWidget* required : std::initializer_list<QWidget*>{
             cboGT03, txtName, lblBrand, txtFullName, txtAddres, txtCEOName, txtTEL}) {
        markRequired(required);
    }
    lblBrand->setAutoFillBackground(true);

    const auto pair = [this](QRadioButton*(&buttons)[2], const QString& name, const QString& yes,
                             const QString& no) {
        buttons[0] = option(this, name + QStringLiteral("_0"), yes);
        buttons[1] = option(this, name + QStringLiteral("_1"), no);
        auto* holder = new QWidget(this);
        auto* row = new QHBoxLayout(holder);
        row->setContentsMargins(0, 0, 0, 0);
        row->addWidget(buttons[0]);
        row->addWidget(buttons[1]);
        row->addStretch(1);
        return holder;
    };
    auto* van = new QWidget(this);
    auto* vanRow = new QHBoxLayout(van);
    vanRow->setContentsMargins(0, 0, 0, 0);
    vanRow->addWidget(cboGT20, 1);
    vanRow->addWidget(txtVanSTRCD, 1);

    add(0, 0, QStringLiteral("매장코드"), lblCode);
    add(0, 1, QStringLiteral("구분"), cboGT03);
    add(0, 2, QStringLiteral("브랜드"), brandRow);
    add(1, 0, QStringLiteral("매장명"), txtName);
    add(1, 1, QStringLiteral("상호"), txtFullName);
    add(1, 2, QStringLiteral("사업자No"), txtNO);
    add(2, 0, QStringLiteral("대표자명"), txtCEOName);
    add(2, 1, QStringLiteral("대표전화"), txtTEL);
    add(2, 2, QStringLiteral("기준년"), cboYYYY);
    add(3, 0, QStringLiteral("주소"), txtAddres, 3);
    add(4, 0, QStringLiteral("은행명"), txtBankName);
    add(4, 1, QStringLiteral("예금주"), txtDepositor);
    add(4, 2, QStringLiteral("계좌No"), txtAccNo);
    add(5, 0, QStringLiteral("영수증 공지사항(안내문)"), txtRemark, 3);
    add(6, 0, QStringLiteral("운영"),
        pair(optUSEYN, QStringLiteral("optUSEYN"), QStringLiteral("개 점"),
             QStringLiteral("휴 점")));
    add(6, 1, QStringLiteral("VAN"), van);
    add(6, 2, QStringLiteral("금전함"),
        pair(optCBUSEYN, QStringLiteral("optCBUSEYN"), QStringLiteral("사 용"),
             QStringLiteral("미사용")));
    add(7, 0, QStringLiteral("프린터 포트"), txtPortNo);
    add(7, 1, QStringLiteral("통신형태"), cboPort);
    add(7, 2, QStringLiteral("속도"), txtSpeed);

    auto* settings = new QHBoxLayout;
    for (int group = 0; group < 2; ++group) {
        auto* box = new QGroupBox(
            group == 0 ? QStringLiteral("정보공개") : QStringLiteral("POS 출력물"), this);
        auto* boxGrid = new QGridLayout(box);
        const int first = group == 0 ? 0 : 4;
        const int last = group == 0 ? 4 : 10;
        for (int i = first; i < last; ++i) {
            cboSet[i] = combo(QStringLiteral("cboSet%1").arg(i + 1, 2, 10, QLatin1Char('0')));
            cboSet[i]->addItems(
                {QString::fromUtf8(kSettings[i].first), QString::fromUtf8(kSettings[i].second)});
            const int slot = i - first;
            boxGrid->addWidget(new QLabel(QString::fromUtf8(kSettings[i].label), this), slot / 3,
                               (slot % 3) * 2);
            boxGrid->addWidget(cboSet[i], slot / 3, (slot % 3) * 2 + 1);
        }
        settings->addWidget(box, group == 0 ? 2 : 3);
    }
    auto* cmdNotice = new QPushButton(QStringLiteral("학교 공지문"), this);
    cmdNotice->setObjectName(QStringLiteral("cmdNotice"));
    connect(cmdNotice, &QPushButton::clicked, this, [this] {
        BAMAS105_NOTICE notice(this);
        notice.exec();
    });
    settings->addWidget(cmdNotice, 0, Qt::AlignBottom);
    grid->addLayout(settings, 8, 0, 1, 6);
    for (int c : {1, 3, 5}) {
        grid->setColumnStretch(c, 1);
    }
    return band;
}

void BAMAS105::clearFields() {
    gsFormClear(this);
    cboPort->setCurrentIndex(0);
    txtPortNo->setText(QStringLiteral("1"));
    txtSpeed->setText(QStringLiteral("9600"));
    cboGT03->setCurrentIndex(0);
    cboGT20->setCurrentIndex(0);
    lblCode->clear();
    lblBrand->clear();
    m_brandCode.clear();
    optUSEYN[0]->setChecked(true);
    optCBUSEYN[1]->setChecked(true);
    for (QComboBox* set : cboSet) {
        set->setCurrentIndex(0);
    }
    cboYYYY->setCurrentText(QString::number(QDate::currentDate().year()));
}
