#include "data/database.h"

DbError::DbError(qint64 number, const QString& description, Cause cause)
    : std::runtime_error(description.toStdString()), m_number(number), m_description(description),
      m_cause(cause) {}
