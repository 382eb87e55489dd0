#include "data/demo/rowsink.h"

#include "data/database.h"
#include "data/sqlitedatabase.h"
#include "data/sqlvalue.h"

#include <sqlite3.h>

class DemoTable::Impl {
public:
    virtual ~Impl() = default;
    virtual void add(const DemoRow& row) = 0;
    virtual void flush() = 0;
};

namespace {

class SqliteImpl : public DemoTable::Impl {
public:
    SqliteImpl(SqliteDatabase& database, const QString& table, const QStringList& columns)
        : m_database(database), m_db(database.handle()) {
        sqlite3* db = m_db;
        QStringList marks;
        for (qsizetype i = 0; i < columns.size(); ++i) {
            marks << QStringLiteral("?");
        }
        const QByteArray sql = (QStringLiteral("INSERT INTO ") + table + QStringLiteral(" (") +
                                columns.join(QStringLiteral(", ")) + QStringLiteral(") VALUES (") +
                                marks.join(QStringLiteral(", ")) + QStringLiteral(")"))
                                   .toUtf8();
        if (sqlite3_prepare_v3(db, sql.constData(), int(sql.size()), SQLITE_PREPARE_PERSISTENT,
                               &m_stmt, nullptr) != SQLITE_OK) {
            throw DbError(sqlite3_errcode(db), QString::fromUtf8(sqlite3_errmsg(db)));
        }
    }
    ~SqliteImpl() override { sqlite3_finalize(m_stmt); }

    void add(const DemoRow& row) override {
        for (std::size_t i = 0; i < row.size(); ++i) {
            const DemoValue& v = row[i];
            const int at = int(i) + 1;
            switch (v.kind) {
            case DemoValue::Kind::Null:
                sqlite3_bind_null(m_stmt, at);
                break;
            case DemoValue::Kind::Int:
                sqlite3_bind_int64(m_stmt, at, v.number);
                break;
            case DemoValue::Kind::Text:
                sqlite3_bind_text(m_stmt, at, v.text.data(), int(v.text.size()), SQLITE_STATIC);
                break;
            }
        }
        // Each row is a statement of its own: the time limit is the row's, not the whole chain's.
        m_database.startClock();
        const int rc = sqlite3_step(m_stmt);
        sqlite3_reset(m_stmt);
        if (rc != SQLITE_DONE) {
            throw DbError(rc, QString::fromUtf8(sqlite3_errmsg(m_db)));
        }
    }
    void flush() override {}

private:
    SqliteDatabase& m_database;
    sqlite3* m_db;
    sqlite3_stmt* m_stmt = nullptr;
};

// Any other engine: rows gathered into INSERT ... VALUES (...), (...) texts.
class TextImpl : public DemoTable::Impl {
public:
    TextImpl(Database& db, const QString& table, const QStringList& columns)
        : m_db(db), m_head(QStringLiteral("INSERT INTO ") + table + QStringLiteral(" (") +
                           columns.join(QStringLiteral(", ")) + QStringLiteral(") VALUES ")) {}

    void add(const DemoRow& row) override {
        QStringList values;
        for (std::size_t i = 0; i < row.size(); ++i) {
            const DemoValue& v = row[i];
            switch (v.kind) {
            case DemoValue::Kind::Null:
                values << QStringLiteral("NULL");
                break;
            case DemoValue::Kind::Int:
                values << QString::number(v.number);
                break;
            case DemoValue::Kind::Text:
                values << quoted(QString::fromStdString(v.text));
                break;
            }
        }
        m_rows << QLatin1Char('(') + values.join(QStringLiteral(", ")) + QLatin1Char(')');
        if (m_rows.size() >= 200) {
            flush();
        }
    }
    void flush() override {
        if (!m_rows.isEmpty()) {
            m_db.execute(m_head + m_rows.join(QStringLiteral(",\n")));
            m_rows.clear();
        }
    }

private:
    Database& m_db;
    QString m_head;
    QStringList m_rows;
};

} // namespace

DemoTable::DemoTable(Database& db, const char* table, const char* columns) {
    const QString name = QString::fromLatin1(table);
    QStringList names = QString::fromLatin1(columns).split(QLatin1Char(','), Qt::SkipEmptyParts);
    for (QString& column : names) {
        column = column.trimmed();
    }
    if (auto* sqlite = dynamic_cast<SqliteDatabase*>(&db)) {
        m_impl = std::make_unique<SqliteImpl>(*sqlite, name, names);
    } else {
        m_impl = std::make_unique<TextImpl>(db, name, names);
    }
}

DemoTable::~DemoTable() = default;

void DemoTable::add(DemoRow& row) {
    m_impl->add(row);
    row.clear();
    ++m_rows;
}

void DemoTable::flush() {
    m_impl->flush();
}
