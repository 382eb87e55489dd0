#include "shell/recordform.h"

#include "data/messages.h"
#include "data/recordset.h"
#include "data/schema/schema.h"
#include "data/sqlvalue.h"
#include "grid/gridcolumns.h"
#include "grid/inputhelpers.h"
#include "grid/spread.h"
#include "shell/codecontrols.h"
#include "shell/codeoptionfield.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

using namespace Qt::StringLiterals;

FieldBinding& FieldBinding::required() {
    m_required = true;
    if (QWidget* marked = m_marked ? m_marked : m_widget) {
        RecordForm::markRequired(marked);
    }
    return *this;
}

FieldBinding& FieldBinding::byDefault(const QString& value) {
    m_default = value;
    return *this;
}

FieldBinding& FieldBinding::keptOnClear() {
    m_keep = true;
    return *this;
}

FieldBinding& FieldBinding::notSaved() {
    m_saved = false;
    return *this;
}

FieldBinding& FieldBinding::loadedFrom(const QString& field) {
    m_source = field;
    return *this;
}

RecordForm::RecordForm(const QString& table) : m_table(table) {}

FieldBinding& RecordForm::add(const QString& column, QWidget* widget) {
    FieldBinding& b = m_fields.emplace_back();
    b.m_column = column;
    b.m_source = column;
    b.m_widget = widget;
    return b;
}

FieldBinding& RecordForm::text(QLineEdit* box, const QString& column) {
    FieldBinding& b = add(column, box);
    b.m_box = box;
    if (const int bytes = textColumnBytes(m_table, column); bytes > 0) {
        gsByteLimit(box, bytes);
    }
    b.m_get = [box] { return box->text(); };
    b.m_set = [box](const QString& v) { box->setText(v); };
    b.m_blank = [box] { return box->text().trimmed().isEmpty(); };
    return b;
}

FieldBinding& RecordForm::number(QLineEdit* box, const QString& column) {
    FieldBinding& b = text(box, column);
    b.m_box = nullptr;
    b.m_number = true;
    return b;
}

FieldBinding& RecordForm::key(QLabel* label, const QString& column) {
    FieldBinding& b = add(column, label);
    label->setFrameShape(QFrame::StyledPanel); // a field, though nobody types into it
    b.m_get = [label] { return label->text(); };
    b.m_set = [label](const QString& v) { label->setText(v.trimmed()); };
    b.m_blank = [label] { return label->text().trimmed().isEmpty(); };
    b.m_saved = false;
    return b;
}

FieldBinding& RecordForm::code(QComboBox* combo, const CodeArray& codes, const QString& column) {
    FieldBinding& b = add(column, combo);
    const CodeArray* arr = &codes;
    b.m_get = [combo, arr] { return gfComboCode(combo, *arr); };
    b.m_set = [combo, arr](const QString& v) { gfComboFindCode(combo, *arr, v.trimmed()); };
    b.m_blank = [combo] { return combo->currentIndex() < 1; };
    return b;
}

FieldBinding& RecordForm::codeOptions(CodeOptionField* field, const QString& column) {
    FieldBinding& b = add(column, field);
    b.m_marked = field->box();
    b.m_get = [field] { return field->code(); };
    b.m_set = [field](const QString& v) { field->setCode(v); };
    b.m_blank = [field] { return field->code().isEmpty(); };
    return b;
}

FieldBinding& RecordForm::index(QComboBox* combo, const QString& column) {
    FieldBinding& b = add(column, combo);
    b.m_get = [combo] { return QString::number(qMax(0, combo->currentIndex())); };
    b.m_set = [combo](const QString& v) {
        combo->setCurrentIndex(qBound(0, v.trimmed().toInt(), qMax(0, combo->count() - 1)));
    };
    b.m_blank = [combo] { return combo->currentIndex() < 0; };
    b.m_default = u"0"_s;
    return b;
}

FieldBinding& RecordForm::choice(QComboBox* combo, const QString& column) {
    FieldBinding& b = add(column, combo);
    b.m_get = [combo] { return combo->currentText(); };
    b.m_set = [combo](const QString& v) {
        const QString text = v.trimmed();
        if (text.isEmpty()) {
            combo->setCurrentIndex(combo->count() > 0 ? 0 : -1);
            return;
        }
        // A stored value outside the list is added, so that saving does not move it.
        if (combo->findText(text) < 0) {
            combo->addItem(text);
        }
        combo->setCurrentIndex(combo->findText(text));
    };
    b.m_blank = [combo] { return combo->currentText().trimmed().isEmpty(); };
    return b;
}

FieldBinding& RecordForm::options(std::initializer_list<std::pair<QRadioButton*, QString>> buttons,
                                  const QString& column) {
    return optionButtons(QList<std::pair<QRadioButton*, QString>>(buttons), column);
}

