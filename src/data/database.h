#pragma once

#include "data/recordset.h"

#include <QString>

#include <memory>
#include <stdexcept>

class Dialect;

// A failure reported by a database engine. `number` is the engine's own error number;
// `description` the engine's text, shown to the user and logged as it stands. `cause` sorts out
// the failures that pass by themselves: another user holding the database, a full disk.
class DbError : public std::runtime_error {
public:
    enum class Cause { Other, Busy, Full };
    DbError(qint64 number, const QString& description, Cause cause = Cause::Other);
    qint64 number() const { return m_number; }
    QString description() const { return m_description; }
    Cause cause() const { return m_cause; }

private:
    qint64 m_number;
    QString m_description;
    Cause m_cause;
};

// The database is gone (cannot open, I/O error, not a database, corrupt, link lost). The old
// program met this as the provider's general failure 0x80004005 and ended after the box.
class ConnectionLost : public DbError {
public:
    static constexpr qint64 GeneralFailure = 0x80004005LL;
    explicit ConnectionLost(const QString& description)
        : DbError(GeneralFailure, description) {}
};

// Takes the rows of a select one by one as the engine hands them out.
class RowReceiver {
public:
    virtual ~RowReceiver() = default;
    // Once, before the first row.
    virtual void columns(const QStringList& names) = 0;
    // One row, a cell per column; the receiver may move the cells out.
    virtual void row(std::vector<QString>& cells) = 0;
};

// One open connection. Statements are text; a select returns every row at once.
class Database {
public:
    virtual ~Database() = default;
    virtual RecordSet select(const QString& sql) = 0;
    // The same select, its rows handed to `receiver` while the statement still runs.
    virtual void select(const QString& sql, RowReceiver& receiver);
    // Stops the statement running on this connection now, which then fails with the engine's
    // own error. Callable from any thread while another one runs the statement; a statement
    // that has not started yet is not affected, so a caller that must be sure asks again.
    virtual void cancel() {}
    // A text may hold several statements separated by ";". Returns the rows affected.
    virtual qint64 execute(const QString& sql) = 0;
    virtual void begin() = 0;
    virtual void commit() = 0;
    virtual void rollback() = 0;
    virtual bool inTransaction() const = 0;
    virtual const Dialect& dialect() const = 0;
    // Statement time limit in seconds (90 in production; tests lower it). A lock held by another
    // user is waited for as long.
    virtual void setStatementTimeout(int seconds) = 0;
    // Waits at most this long for a lock held by another user (the trace's connection, which
    // must never hold up a save).
    virtual void setLockWait(int milliseconds) = 0;
};
