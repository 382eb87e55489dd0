#pragma once

#include "data/recordset.h"

#include <QString>

#include <optional>

class Database;

// The five statement routines. Each returns true on success and false otherwise; a failure
// has already been shown and logged through gsErrorLog when they return.
bool gfbConnectDB();
bool gfbConnectUpdateDB();
bool gfbSqlSelectDB(const QString& sql, RecordSet& rs, qint64& count);
bool gfbSqlExecuteDB(const QString& sql, qint64& affected);
bool gfbSqlExecuteUpdateDB(const QString& sql, qint64& affected);
// Overloads for callers that do not want the count.
bool gfbSqlSelectDB(const QString& sql, RecordSet& rs);
bool gfbSqlExecuteDB(const QString& sql);
// The first field of the first row ("" when there is none or the select failed).
QString gfSelectValue(const QString& sql);
// Server date "YYYYMMDD"; "" when the select fails.
QString gfRdoGetDbSysDate();
// The open main connection (after gfbConnectDB); for dialect lookups while building text.
Database& gDb();
// Shorthand for gDb().dialect() once connected; a SQLite dialect before any connection.
const class Dialect& dialect();

// While it lives, dialect() spells statements for another engine than the connection's: the
// tests read the server's text of a statement that they run on the embedded engine.
class ScopedDialect {
public:
    explicit ScopedDialect(const Dialect& dialect);
    ~ScopedDialect();
    ScopedDialect(const ScopedDialect&) = delete;
    ScopedDialect& operator=(const ScopedDialect&) = delete;

private:
    const Dialect* m_previous;
};

// A unit of work on gDb: begins on construction, rolls back on destruction unless committed.
class Transaction {
public:
    Transaction();
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    bool ok() const { return m_open; }
    // False when the commit itself failed (already shown and logged).
    bool commit();
    void rollback();

private:
    bool m_open = false;
};
