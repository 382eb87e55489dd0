#pragma once

#include <QString>

struct sqlite3;

// Registers the T-SQL scalar functions the statements use (LEN, REPLICATE, GETDATE, YEAR,
// CHARINDEX, SPACE and the stand-ins for LEFT/RIGHT).
void registerTsqlFunctions(sqlite3* db);

// SQLite reads ISNULL, LEFT and RIGHT as keywords and cannot call a function by a dotted name,
// so the few T-SQL spellings it cannot parse are renamed outside literals and comments:
// ISNULL( -> IFNULL(, LEFT( -> TSQL_LEFT(, RIGHT( -> TSQL_RIGHT(, DBO.NAME( -> NAME(.
QString rewriteForSqlite(const QString& sql);
