#pragma once

#include <QString>
#include <QStringList>

#include <vector>

class Database;

// The schema as data: one description from which the DDL of both engines is generated, so
// that the two cannot drift. Views and functions that need engine-specific text are kept as
// SQL files per engine beside this (schema/sqlite, schema/sqlserver).
enum class ColumnType { Text, Int, BigInt, Money, DateTime };

struct ColumnDef {
    QString name;
    ColumnType type = ColumnType::Text;
    int width = 0;      // text: SQL Server width in bytes (0 = VARCHAR(255)); ignored elsewhere
    bool fixed = false; // CHAR rather than VARCHAR on SQL Server
};

struct TableDef {
    QString name;
    std::vector<ColumnDef> columns;
    QStringList key;                             // primary key columns, may be empty
    QStringList indexes;                         // extra indexes, each "COL1, COL2"
    QString database = QStringLiteral("TORVIX"); // or "UPDATE"
};

// Every table of a logical database ("TORVIX" or "UPDATE"), in creation order.
const std::vector<TableDef>& schemaTables();
const TableDef* findTable(const QString& name);
// The byte width of a text column as declared; 0 for another type, an unknown column or a text
// of the default width.
int textColumnBytes(const QString& table, const QString& column);

QString sqliteTableDdl(const TableDef& table);
QString sqlServerTableDdl(const TableDef& table);
// The whole DDL of one logical database for one engine, tables then views and functions.
QString schemaDdl(const QString& database, bool sqlServer);

// Creates whatever of the schema is missing on an embedded database. Idempotent.
void createSchema(Database& db, const QString& database);
