#pragma once

#include <QString>
#include <QStringList>

// What one statement text cannot say the same way on both engines. Everything else is
// written as T-SQL; SQLite gets the T-SQL functions registered on its connection.
class Dialect {
public:
    enum class Engine { Sqlite, SqlServer };
    explicit Dialect(Engine engine) : m_engine(engine) {}
    Engine engine() const { return m_engine; }
    bool isSqlServer() const { return m_engine == Engine::SqlServer; }

    // a + b + ... (SQL Server) or a || b || ... (SQLite); NULL propagates on both.
    QString cat(const QStringList& parts) const;
    // CONVERT(CHAR(n), expr): text blank-padded to n (n = 30 when 0, as CONVERT(CHAR, ...)).
    QString toChar(const QString& expr, int width = 0) const;
    // CONVERT(VARCHAR, expr): text, no padding.
    QString toVarchar(const QString& expr) const;
    // CONVERT(CHAR(8), date, 112): "YYYYMMDD".
    QString ymd(const QString& expr) const;
    // CONVERT(VARCHAR, date, 120): "YYYY-MM-DD hh:mm:ss".
    QString iso(const QString& expr) const;
    // CONVERT(INT, expr) / CAST(expr AS INTEGER).
    QString toInt(const QString& expr) const;
    // WITH(NOLOCK) after a table name on SQL Server; nothing on SQLite.
    QString nolock() const;
    // DATEADD(DAY, days, 'YYYYMMDD' text) giving "YYYYMMDD" text.
    QString addDaysYmd(const QString& ymdExpr, const QString& days) const;
    // Comma-joined list of expr over a grouped select.
    QString listAgg(const QString& expr, const QString& separator = QStringLiteral(",")) const;
    // TOP n / LIMIT n: the prefix after SELECT and the suffix at the end.
    QString topPrefix(int n) const;
    QString limitSuffix(int n) const;
    // INSERT INTO table (columns) SELECT values WHERE NOT EXISTS (guard) — the MERGE ... WHEN NOT
    // MATCHED of SQL Server, spelled so that both engines take it.
    QString insertIfMissing(const QString& table, const QString& columns, const QString& values,
                            const QString& existsWhere) const;

private:
    Engine m_engine;
};
