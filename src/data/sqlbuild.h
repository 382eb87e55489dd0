#pragma once

#include <QList>
#include <QString>

// The statements that every master screen writes, built in one style from the schema: the
// insert and update of a row from its column assignments with the table's audit columns, and
// the keys and sequences that the statements compute for themselves.

// One column and the SQL expression it takes: a quoted value, a number, GETDATE(), a sub-select.
struct Assignment {
    QString column;
    QString value;
};
using Assignments = QList<Assignment>;

// " INSERT INTO T (A, B) "  " VALUES (x, y)"
QString sqlInsert(const QString& table, const Assignments& columns);
// " UPDATE T SET A = x, B = y" followed by the where text as given ("  WHERE COMPANY = ...").
QString sqlUpdate(const QString& table, const Assignments& columns, const QString& where);

// The audit columns the schema declares for the table: REGDT, REGUSER, UPDDT, UPDUSER on an
// insert, UPDDT and UPDUSER on an update, GETDATE() and the session's user. None for a table
// without them.
Assignments auditOnInsert(const QString& table);
Assignments auditOnUpdate(const QString& table);

// "  WHERE COMPANY = '01'" for the session's company, and "    AND COL = 'v'" for more.
QString whereCompany();
// The session's company as a quoted value, for the statements that name it in another place.
QString quotedCompany();
QString andEquals(const QString& column, const QString& value);

// The next code of `width` digits in a sub-select: the highest code plus one, zero-padded
// (RTRIM(REPLICATE('0', n - LEN(ISNULL(MAX(col),0)+1)) + CAST(ISNULL(MAX(col),0)+1 AS CHAR))).
// A code that outgrows the width makes REPLICATE's count negative and the key NULL, which the
// insert then refuses. `scope` is the select's where text.
QString nextCodeByMax(const QString& table, const QString& column, int width, const QString& scope);
// The same padded to `width`, but the row count plus one: after a delete it can collide.
QString nextCodeByCount(const QString& table, int width, const QString& scope);
// A number per scope (store and day): CASE WHEN COUNT(col) = 0 THEN  1 ELSE MAX(col) + 1 END.
QString nextSequence(const QString& table, const QString& column, const QString& scope);
