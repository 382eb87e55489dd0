#include "shell/editband.h"

#include "shell/recordform.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>

EditBand::EditBand(const QString& title, QWidget* parent)
    : QGroupBox(title, parent), m_grid(new QGridLayout(this)) {
    m_grid->setHorizontalSpacing(8);
    m_grid->setVerticalSpacing(4);
    for (int c : {1, 3, 5}) {
        m_grid->setColumnStretch(c, 1);
    }
}

void EditBand::add(int row, int pair, const QString& label, QWidget* field, int span) {
    m_grid->addWidget(new QLabel(label, this), row, pair * 2);
    m_grid->addWidget(field, row, pair * 2 + 1, 1, span * 2 - 1);
}

void EditBand::add(int row, int pair, const QString& label, const FieldBinding& field, int span) {
    add(row, pair, label, field.widget(), span);
}

void EditBand::addWide(int row, QWidget* widget) {
    m_grid->addWidget(widget, row, 0, 1, 6);
}

QWidget* EditBand::row(std::initializer_list<std::pair<QWidget*, int>> widgets) {
    auto* holder = new QWidget(this);
    auto* layout = new QHBoxLayout(holder);
    layout->setContentsMargins(0, 0, 0, 0);
    for (const auto& [widget, stretch] : widgets) {
        layout->addWidget(widget, stretch);
    }
    return holder;
}
