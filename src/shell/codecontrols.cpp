#include "shell/codecontrols.h"

#include "data/dbroutines.h"
#include "shell/buttonarray.h"

#include <QAbstractButton>
#include <QComboBox>


namespace {

template <typename Match>
bool findInCombo(QComboBox* combo, const CodeArray& arr, const QString& value, Match match) {
    if (value.isEmpty()) {
        combo->setCurrentIndex(combo->count() > 1 ? 0 : -1);
        return false;
    }
    for (int i = 1; i < arr.size() && i < combo->count(); ++i) {
        if (match(i)) {
            combo->setCurrentIndex(i);
            return true;
        }
    }
    combo->setCurrentIndex(combo->count() > 0 ? 0 : -1);
    return false;
}

template <typename Match>
bool findInArray(ButtonArray* array, const CodeArray& arr, Match match) {
    for (int i = 1; i <= array->count(); ++i) {
        array->element(i)->setAutoExclusive(false);
        array->element(i)->setChecked(false);
        array->element(i)->setAutoExclusive(array->kind() == ButtonArray::Kind::Option);
    }
    for (int i = 1; i <= array->count() && i < arr.size(); ++i) {
        if (match(i)) {
            array->element(i)->setChecked(true);
            return true;
        }
    }
    return false;
}

void readButtons(ButtonArray* array, CodeArray& arr, const QString& kind, int columns) {
    RecordSet rs;
    qint64 count = 0;
    if (!gfbSqlSelectDB(codeOptionsSql(kind), rs, count)) {
        return;
    }
    array->unloadElements();
    arr.reset(QStringLiteral("**"));
    for (rs.moveFirst(); !rs.eof(); rs.moveNext()) {
        array->loadElement(rs.value(1));
        arr.append(rs.value(0), rs.value(1), rs.value(2));
    }
    array->arrange(columns);
}

} // namespace

void gsReadCode(QComboBox* combo, CodeArray& arr, const QString& kind, const QString& brandCode,
                bool bAll) {
    RecordSet rs;
    qint64 count = 0;
    if (!gfbSqlSelectDB(codeListSql(kind, brandCode), rs, count)) {
        return;
    }
    const QSignalBlocker block(combo);
    combo->clear();
    arr.reset(bAll ? QStringLiteral("**") : QStringLiteral("*"));
    combo->addItem(bAll ? QStringLiteral("(전체)") : QStringLiteral(" "));
    for (rs.moveFirst(); !rs.eof(); rs.moveNext()) {
        combo->addItem(rs.value(1).trimmed());
        arr.append(rs.value(0), rs.value(1), rs.value(2));
    }
    combo->setCurrentIndex(0);
}

bool gsFillPicker(QComboBox* combo, CodeArray& arr, const QString& sql, const QString& blankText,
                  const QString& blankCode) {
    RecordSet rs;
    if (!gfbSqlSelectDB(sql, rs)) {
        return false;
    }
    const QSignalBlocker block(combo);
    combo->clear();
    arr.reset(blankCode);
    combo->addItem(blankText);
    for (rs.moveFirst(); !rs.eof(); rs.moveNext()) {
        combo->addItem(rs.value(1).trimmed());
        arr.append(rs.value(0), rs.value(1), rs.value(1));
    }
    combo->setCurrentIndex(0);
    return true;
}

void gsReadCodeOptions(ButtonArray* array, CodeArray& arr, const QString& kind, int columns) {
    readButtons(array, arr, kind, columns);
}

void gsReadCodeChecks(ButtonArray* array, CodeArray& arr, const QString& kind, int columns) {
    readButtons(array, arr, kind, columns);
}

bool gfComboFindCode(QComboBox* combo, const CodeArray& arr, const QString& code) {
    return findInCombo(combo, arr, code, [&](int i) { return arr.code(i) == code; });
}

bool gfComboFindName(QComboBox* combo, const CodeArray& arr, const QString& name) {
    return findInCombo(combo, arr, name, [&](int i) { return arr.name(i) == name; });
}

bool gfComboFindDisplay(QComboBox* combo, const CodeArray& arr, const QString& text) {
    return findInCombo(combo, arr, text, [&](int i) { return arr.display(i).startsWith(text); });
}

bool gfOptionFindCode(ButtonArray* array, const CodeArray& arr, const QString& code) {
    return findInArray(array, arr, [&](int i) { return arr.code(i) == code; });
}

bool gfOptionFindName(ButtonArray* array, const CodeArray& arr, const QString& name) {
    return findInArray(array, arr, [&](int i) { return arr.name(i) == name; });
}

QString gfComboCode(const QComboBox* combo, const CodeArray& arr) {
    return arr.code(combo->currentIndex());
}

QString gfOptionCode(const ButtonArray* array, const CodeArray& arr) {
    const int index = array->checkedIndex();
    return index > 0 ? arr.code(index) : QString();
}
