#pragma once

#include <QList>
#include <QWidget>

class QAbstractButton;

// A control array of option or check buttons filled from a code list. Element 0 is the
// template (hidden); elements 1.. are the codes, placed in a table of `columns` across.
class ButtonArray : public QWidget {
    Q_OBJECT
public:
    enum class Kind { Option, Check };
    explicit ButtonArray(Kind kind, QWidget* parent = nullptr);

    Kind kind() const { return m_kind; }
    // Elements above 0.
    int count() const { return int(m_buttons.size()) - 1; }
    QAbstractButton* element(int index) const { return m_buttons.value(index); }
    // Unloads every element above 0.
    void unloadElements();
    QAbstractButton* loadElement(const QString& caption);
    void arrange(int columns);
    // The first element that is on, or 0.
    int checkedIndex() const;

signals:
    void elementClicked(int index);

private:
    Kind m_kind;
    QList<QAbstractButton*> m_buttons;
};
