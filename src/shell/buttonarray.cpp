#include "shell/buttonarray.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QRadioButton>

ButtonArray::ButtonArray(Kind kind, QWidget* parent) : QWidget(parent), m_kind(kind) {
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(4);
    QAbstractButton* zero = kind == Kind::Option ? static_cast<QAbstractButton*>(new QRadioButton(this))
                                                 : new QCheckBox(this);
    zero->hide();
    m_buttons.append(zero);
}

void ButtonArray::unloadElements() {
    while (m_buttons.size() > 1) {
        delete m_buttons.takeLast();
    }
}

QAbstractButton* ButtonArray::loadElement(const QString& caption) {
    QAbstractButton* button = m_kind == Kind::Option
                                  ? static_cast<QAbstractButton*>(new QRadioButton(caption, this))
                                  : new QCheckBox(caption, this);
    const int index = int(m_buttons.size());
    button->setObjectName(objectName() + QStringLiteral("_%1").arg(index));
    if (m_kind == Kind::Option) {
        // One choice among the elements of this array only.
        button->setAutoExclusive(true);
    }
    connect(button, &QAbstractButton::clicked, this, [this, index] { emit elementClicked(index); });
    m_buttons.append(button);
    return button;
}

void ButtonArray::arrange(int columns) {
    auto* grid = static_cast<QGridLayout*>(layout());
    columns = qMax(1, columns);
    for (int i = 1; i < m_buttons.size(); ++i) {
        grid->addWidget(m_buttons[i], (i - 1) / columns, (i - 1) % columns);
        m_buttons[i]->show();
    }
}

int ButtonArray::checkedIndex() const {
    for (int i = 1; i < m_buttons.size(); ++i) {
        if (m_buttons[i]->isChecked()) {
            return i;
        }
    }
    return 0;
}
