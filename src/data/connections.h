#pragma once

#include "data/sqlitedatabase.h"

#include <QString>

#include <memory>

class Database;
struct ConnectionConfig;

// Opens one target of the configuration: an ODBC connection string or an embedded file.
// Throws ConnectionLost.
std::unique_ptr<Database> openDatabase(const QString& target, const ConnectionConfig& config,
                                       SqliteDatabase::OpenMode mode = SqliteDatabase::OpenMode::ExistingOnly);
