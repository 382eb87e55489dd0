#include "shell/yearbox.h"

#include "grid/inputhelpers.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>

using namespace Qt::StringLiterals;

YearBox::YearBox(QWidget* parent) : QWidget(parent), m_box(new QLineEdit(this)) {
    m_box->setObjectName(u"txtYYYY"_s);
    m_box->setValidator(new QRegularExpressionValidator(QRegularExpression(u"\\d{0,4}"_s), m_box));
    m_box->setFixedWidth(70);
    m_box->setAlignment(Qt::AlignCenter);
    gsByteLimit(m_box, 4);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(new QLabel(u"년도"_s, this));
    for (const auto& [name, caption, delta] :
         {std::tuple{u"cmdLeft"_s, u"◀"_s, -1}, std::tuple{u"cmdRight"_s, u"▶"_s, 1}}) {
        auto* arrow = new QPushButton(caption, this);
        arrow->setObjectName(name);
        arrow->setFixedWidth(32);
        connect(arrow, &QPushButton::clicked, this, [this, delta] { step(delta); });
        row->addWidget(arrow);
        if (delta < 0) {
            row->addWidget(m_box);
        }
    }
    row->addStretch(1);
    connect(m_box, &QLineEdit::returnPressed, this, &YearBox::yearChosen);
}

QString YearBox::year() const {
    return m_box->text();
}

void YearBox::setYear(const QString& year) {
    m_box->setText(year);
}

void YearBox::step(int delta) {
    m_box->setText(QString::number(m_box->text().toInt() + delta));
    emit yearChosen();
}