FieldBinding& RecordForm::optionButtons(const QList<std::pair<QRadioButton*, QString>>& list,
                                        const QString& column) {
    FieldBinding& b = add(column, nullptr);
    b.m_get = [list] {
        for (const auto& [button, code] : list) {
            if (button->isChecked()) {
                return code;
            }
        }
        return QString();
    };
    b.m_set = [list](const QString& v) {
        for (const auto& [button, code] : list) {
            if (code == v.trimmed()) {
                button->setChecked(true);
                return;
            }
        }
        if (!list.isEmpty()) {
            list.last().first->setChecked(true);
        }
    };
    b.m_blank = [get = b.m_get] { return get().isEmpty(); };
    b.m_default = list.isEmpty() ? QString() : list.first().second;
    return b;
}

FieldBinding& RecordForm::options(QWidget* parent, const QString& name,
                                  std::initializer_list<std::pair<QString, QString>> captionCodes,
                                  const QString& column) {
    auto* holder = new QWidget(parent);
    auto* row = new QHBoxLayout(holder);
    row->setContentsMargins(0, 0, 0, 0);
    QList<std::pair<QRadioButton*, QString>> buttons;
    for (const auto& [caption, code] : captionCodes) {
        auto* button = new QRadioButton(caption, holder);
        button->setObjectName(name + u"_%1"_s.arg(buttons.size()));
        row->addWidget(button);
        buttons.append({button, code});
    }
    row->addStretch(1);
    FieldBinding& b = optionButtons(buttons, column);
    b.m_widget = holder;
    return b;
}

FieldBinding& RecordForm::value(const QString& column, std::function<QString()> get,
                                std::function<void(const QString&)> set, QWidget* widget) {
    FieldBinding& b = add(column, widget);
    b.m_get = std::move(get);
    b.m_set = std::move(set);
    b.m_blank = [get = b.m_get] { return get().trimmed().isEmpty(); };
    return b;
}

void RecordForm::clear() const {
    for (const FieldBinding& b : m_fields) {
        if (!b.m_keep) {
            b.m_set(b.m_default);
        }
    }
}

void RecordForm::load(const std::function<bool(const QString&, QString&)>& source) const {
    for (const FieldBinding& b : m_fields) {
        QString v;
        if (source(b.m_source, v)) {
            b.m_set(v);
        }
    }
}

void RecordForm::loadRow(const GridColumns& columns, const Spread* grid, int row) const {
    load([&](const QString& field, QString& v) {
        if (columns.column(field) == 0) {
            return false;
        }
        v = columns.value(grid, row, field);
        return true;
    });
}

void RecordForm::loadRecord(const RecordSet& rs) const {
    load([&](const QString& field, QString& v) {
        if (rs.eof() || rs.fieldIndex(field) < 0) {
            return false;
        }
        v = rs.field(field);
        return true;
    });
}

bool RecordForm::checkRequired() const {
    for (const FieldBinding& b : m_fields) {
        if (b.m_required && b.m_blank()) {
            gfsMessage(22);
            return false;
        }
    }
    return true;
}

void RecordForm::cutTexts() const {
    for (const FieldBinding& b : m_fields) {
        if (b.m_box) {
            gsTextCut(b.m_box);
        }
    }
}

bool RecordForm::readyToSave() const {
    if (!checkRequired()) {
        return false;
    }
    cutTexts();
    return true;
}

Assignments RecordForm::assignments() const {
    Assignments out;
    for (const FieldBinding& b : m_fields) {
        if (b.m_saved) {
            out.append({b.m_column, b.m_number ? numeric(b.m_get()) : quoted(b.m_get())});
        }
    }
    return out;
}

QString RecordForm::insertStatement(const Assignments& keys, const Assignments& extra) const {
    return sqlInsert(m_table, keys + assignments() + extra + auditOnInsert(m_table));
}

QString RecordForm::updateStatement(const QString& where, const Assignments& extra) const {
    return sqlUpdate(m_table, assignments() + extra + auditOnUpdate(m_table), where);
}

FieldBinding* RecordForm::binding(const QString& column) {
    for (FieldBinding& b : m_fields) {
        if (b.m_column == column) {
            return &b;
        }
    }
    return nullptr;
}

void RecordForm::markRequired(QWidget* field) {
    QPalette palette = field->palette();
    for (auto role : {QPalette::Base, QPalette::Window, QPalette::Button}) {
        palette.setColor(role, QColor(192, 255, 192));
    }
    field->setPalette(palette);
    if (qobject_cast<QLabel*>(field)) {
        field->setAutoFillBackground(true);
    }
}
