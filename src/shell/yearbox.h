#pragma once

#include <QWidget>

class QLineEdit;

// A year of four digits with arrows that step it by one: "년도 ◀ 2026 ▶". The box is
// `txtYYYY`, the arrows `cmdLeft` and `cmdRight`; a step or Enter in the box announces the year.
class YearBox : public QWidget {
    Q_OBJECT
public:
    explicit YearBox(QWidget* parent);

    QString year() const;
    void setYear(const QString& year);
    QLineEdit* box() const { return m_box; }

signals:
    void yearChosen();

private:
    void step(int delta);

    QLineEdit* m_box;
};
