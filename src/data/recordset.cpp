#include "data/recordset.h"

#include "data/database.h"

RecordSet::RecordSet(QStringList columns) : m_columns(std::move(columns)) {
    for (int i = 0; i < m_columns.size(); ++i) {
        m_index.insert(m_columns.at(i).toUpper(), i);
    }
}

void RecordSet::appendRow(std::vector<QString>&& row) {
    row.resize(size_t(m_columns.size()));
    for (auto& cell : row) {
        m_cells.push_back(std::move(cell));
    }
    ++m_rows;
}

void RecordSet::appendRows(std::vector<QString>&& cells) {
    const auto width = size_t(m_columns.size());
    if (width == 0 || cells.empty()) {
        return;
    }
    cells.resize(cells.size() + (width - cells.size() % width) % width);
    m_rows += qsizetype(cells.size() / width);
    if (m_cells.empty()) {
        m_cells = std::move(cells);
        return;
    }
    m_cells.insert(m_cells.end(), std::make_move_iterator(cells.begin()),
                   std::make_move_iterator(cells.end()));
}

void RecordSet::reserveRows(qsizetype rows) { m_cells.reserve(size_t(rows * m_columns.size())); }

int RecordSet::fieldIndex(const QString& name) const {
    auto found = m_index.constFind(name);
    if (found == m_index.constEnd()) {
        found = m_index.constFind(name.toUpper());
    }
    return found == m_index.constEnd() ? -1 : found.value();
}

QString RecordSet::field(const QString& name) const {
    const int index = fieldIndex(name);
    if (index < 0) {
        throw DbError(3265, QStringLiteral("Item cannot be found in the collection: ") + name);
    }
    return value(index);
}

QString RecordSet::value(int index) const {
    if (eof() || bof() || index < 0 || index >= m_columns.size()) {
        throw DbError(3021, QStringLiteral("Either BOF or EOF is True, or the current record has "
                                           "been deleted."));
    }
    return m_cells[size_t(m_pos * m_columns.size() + index)];
}
