#include "shell/codeoptionfield.h"

#include "shell/buttonarray.h"
#include "shell/codecontrols.h"

#include <QAbstractButton>
#include <QHBoxLayout>
#include <QLineEdit>

using namespace Qt::StringLiterals;

CodeOptionField::CodeOptionField(const QString& group, const QString& kind, int length, int columns,
                                 QWidget* parent)
    : QWidget(parent), m_box(new QLineEdit(this)),
      m_options(new ButtonArray(ButtonArray::Kind::Option, this)), m_length(length) {
    setObjectName(u"fra"_s + group);
    m_box->setObjectName(u"txt"_s + group);
    m_box->setMaxLength(length);
    m_box->setFixedWidth(m_box->fontMetrics().horizontalAdvance(u'W') * (length + 1) + 12);
    m_box->setAlignment(Qt::AlignCenter);
    m_options->setObjectName(u"opt"_s + group);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_box);
    row->addWidget(m_options, 1);
    gsReadCodeOptions(m_options, m_codes, kind, columns);
    connect(m_options, &ButtonArray::elementClicked, this, &CodeOptionField::selectElement);
    connect(m_box, &QLineEdit::textEdited, this, &CodeOptionField::typed);
}

QString CodeOptionField::code() const {
    return m_box->text().trimmed();
}

void CodeOptionField::typed(const QString& text) {
    if (m_busy) {
        return;
    }
    const QString upper = text.toUpper();
    if (upper != text) {
        const int caret = m_box->cursorPosition();
        m_box->setText(upper);
        m_box->setCursorPosition(caret);
    }
    if (upper.trimmed().size() == m_length) {
        setCode(upper.trimmed());
        return;
    }
    emit codeChanged(code());
}

bool CodeOptionField::setCode(const QString& value) {
    const bool found = gfOptionFindCode(m_options, m_codes, value.trimmed());
    m_busy = true;
    m_box->setText(found ? value.trimmed() : QString());
    m_busy = false;
    emit codeChanged(code());
    return found;
}

bool CodeOptionField::setName(const QString& name) {
    const bool found = gfOptionFindName(m_options, m_codes, name.trimmed());
    m_busy = true;
    m_box->setText(found ? gfOptionCode(m_options, m_codes) : QString());
    m_busy = false;
    emit codeChanged(code());
    return found;
}

void CodeOptionField::selectElement(int index) {
    if (index < 1 || index > m_options->count()) {
        return;
    }
    m_options->element(index)->setChecked(true);
    m_busy = true;
    m_box->setText(m_codes.code(index).trimmed());
    m_busy = false;
    emit codeChanged(code());
}

int CodeOptionField::selectedElement() const {
    return m_options->checkedIndex();
}

void CodeOptionField::setElementEnabled(int index, bool on) {
    if (QAbstractButton* button = m_options->element(index); button && index > 0) {
        button->setEnabled(on);
    }
}

void CodeOptionField::setEditable(bool on) {
    m_box->setEnabled(on);
    m_options->setEnabled(on);
}
