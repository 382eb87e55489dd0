#pragma once

#include <QGroupBox>

#include <initializer_list>
#include <utility>

class FieldBinding;
class QGridLayout;

// The edit band of a master screen: a titled box of label and field pairs, three pairs across,
// the fields stretching. Its rows are read top to bottom and left to right.
class EditBand : public QGroupBox {
    Q_OBJECT
public:
    explicit EditBand(const QString& title, QWidget* parent);

    // A label and its field at a row and pair (0 to 2), the field spanning `span` pairs.
    void add(int row, int pair, const QString& label, QWidget* field, int span = 1);
    void add(int row, int pair, const QString& label, const FieldBinding& field, int span = 1);
    // Anything across the whole band.
    void addWide(int row, QWidget* widget);

    // Widgets side by side in one field, each with its stretch.
    QWidget* row(std::initializer_list<std::pair<QWidget*, int>> widgets);

private:
    QGridLayout* m_grid;
};
