#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

#include <vector>

// A client-side record set: every row fetched, exact count, walk both ways, fields by name.
// NULL reads as an empty text.
class RecordSet {
public:
    RecordSet() = default;
    explicit RecordSet(QStringList columns);

    void appendRow(std::vector<QString>&& row);
    // Whole rows at once, row after row, a cell per column.
    void appendRows(std::vector<QString>&& cells);
    void reserveRows(qsizetype rows);

    qsizetype recordCount() const { return m_rows; }
    int fieldCount() const { return int(m_columns.size()); }
    QString fieldName(int index) const { return m_columns.value(index); }
    const QStringList& fieldNames() const { return m_columns; }
    int fieldIndex(const QString& name) const; // -1 when absent; names ignore case

    bool eof() const { return m_pos >= m_rows || m_rows == 0; }
    bool bof() const { return m_pos < 0 || m_rows == 0; }
    void moveFirst() { m_pos = 0; }
    void moveLast() { m_pos = m_rows - 1; }
    void moveNext() { ++m_pos; }
    void movePrevious() { --m_pos; }
    qsizetype position() const { return m_pos; }

    // The current row's field. An unknown name throws DbError, as the old record sets did.
    QString field(const QString& name) const;
    QString value(int index) const;
    // Any row, any column, without moving.
    const QString& at(qsizetype row, int column) const { return m_cells[row * m_columns.size() + column]; }

private:
    QStringList m_columns;
    QHash<QString, int> m_index;
    std::vector<QString> m_cells;
    qsizetype m_rows = 0;
    qsizetype m_pos = 0;
};
