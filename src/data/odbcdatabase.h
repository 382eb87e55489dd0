#pragma once

#include "data/database.h"
#include "data/dialect.h"

#include <mutex>

// The central server through ODBC (unixODBC + FreeTDS on Linux, the system driver on
// Windows). Text goes through the narrow API as UTF-8: with FreeTDS, put ClientCharset=UTF-8
// in the connection string.
class OdbcDatabase : public Database {
public:
    // Throws ConnectionLost when the connection cannot be made within the connect limit.
    OdbcDatabase(const QString& connectionString, int connectTimeoutSeconds = 3,
                 int statementTimeoutSeconds = 90);
    ~OdbcDatabase() override;
    OdbcDatabase(const OdbcDatabase&) = delete;
    OdbcDatabase& operator=(const OdbcDatabase&) = delete;

    RecordSet select(const QString& sql) override;
    void select(const QString& sql, RowReceiver& receiver) override;
    // SQLCancel on the statement that runs now.
    void cancel() override;
    qint64 execute(const QString& sql) override;
    void begin() override;
    void commit() override;
    void rollback() override;
    bool inTransaction() const override { return m_inTransaction; }
    const Dialect& dialect() const override { return m_dialect; }
    void setStatementTimeout(int seconds) override { m_statementTimeout = seconds; }
    // The query limit in whole seconds and the server's lock limit.
    void setLockWait(int milliseconds) override;

private:
    struct StatementHandle;
    void run(StatementHandle& h, const QString& sql);
    void endTransaction(bool commit);
    void* m_env = nullptr;
    void* m_dbc = nullptr;
    Dialect m_dialect{Dialect::Engine::SqlServer};
    int m_statementTimeout;
    bool m_inTransaction = false;
    // The statement that runs now, for cancel() from another thread.
    std::mutex m_runningLock;
    void* m_running = nullptr;
};
