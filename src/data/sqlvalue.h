#pragma once

#include <QString>

// The one road for a value into a statement: between apostrophes, each inner "'" doubled,
// so that no typed text can change the statement around it.
QString quoted(const QString& value);
// The same for a number that a screen already holds as text: digits, sign and point only;
// anything else becomes 0 so that a non-numeric box cannot break the statement.
QString numeric(const QString& value);
