#include "data/connections.h"

#include "data/connectionconfig.h"
#include "data/odbcdatabase.h"

std::unique_ptr<Database> openDatabase(const QString& target, const ConnectionConfig& config,
                                       SqliteDatabase::OpenMode mode) {
    if (ConnectionConfig::isOdbc(target)) {
        return std::make_unique<OdbcDatabase>(target.mid(5), config.connectTimeoutSeconds,
                                              config.statementTimeoutSeconds);
    }
    return std::make_unique<SqliteDatabase>(ConnectionConfig::sqlitePath(target), mode,
                                            config.statementTimeoutSeconds);
}
