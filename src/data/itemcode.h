#pragma once

#include <QString>

class Dialect;

// The item code, composed from the parts that C_UNIFORM keeps: season (1), sex (1), sequence
// (2, padded by CONVERT(CHAR(2), ...)) and, for a common item, its set sequence (2). Every other
// table keeps the whole code. `alias` is the table's alias in the statement ("" for none).

// Season, sex and sequence: the code of a base item, and of the item a common one belongs to.
QString itemBaseCode(const Dialect& d, const QString& alias = QString());
// The base code and the common-set sequence: UNIFORMCD as the other tables hold it.
QString itemFullCode(const Dialect& d, const QString& alias = QString());
// Season, sex and sequence each trimmed, without the sequence's padding: the code that the item
// master lists its base items by.
QString itemListCode(const Dialect& d, const QString& alias = QString());
// The four parts as stored, untrimmed: how the exclusive items (C_TRANSUNIFORM.UNIFORMCD) are
// matched to the item master.
QString itemJoinCode(const Dialect& d, const QString& alias = QString());
// The join of C_UNIFORM (alias) to a row of another table by company and whole code.
QString itemJoin(const Dialect& d, const QString& alias, const QString& otherAlias,
                 const QString& otherCode = QStringLiteral("UNIFORMCD"));
