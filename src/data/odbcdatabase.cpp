#include "data/odbcdatabase.h"

#include <sql.h>
#include <sqlext.h>

#include <vector>

namespace {

// The diagnostics of a failed call: the first record's text, native number and SQLSTATE.
struct Diagnostic {
    QString state;
    qint64 native = 0;
    QString text;
};

Diagnostic diagnose(SQLSMALLINT type, SQLHANDLE handle) {
    Diagnostic d;
    SQLCHAR state[6] = {};
    SQLINTEGER native = 0;
    SQLCHAR message[1024] = {};
    SQLSMALLINT length = 0;
    for (SQLSMALLINT record = 1;; ++record) {
        const SQLRETURN rc = SQLGetDiagRec(type, handle, record, state, &native, message,
                                           sizeof(message), &length);
        if (!SQL_SUCCEEDED(rc)) {
            break;
        }
        if (record == 1) {
            d.state = QString::fromLatin1(reinterpret_cast<char*>(state));
            d.native = native;
        } else {
            d.text += QLatin1Char('\n');
        }
        d.text += QString::fromUtf8(reinterpret_cast<char*>(message));
    }
    if (d.text.isEmpty()) {
        d.text = QStringLiteral("ODBC call failed");
    }
    return d;
}

[[noreturn]] void raise(SQLSMALLINT type, SQLHANDLE handle) {
    const Diagnostic d = diagnose(type, handle);
    // SQLSTATE class 08: the link to the server is gone.
    if (d.state.startsWith(QStringLiteral("08"))) {
        throw ConnectionLost(d.text);
    }
    // 1222 lock wait ran out, 1205 chosen as a deadlock's victim; 1101, 1105 a filegroup and
    // 9002 a transaction log without room.
    DbError::Cause cause = DbError::Cause::Other;
    if (d.native == 1222 || d.native == 1205) {
        cause = DbError::Cause::Busy;
    } else if (d.native == 1101 || d.native == 1105 || d.native == 9002) {
        cause = DbError::Cause::Full;
    }
    throw DbError(d.native != 0 ? d.native : -1, d.text, cause);
}

void check(SQLRETURN rc, SQLSMALLINT type, SQLHANDLE handle) {
    if (!SQL_SUCCEEDED(rc) && rc != SQL_NO_DATA) {
        raise(type, handle);
    }
}


QString readColumn(SQLHSTMT stmt, SQLUSMALLINT column) {
    QByteArray data;
    char buffer[4096];
    for (;;) {
        SQLLEN indicator = 0;
        const SQLRETURN rc = SQLGetData(stmt, column, SQL_C_CHAR, buffer, sizeof(buffer), &indicator);
        if (rc == SQL_NO_DATA) {
            break;
        }
        check(rc, SQL_HANDLE_STMT, stmt);
        if (indicator == SQL_NULL_DATA) {
            return QString();
        }
        const qsizetype got = (indicator == SQL_NO_TOTAL || indicator >= SQLLEN(sizeof(buffer)))
                                  ? qsizetype(sizeof(buffer) - 1)
                                  : qsizetype(indicator);
        data.append(buffer, got);
        if (rc == SQL_SUCCESS) {
            break;
        }
    }
    return QString::fromUtf8(data);
}

} // namespace

// Frees a statement handle on every path out of a scope; while it lives, cancel() reaches it.
struct OdbcDatabase::StatementHandle {
    explicit StatementHandle(OdbcDatabase& db) : db(db) {}
    ~StatementHandle() {
        if (stmt) {
            {
                const std::lock_guard lock(db.m_runningLock);
                db.m_running = nullptr;
            }
            SQLFreeHandle(SQL_HANDLE_STMT, stmt);
        }
    }
    OdbcDatabase& db;
    SQLHSTMT stmt = SQL_NULL_HSTMT;
};

OdbcDatabase::OdbcDatabase(const QString& connectionString, int connectTimeoutSeconds,
                           int statementTimeoutSeconds)
    : m_statementTimeout(statementTimeoutSeconds) {
    SQLHENV env = SQL_NULL_HENV;
    SQLHDBC dbc = SQL_NULL_HDBC;
    if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &env))) {
        throw ConnectionLost(QStringLiteral("ODBC environment could not be created"));
    }
    m_env = env;
    SQLSetEnvAttr(env, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
    SQLAllocHandle(SQL_HANDLE_DBC, env, &dbc);
    m_dbc = dbc;
    SQLSetConnectAttr(dbc, SQL_ATTR_LOGIN_TIMEOUT,
                      reinterpret_cast<SQLPOINTER>(SQLULEN(connectTimeoutSeconds)), 0);
    SQLSetConnectAttr(dbc, SQL_ATTR_CONNECTION_TIMEOUT,
                      reinterpret_cast<SQLPOINTER>(SQLULEN(connectTimeoutSeconds)), 0);
    QByteArray text = connectionString.toUtf8();
    const SQLRETURN rc =
        SQLDriverConnect(dbc, nullptr, reinterpret_cast<SQLCHAR*>(text.data()), SQL_NTS, nullptr,
                         0, nullptr, SQL_DRIVER_NOPROMPT);
    if (!SQL_SUCCEEDED(rc)) {
        const Diagnostic d = diagnose(SQL_HANDLE_DBC, dbc);
        SQLFreeHandle(SQL_HANDLE_DBC, dbc);
        SQLFreeHandle(SQL_HANDLE_ENV, env);
        m_dbc = m_env = nullptr;
        throw ConnectionLost(d.text);
    }
    SQLCHAR name[64] = {};
    SQLSMALLINT length = 0;
    if (SQL_SUCCEEDED(SQLGetInfo(dbc, SQL_DBMS_NAME, name, sizeof(name), &length)) &&
        QString::fromLatin1(reinterpret_cast<char*>(name)).contains(QStringLiteral("SQLite"),
                                                                     Qt::CaseInsensitive)) {
        m_dialect = Dialect(Dialect::Engine::Sqlite);
    }
}

