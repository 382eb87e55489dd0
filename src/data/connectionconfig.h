#pragma once

#include <QString>

// Where the two logical databases live. A target is "sqlite:PATH", "odbc:CONNECTION-STRING"
// or a bare path (SQLite). Read from TORVIX_DB / TORVIX_UPDATE_DB, else from database.ini in
// the data folder ([DATABASE] TORVIX=, UPDATE=, STATEMENT_TIMEOUT=), else the two embedded files.
struct ConnectionConfig {
    QString torvix;
    QString update;
    // False for the default embedded file of the data folder: only that one is made (and
    // filled with the demo chain) when it is missing.
    bool torvixConfigured = false;
    bool updateConfigured = false;
    int connectTimeoutSeconds = 3;
    int statementTimeoutSeconds = 90;

    static ConnectionConfig load(const QString& dataFolder);
    static bool isOdbc(const QString& target);
    static QString sqlitePath(const QString& target);
};
