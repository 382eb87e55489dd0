// The widgets of the item master: the filter, the edit band bound to C_UNIFORM, the two lists.
#include "grid/gridcolumns.h"
#include "grid/spreadroutines.h"
#include "screens/school/BAMAS115.h"
#include "screens/school/buttonface.h"
#include "shell/codechecklist.h"
#include "shell/codeoptionfield.h"
#include "shell/editband.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

// The summer season is not offered in three item kinds, named by their places in the kind array.
const QString kSummer = u"S"_s;
constexpr int kNotInSummer[] = {3, 4, 8};

} // namespace

void BAMAS115::setupScreen() {
    contentLayout()->addWidget(buildFilter());
    contentLayout()->addWidget(buildEditBand());

    SP1 = grid(u"SP1"_s, columns(), 3, true, true);
    gsSpreadFreezeCols(SP1, columns().column(u"CD"_s));
    connect(SP1, &Spread::clicked, this, [this](int row, int) { SP1_Click(row); });
    connect(SP1, &Spread::doubleClicked, this, &BAMAS115::SP1_DblClick);
    SP2 = grid(u"SP2"_s, commonColumns(), 3, true, true);
    connect(SP2, &Spread::doubleClicked, this, &BAMAS115::SP2_DblClick);
    auto* common = new QGroupBox(u"공통복종 리스트"_s, this);
    (new QVBoxLayout(common))->addWidget(SP2);

    // Both lists scroll rather than widen the screen.
    SP1->setMinimumWidth(200);
    SP2->setMinimumWidth(120);
    auto* lists = new QHBoxLayout;
    lists->addWidget(SP1, 3);
    lists->addWidget(common, 1);
    contentLayout()->addLayout(lists, 1);
    sGridInit();
}

QWidget* BAMAS115::buildFilter() {
    auto* band = new QGroupBox(u"조회조건"_s, this);
    auto* layout = new QGridLayout(band);
    layout->setVerticalSpacing(2);
    const auto filter = [this, layout](const QString& group, const QString& kind, int across,
                                       const QString& label, int row, int at, int span) {
        auto* list = new CodeCheckList(group, u"txtCh"_s + group, kind, across, this);
        connect(list, &CodeCheckList::listChanged, this, [this] { sSelectQuery(); });
        layout->addWidget(new QLabel(label, this), row, at * 2);
        layout->addWidget(list, row, at * 2 + 1, 1, span * 2 - 1);
        return list;
    };
    m_chkGT22 = filter(u"GT22"_s, u"EGT022"_s, 4, u"시즌"_s, 0, 0, 1);
    m_chkGT23 = filter(u"GT23"_s, u"GT023"_s, 3, u"성별"_s, 0, 1, 1);
    m_chkGT28 = filter(u"GT28"_s, u"GT028"_s, 2, u"품목"_s, 0, 2, 1);
    m_chkCGT01 = filter(u"CGT01"_s, u"CGT01"_s, 9, u"품종"_s, 1, 0, 3);
    for (int c : {1, 3, 5}) {
        layout->setColumnStretch(c, 1);
    }
    return band;
}

