#include "shell/codechecklist.h"

#include "data/sqlvalue.h"
#include "shell/buttonarray.h"
#include "shell/codecontrols.h"

#include <QAbstractButton>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QStringList>

using namespace Qt::StringLiterals;

CodeCheckList::CodeCheckList(const QString& group, const QString& listName, const QString& kind,
                             int columns, QWidget* parent)
    : QWidget(parent), m_checks(new ButtonArray(ButtonArray::Kind::Check, this)),
      m_list(new QLineEdit(this)) {
    m_checks->setObjectName(u"chk"_s + group);
    m_list->setObjectName(listName);
    m_list->hide();
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_checks, 1);
    gsReadCodeChecks(m_checks, m_codes, kind, columns);
    connect(m_checks, &ButtonArray::elementClicked, this, &CodeCheckList::rebuild);
}

QString CodeCheckList::list() const {
    return m_list->text();
}

QString CodeCheckList::sqlList() const {
    QStringList codes = list().split(u"','"_s, Qt::SkipEmptyParts);
    for (QString& code : codes) {
        code = quoted(code);
    }
    return codes.join(u", "_s);
}

void CodeCheckList::clearChecks() {
    for (int i = 1; i <= m_checks->count(); ++i) {
        m_checks->element(i)->setChecked(false);
    }
    m_list->clear();
}

void CodeCheckList::rebuild() {
    QStringList codes;
    for (int i = 1; i <= m_checks->count(); ++i) {
        if (m_checks->element(i)->isChecked()) {
            codes.append(m_codes.code(i).trimmed());
        }
    }
    m_list->setText(codes.join(u"','"_s));
    emit listChanged();
}
