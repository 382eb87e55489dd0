#include "data/schema/schema.h"

#include "data/database.h"
#include "data/dialect.h"
#include "data/recordset.h"
#include "data/schema/tables.h"
#include "data/schema/views.h"
#include "data/sqlvalue.h"

#include <algorithm>

namespace {

ColumnDef text(const char* name, int width = 0, bool fixed = false) {
    return ColumnDef{QString::fromLatin1(name), ColumnType::Text, width, fixed};
}
ColumnDef integer(const char* name) {
    return ColumnDef{QString::fromLatin1(name), ColumnType::Int};
}
ColumnDef datetime(const char* name) {
    return ColumnDef{QString::fromLatin1(name), ColumnType::DateTime};
}

std::vector<TableDef> logTables() {
    return {
        TableDef{QStringLiteral("PROGLIST"),
                 {text("PROGID", 20), text("UPPROGID", 20), text("HANNM", 100), text("FORMNO", 10),
                  text("GUBUN", 1), text("USEYN", 1), text("SYSID", 10), text("BIGID", 10),
                  text("SMLID", 10)},
                 {QStringLiteral("PROGID")}},
        TableDef{QStringLiteral("C_LOG"),
                 {datetime("LOGID"), text("COMPANY", 10), text("USERID", 20), text("PROGID", 20),
                  text("VERSION", 50)},
                 {}},
        TableDef{QStringLiteral("C_USERLOG"),
                 {text("COMPANY", 10), text("USERID", 20), text("PROGID", 20),
                  text("STYYYYMMDD", 8), text("STHHMMSS", 6), text("EDYYYYMMDD", 8),
                  text("EDHHMMSS", 6), integer("USETIME")},
                 {}},
        TableDef{QStringLiteral("C_ERROR"),
                 {datetime("ERRTIME"), ColumnDef{QStringLiteral("ERRNO"), ColumnType::BigInt},
                  text("ERRPROG", 100), text("ERRMSG", 500), text("ERROTHER", 3000)},
                 {}},
        TableDef{QStringLiteral("SQLTEXT"),
                 {text("SQLTEXT", -1), text("REGDTTM", 30)},
                 {},
                 {},
                 QStringLiteral("UPDATE")},
    };
}

QString sqliteType(const ColumnDef& column) {
    switch (column.type) {
    case ColumnType::Int:
    case ColumnType::BigInt:
        return QStringLiteral("INTEGER");
    case ColumnType::Money:
        return QStringLiteral("NUMERIC");
    case ColumnType::DateTime:
        return QStringLiteral("TEXT");
    case ColumnType::Text:
        break;
    }
    // Comparisons ignore trailing blanks, as on the server's CHAR columns.
    return QStringLiteral("TEXT COLLATE RTRIM");
}

QString sqlServerType(const ColumnDef& column) {
    switch (column.type) {
    case ColumnType::Int:
        return QStringLiteral("INT");
    case ColumnType::BigInt:
        return QStringLiteral("BIGINT");
    case ColumnType::Money:
        return QStringLiteral("MONEY");
    case ColumnType::DateTime:
        return QStringLiteral("DATETIME");
    case ColumnType::Text:
        break;
    }
    if (column.width < 0) {
        return QStringLiteral("VARCHAR(MAX)");
    }
    const int width = column.width > 0 ? column.width : 255;
    return QStringLiteral("%1(%2)")
        .arg(column.fixed ? QStringLiteral("CHAR") : QStringLiteral("VARCHAR"))
        .arg(width);
}

QString tableDdl(const TableDef& table, bool sqlServer) {
    QStringList lines;
    for (const ColumnDef& column : table.columns) {
        lines << QStringLiteral("    ") + column.name + QLatin1Char(' ') +
                     (sqlServer ? sqlServerType(column) : sqliteType(column)) +
                     (table.key.contains(column.name) ? QStringLiteral(" NOT NULL") : QString());
    }
    if (!table.key.isEmpty()) {
        lines << QStringLiteral("    PRIMARY KEY (") + table.key.join(QStringLiteral(", ")) +
                     QLatin1Char(')');
    }
    QString ddl = (sqlServer ? QStringLiteral("CREATE TABLE ")
                             : QStringLiteral("CREATE TABLE IF NOT EXISTS ")) +
                  table.name + QStringLiteral(" (\n") + lines.join(QStringLiteral(",\n")) +
                  QStringLiteral("\n);\n");
    int n = 0;
    for (const QString& index : table.indexes) {
        ddl += (sqlServer ? QStringLiteral("CREATE INDEX ")
                          : QStringLiteral("CREATE INDEX IF NOT EXISTS ")) +
               QStringLiteral("IX_%1_%2 ON %1 (%3);\n").arg(table.name).arg(++n).arg(index);
    }
    return ddl;
}

} // namespace

