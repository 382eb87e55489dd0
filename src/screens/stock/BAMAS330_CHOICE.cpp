#include "screens/stock/BAMAS330_CHOICE.h"

#include "screens/stock/BAMAS330_entry.h"

#include <QCheckBox>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

BAMAS330_CHOICE::BAMAS330_CHOICE(const QString& mode, const QStringList& years, QWidget* parent)
    : Popup(parent) {
    setObjectName(u"BAMAS330_CHOICE"_s);
    setWindowTitle(mode);
    auto* column = new QVBoxLayout(this);
    lblFTitle1 = new QLabel(mode, this);
    lblFTitle1->setObjectName(u"lblFTitle1"_s);
    QFont title = lblFTitle1->font();
    title.setPointSize(title.pointSize() + 4);
    title.setBold(true);
    lblFTitle1->setFont(title);
    column->addWidget(lblFTitle1);
    if (mode == kRegisterMode) {
        buildRegistration(years);
    } else {
        buildCorrection();
    }
}

void BAMAS330_CHOICE::buildCorrection() {
    auto* frame = new QFrame(this);
    frame->setObjectName(u"Frame2"_s);
    frame->setFrameShape(QFrame::StyledPanel);
    auto* inside = new QVBoxLayout(frame);
    auto* text = new QLabel(frame);
    text->setObjectName(u"Label2"_s);
    text->setText(u"ㅇ 기존 데이터 수량과 실사(실제조사)된 수량에\n"
                  "   차이가 있는 부분을 실사수량으로 입력함\n\n"
                  "ㅇ 보정란에 입력하지 않은 빈칸은 기존 데이터가\n"
                  "   그대로 유지됨\n\n"
                  "ㅇ 보정수량이 「0」인 경우는 숫자 「0」을 입력함\n\n"
                  "ㅇ 보정하시는 일자는 실사하신 일자로 입력함\n\n"
                  "ㅇ 실사는 가급적 영업마감 후에 실시 바랍니다.\n"_s);
    inside->addWidget(text);
    layout()->addWidget(frame);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    QPushButton* run = button(u"cmdRun1"_s, u"확인"_s);
    QPushButton* exit = button(u"cmdExit"_s, u"닫기"_s);
    buttons->addWidget(run);
    buttons->addWidget(exit);
    static_cast<QVBoxLayout*>(layout())->addLayout(buttons);
    connect(run, &QPushButton::clicked, this, &QDialog::accept);
    connect(exit, &QPushButton::clicked, this, &QDialog::reject);
}

void BAMAS330_CHOICE::buildRegistration(const QStringList& years) {
    auto* frame1 = new QFrame(this);
    frame1->setObjectName(u"Frame1"_s);
    auto* notice = new QVBoxLayout(frame1);
    notice->addWidget(new QLabel(u"새로운 내용으로 데이터 교체를 하기 위하여\n"
                                 "기존 등록 데이터를 삭제합니다.\n"
                                 "삭제할 연식을 선택하십시요."_s,
                                 frame1));
    layout()->addWidget(frame1);
    auto* frame3 = new QFrame(this);
    frame3->setObjectName(u"Frame3"_s);
    auto* grid = new QGridLayout(frame3);
    QStringList shown;
    for (const QString& y : years) {
        if (!y.trimmed().isEmpty() && shown.size() < 5) {
            shown << y.trimmed();
        }
    }
    for (int k = 0; k < 6; ++k) {
        const QString caption = k == 0 ? u"전  체      "_s : shown.value(k - 1) + u" 년도   "_s;
        chkDeleteYYYY[k] = new QCheckBox(caption, frame3);
        chkDeleteYYYY[k]->setObjectName(u"chkDeleteYYYY_%1"_s.arg(k));
        lblYYYY[k] = new QLabel(k == 0 ? QString() : u"20"_s + shown.value(k - 1), frame3);
        lblYYYY[k]->setObjectName(u"lblYYYY_%1"_s.arg(k));
        lblStat[k] = new QLabel(frame3);
        lblStat[k]->setObjectName(u"lblStat_%1"_s.arg(k));
        grid->addWidget(chkDeleteYYYY[k], k, 0);
        grid->addWidget(lblYYYY[k], k, 1);
        grid->addWidget(lblStat[k], k, 2);
        connect(chkDeleteYYYY[k], &QCheckBox::toggled, this, [this, k] { chkDeleteYYYY_Click(k); });
    }
    layout()->addWidget(frame3);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    // Built as the form has them; no deletion stands behind this face.
    buttons->addWidget(button(u"cmdRun2"_s, u"삭제"_s));
    buttons->addWidget(button(u"cmdRun3"_s, u"등록"_s));
    QPushButton* exit = button(u"cmdExit"_s, u"닫기"_s);
    buttons->addWidget(exit);
    static_cast<QVBoxLayout*>(layout())->addLayout(buttons);
    connect(exit, &QPushButton::clicked, this, &QDialog::reject);
}

// Ticking "전체" ticks all five; clearing one clears "전체"; ticking the fifth ticks it.
void BAMAS330_CHOICE::chkDeleteYYYY_Click(int index) {
    if (m_ticking) {
        return;
    }
    m_ticking = true;
    if (index == 0) {
        for (int k = 1; k < 6 && chkDeleteYYYY[0]->isChecked(); ++k) {
            chkDeleteYYYY[k]->setChecked(true);
        }
    } else {
        bool all = true;
        for (int k = 1; k < 6; ++k) {
            all = all && chkDeleteYYYY[k]->isChecked();
        }
        chkDeleteYYYY[0]->setChecked(all);
    }
    m_ticking = false;
}