OdbcDatabase::~OdbcDatabase() {
    if (m_dbc) {
        SQLDisconnect(m_dbc);
        SQLFreeHandle(SQL_HANDLE_DBC, m_dbc);
    }
    if (m_env) {
        SQLFreeHandle(SQL_HANDLE_ENV, m_env);
    }
}

// Allocates the statement with the query time-out and sends the text.
void OdbcDatabase::run(StatementHandle& h, const QString& sql) {
    check(SQLAllocHandle(SQL_HANDLE_STMT, m_dbc, &h.stmt), SQL_HANDLE_DBC, m_dbc);
    {
        const std::lock_guard lock(m_runningLock);
        m_running = h.stmt;
    }
    SQLSetStmtAttr(h.stmt, SQL_ATTR_QUERY_TIMEOUT,
                   reinterpret_cast<SQLPOINTER>(SQLULEN(m_statementTimeout)), 0);
    QByteArray text = sql.toUtf8();
    check(SQLExecDirect(h.stmt, reinterpret_cast<SQLCHAR*>(text.data()), SQLINTEGER(text.size())),
          SQL_HANDLE_STMT, h.stmt);
}

namespace {

// Keeps the rows of a select in a record set.
class Collect : public RowReceiver {
public:
    void columns(const QStringList& names) override { rs = RecordSet(names); }
    void row(std::vector<QString>& cells) override { rs.appendRow(std::move(cells)); }
    RecordSet rs;
};

} // namespace

RecordSet OdbcDatabase::select(const QString& sql) {
    Collect collect;
    select(sql, collect);
    return std::move(collect.rs);
}

void OdbcDatabase::select(const QString& sql, RowReceiver& receiver) {
    StatementHandle h(*this);
    run(h, sql);
    SQLSMALLINT columns = 0;
    // Skip leading results without columns (SET NOCOUNT, inserts before the select).
    for (;;) {
        check(SQLNumResultCols(h.stmt, &columns), SQL_HANDLE_STMT, h.stmt);
        if (columns > 0 || SQLMoreResults(h.stmt) != SQL_SUCCESS) {
            break;
        }
    }
    QStringList names;
    for (SQLUSMALLINT i = 1; i <= SQLUSMALLINT(columns); ++i) {
        SQLCHAR name[256] = {};
        SQLSMALLINT length = 0;
        check(SQLDescribeCol(h.stmt, i, name, sizeof(name), &length, nullptr, nullptr, nullptr,
                             nullptr),
              SQL_HANDLE_STMT, h.stmt);
        names << QString::fromUtf8(reinterpret_cast<char*>(name));
    }
    receiver.columns(names);
    if (columns == 0) {
        return;
    }
    std::vector<QString> row;
    for (;;) {
        const SQLRETURN rc = SQLFetch(h.stmt);
        if (rc == SQL_NO_DATA) {
            break;
        }
        check(rc, SQL_HANDLE_STMT, h.stmt);
        row.assign(static_cast<size_t>(columns), QString());
        for (SQLUSMALLINT i = 1; i <= SQLUSMALLINT(columns); ++i) {
            row[i - 1] = readColumn(h.stmt, i);
        }
        receiver.row(row);
    }
}

void OdbcDatabase::cancel() {
    const std::lock_guard lock(m_runningLock);
    if (m_running) {
        SQLCancel(m_running);
    }
}

qint64 OdbcDatabase::execute(const QString& sql) {
    StatementHandle h(*this);
    run(h, sql);
    SQLRETURN rc = SQL_SUCCESS;
    qint64 affected = 0;
    do {
        SQLLEN rows = 0;
        if (SQL_SUCCEEDED(SQLRowCount(h.stmt, &rows)) && rows > 0) {
            affected += rows;
        }
        rc = SQLMoreResults(h.stmt);
        if (rc != SQL_NO_DATA) {
            check(rc, SQL_HANDLE_STMT, h.stmt);
        }
    } while (rc == SQL_SUCCESS || rc == SQL_SUCCESS_WITH_INFO);
    return affected;
}

void OdbcDatabase::begin() {
    check(SQLSetConnectAttr(m_dbc, SQL_ATTR_AUTOCOMMIT,
                            reinterpret_cast<SQLPOINTER>(SQL_AUTOCOMMIT_OFF), 0),
          SQL_HANDLE_DBC, m_dbc);
    m_inTransaction = true;
}

void OdbcDatabase::endTransaction(bool commit) {
    if (!m_inTransaction) {
        return;
    }
    m_inTransaction = false;
    const SQLRETURN rc = SQLEndTran(SQL_HANDLE_DBC, m_dbc, commit ? SQL_COMMIT : SQL_ROLLBACK);
    SQLSetConnectAttr(m_dbc, SQL_ATTR_AUTOCOMMIT, reinterpret_cast<SQLPOINTER>(SQL_AUTOCOMMIT_ON), 0);
    check(rc, SQL_HANDLE_DBC, m_dbc);
}

void OdbcDatabase::commit() { endTransaction(true); }

void OdbcDatabase::setLockWait(int milliseconds) {
    m_statementTimeout = qMax(1, (milliseconds + 999) / 1000);
    if (m_dialect.isSqlServer()) {
        execute(QStringLiteral("SET LOCK_TIMEOUT ") + QString::number(milliseconds));
    }
}

void OdbcDatabase::rollback() { endTransaction(false); }
