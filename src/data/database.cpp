#include "data/database.h"

DbError::DbError(qint64 number, const QString& description, Cause cause)
    : std::runtime_error(description.toStdString()), m_number(number), m_description(description),
      m_cause(cause) {}

void Database::select(const QString& sql, RowReceiver& receiver) {
    const RecordSet rs = select(sql);
    receiver.columns(rs.fieldNames());
    std::vector<QString> cells;
    for (qsizetype r = 0; r < rs.recordCount(); ++r) {
        cells.clear();
        for (int c = 0; c < rs.fieldCount(); ++c) {
            cells.push_back(rs.at(r, c));
        }
        receiver.row(cells);
    }
}