QWidget* BAMAS115::buildEditBand() {
    auto* band = new EditBand(u"복종 정보"_s, this);
    m_gt22 = new CodeOptionField(u"GT22"_s, u"EGT022"_s, 1, 3, this);
    m_gt23 = new CodeOptionField(u"GT23"_s, u"GT023"_s, 1, 3, this);
    m_gt26 = new CodeOptionField(u"GT26"_s, u"GT026"_s, 1, 4, this);
    m_gt28 = new CodeOptionField(u"GT28"_s, u"GT028"_s, 1, 2, this);
    m_cgt01 = new CodeOptionField(u"CGT01"_s, u"CGT01"_s, 2, 9, this);
    connect(m_gt22, &CodeOptionField::codeChanged, this, [this](const QString& season) {
        for (int element : kNotInSummer) {
            m_cgt01->setElementEnabled(element, season != kSummer);
        }
        keyChanged();
    });
    connect(m_gt23, &CodeOptionField::codeChanged, this, [this] { keyChanged(); });

    lblCode = new QLabel(this);
    lblCode->setObjectName(u"lblCode"_s);
    lblCode->setFrameShape(QFrame::StyledPanel);
    lblCode->setFixedWidth(40);
    lblCode->setAlignment(Qt::AlignCenter);
    txtCode = textBox(u"txtCode"_s);
    txtCode->setFixedWidth(50);
    txtCode->setAlignment(Qt::AlignCenter);
    // The sequence is upper-cased as it is typed.
    connect(txtCode, &QLineEdit::textEdited, this, [this](const QString& text) {
        if (text != text.toUpper()) {
            const int caret = txtCode->cursorPosition();
            txtCode->setText(text.toUpper());
            txtCode->setCursorPosition(caret);
        }
    });
    txtName = textBox(u"txtName"_s);
    txtSpec = textBox(u"txtSpec"_s);
    txtButName = new ButtonFaceText(u"txtButName"_s, 20, this);
    cmdButton = buttonFace(u"cmdButton"_s, this);
    txtButName->showOn(cmdButton);
    chkMix = new QCheckBox(u"혼용"_s, this);
    chkMix->setObjectName(u"chkMix"_s);
    auto* cmdDelUnif = new QPushButton(u"복종코드 삭제"_s, this);
    cmdDelUnif->setObjectName(u"cmdDelUnif"_s);
    connect(cmdDelUnif, &QPushButton::clicked, this, &BAMAS115::cmdDelUnif_Click);

    // The key: shown and checked, written by the save's own key columns.
    band->add(0, 0, u"시즌"_s,
              m_form.codeOptions(m_gt22, u"SEASON"_s).required().notSaved().keptOnClear());
    band->add(0, 1, u"성별"_s,
              m_form.codeOptions(m_gt23, u"DIVIDE"_s).required().notSaved().keptOnClear());
    band->add(0, 2, u"코드"_s,
              band->row({{lblCode, 0},
                         {m_form.text(txtCode, u"UNIFORMSEQ"_s).required().notSaved().widget(), 0},
                         {new QWidget(this), 1}}));
    band->add(1, 0, u"품목"_s, m_form.codeOptions(m_gt28, u"SUBMAIN"_s).required().keptOnClear());
    band->add(1, 1, u"Size탭"_s, m_form.codeOptions(m_gt26, u"SIZETAB"_s).required().keptOnClear());
    band->add(1, 2, u"품명"_s, m_form.text(txtName, u"UNIFORMNAME"_s).required());
    // Connected after the binding has set the box's byte limit, so the face previews the name
    // as the box keeps it, not what was typed past the limit.
    connect(txtName, &QLineEdit::textEdited, cmdButton,
            [this] { cmdButton->setText(txtName->text()); });
    band->add(2, 0, u"품종"_s, m_form.codeOptions(m_cgt01, u"UNITYPE"_s).required().keptOnClear(),
              2);
    band->add(2, 2, u"사양"_s, m_form.text(txtSpec, u"UNIFORMSPEC"_s));
    m_form.value(
        u"UNIFORMBTNVIEW"_s, [this] { return txtButName->value(); },
        [this](const QString& text) { txtButName->setValue(text); }, txtButName);
    band->add(3, 0, u"버튼표출"_s, band->row({{txtButName, 1}, {cmdButton, 0}}));
    m_form.value(
        u"MIXUNIFORM"_s, [this] { return chkMix->isChecked() ? u"1"_s : u"0"_s; },
        [this](const QString& mix) { chkMix->setChecked(mix == u"1"_s); }, chkMix);
    band->add(3, 1, u"사용"_s,
              band->row({{m_form
                              .options(this, u"optUSEYN"_s,
                                       {{u"사용"_s, u"Y"_s}, {u"보류"_s, u"N"_s}}, u"USEYN"_s)
                              .byDefault(u"Y"_s)
                              .widget(),
                          0},
                         {chkMix, 0},
                         {new QWidget(this), 1}}));
    band->add(3, 2, QString(), band->row({{new QWidget(this), 1}, {cmdDelUnif, 0}}));
    return band;
}

void BAMAS115::sGridInit() {
    SP1->setMaxRows(30);
    SP2->setMaxRows(25);
    sClearInput(true);
}
