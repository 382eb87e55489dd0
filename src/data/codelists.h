#pragma once

#include <QString>
#include <QStringList>

// The code array kept beside a combo or a button array: for list row i, code(i), display(i) and
// name(i). Row 0 is the blank row: "**" when the list offers "all", "*" when it offers no choice.
struct CodeArray {
    QStringList codes;
    QStringList displays;
    QStringList names;

    int size() const { return int(codes.size()); }
    QString code(int row) const { return codes.value(row); }
    QString display(int row) const { return displays.value(row); }
    QString name(int row) const { return names.value(row); }
    // Empties the array and writes row 0 with `blank` in all three.
    void reset(const QString& blank);
    void append(const QString& code, const QString& display, const QString& name);
};

// The statement of a code list by kind: "SCHOOL", "BRD", "STORE", "STORE2", "STORE3",
// "BRDSTORE" (with brandCode), "CGT01" (company codes), any other kind a group of the common codes
// named by its last two characters ("GT22" and "22" alike). Three columns: code, display, name.
QString codeListSql(const QString& kind, const QString& brandCode = QString());
// The statement of an option or check array: the kind's first letter picks the source ("G" common
// codes in use, "E" all common codes, "C" company codes), its last two the group.
QString codeOptionsSql(const QString& kind);
