#pragma once

#include <QString>

// The one road for a value into a statement: between apostrophes, each inner "'" doubled,
// so that no typed text can change the statement around it. Characters that an engine cannot
// hold in a literal (see storable) are dropped first.
QString quoted(const QString& value);
// The same for a number that a screen already holds as text: digits, sign and point only;
// anything else becomes 0 so that a non-numeric box cannot break the statement.
QString numeric(const QString& value);
// The text without NUL and the other C0 control characters but TAB, CR and LF: SQLite ends a
// literal at a NUL, and neither engine's tools show the others. Pasted text brings them in.
QString storable(const QString& value);
