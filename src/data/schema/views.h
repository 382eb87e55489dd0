#pragma once

#include <QString>
#include <QStringList>

#include <vector>

// A view of the main database: its columns are named once here, and each engine gets the body
// of its own dialect, so that both engines expose the same columns in the same order.
struct ViewDef {
    QString name;
    QStringList columns;
    QString sqliteBody;    // the SELECT, written for SQLite
    QString sqlServerBody; // the SELECT, written in T-SQL
};

// In creation order: a view comes after the views it reads.
const std::vector<ViewDef>& schemaViews();

// "CREATE VIEW name (columns) AS body" for one engine.
QString viewDdl(const ViewDef& view, bool sqlServer);

// The bodies per engine (schema/sqlite, schema/sqlserver).
QString sqliteViewBody(const QString& name);
QString sqlServerViewBody(const QString& name);

// The store functions FN_STOREFULLNAME, FN_STOREADDRES and FN_STORETEL of the server, each a
// batch of its own. On SQLite the same names are registered on the connection
// (registerStoreFunctions).
QStringList sqlServerFunctionDdl();

// "p01, p02, ..., p24" from a pattern holding %1 for the two-digit position.
QString eachSize(const QString& pattern, const QString& separator = QStringLiteral(", "));