const std::vector<TableDef>& schemaTables() {
    static const std::vector<TableDef> tables = [] {
        std::vector<TableDef> all = logTables();
        for (auto part : {masterTables(), stockTables(), slipTables()}) {
            all.insert(all.end(), part.begin(), part.end());
        }
        for (const QString& name : backedUpSlipTables()) {
            const auto source = std::find_if(all.begin(), all.end(),
                                             [&](const TableDef& t) { return t.name == name; });
            all.push_back(backupTable(*source));
        }
        return all;
    }();
    return tables;
}

const TableDef* findTable(const QString& name) {
    for (const TableDef& table : schemaTables()) {
        if (table.name.compare(name, Qt::CaseInsensitive) == 0) {
            return &table;
        }
    }
    return nullptr;
}

int textColumnBytes(const QString& table, const QString& column) {
    if (const TableDef* def = findTable(table)) {
        for (const ColumnDef& c : def->columns) {
            if (c.name.compare(column, Qt::CaseInsensitive) == 0) {
                return c.type == ColumnType::Text ? c.width : 0;
            }
        }
    }
    return 0;
}

QString sqliteTableDdl(const TableDef& table) {
    return tableDdl(table, false);
}

QString sqlServerTableDdl(const TableDef& table) {
    return tableDdl(table, true);
}

QString schemaDdl(const QString& database, bool sqlServer) {
    // On the server a view or function must open its own batch.
    const QString batchEnd = sqlServer ? QStringLiteral("GO\n") : QString();
    QString ddl;
    for (const TableDef& table : schemaTables()) {
        if (table.database == database) {
            ddl += tableDdl(table, sqlServer);
        }
    }
    if (database != QLatin1String("TORVIX")) {
        return ddl;
    }
    ddl += batchEnd;
    for (const ViewDef& view : schemaViews()) {
        ddl += viewDdl(view, sqlServer) + (sqlServer ? batchEnd : QStringLiteral(";\n"));
    }
    if (sqlServer) {
        for (const QString& function : sqlServerFunctionDdl()) {
            ddl += function + batchEnd;
        }
    }
    return ddl;
}

void createSchema(Database& db, const QString& database) {
    const bool sqlServer = db.dialect().isSqlServer();
    for (const TableDef& table : schemaTables()) {
        if (table.database != database) {
            continue;
        }
        if (sqlServer) {
            db.execute(QStringLiteral("IF OBJECT_ID(") + quoted(table.name) +
                       QStringLiteral(") IS NULL EXEC(") + quoted(tableDdl(table, true)) +
                       QStringLiteral(")"));
        } else {
            db.execute(tableDdl(table, false));
        }
    }
    if (database != QLatin1String("TORVIX")) {
        return;
    }
    if (sqlServer) {
        // The server's views and functions are the DBA's to change; only missing ones are made.
        for (const ViewDef& view : schemaViews()) {
            db.execute(QStringLiteral("IF OBJECT_ID(") + quoted(view.name) +
                       QStringLiteral(") IS NULL EXEC(") + quoted(viewDdl(view, true)) +
                       QStringLiteral(")"));
        }
        const QStringList names{QStringLiteral("FN_STOREFULLNAME"),
                                QStringLiteral("FN_STOREADDRES"), QStringLiteral("FN_STORETEL")};
        const QStringList functions = sqlServerFunctionDdl();
        for (qsizetype i = 0; i < functions.size(); ++i) {
            db.execute(QStringLiteral("IF OBJECT_ID(") + quoted(QStringLiteral("DBO.") + names[i]) +
                       QStringLiteral(") IS NULL EXEC(") + quoted(functions[i]) +
                       QStringLiteral(")"));
        }
        return;
    }
    // Embedded views are ours: made anew each start, so a newer program's definition wins.
    QString ddl;
    for (auto view = schemaViews().rbegin(); view != schemaViews().rend(); ++view) {
        ddl += QStringLiteral("DROP VIEW IF EXISTS ") + view->name + QStringLiteral(";\n");
    }
    for (const ViewDef& view : schemaViews()) {
        ddl += viewDdl(view, false) + QStringLiteral(";\n");
    }
    db.begin();
    try {
        db.execute(ddl);
        db.commit();
    } catch (...) {
        db.rollback();
        throw;
    }
}
