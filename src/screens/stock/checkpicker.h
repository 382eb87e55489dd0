#pragma once

#include "shell/popup.h"

#include <QList>
#include <QString>
#include <QStringList>

class Spread;

// What a check picker handed back: the codes and names of the rows that were ticked.
struct PickedCodes {
    QStringList codes;
    QStringList names;
    bool isEmpty() const { return codes.isEmpty(); }
    // "'a','b'" for an IN ( ... ) list, each code quoted.
    QString inList() const;
    // The caption of the button that opened the picker: "전체" when nothing is picked.
    QString caption() const;
};

// One grid of a picker and the select that fills it (fields by name).
struct CheckPickerGrid {
    QString name;    // "SPSubM1"
    QString caption; // "주품목"
    QString sql;
};

// A pop-up of check lists side by side: "□", name, code and a fourth column. The run button
// (runName) hands back every ticked row of every grid; the exit button (exitName) hands back
// nothing, so that the screen's filter falls back to "전체".
class CheckPicker : public Popup {
    Q_OBJECT
public:
    struct Fields {
        QString name, code, extra;
        QString nameHeading, codeHeading, extraHeading;
    };
    CheckPicker(const QString& title, const Fields& fields, const QList<CheckPickerGrid>& grids,
                const QString& runName, const QString& exitName, QWidget* parent = nullptr);

    PickedCodes picked() const { return m_picked; }
    Spread* list(int index) const { return m_grids.value(index); }

private:
    void collect();

    QList<Spread*> m_grids;
    PickedCodes m_picked;
};
