#pragma once

#include <QByteArray>
#include <QString>

// The DDL of both databases (TORVIX and UPDATE) as torvix-demo --ddl prints it.

// The server script for sqlcmd, as the file the DBA loads: UTF-8 with a byte-order mark, so
// that sqlcmd reads its Korean literals right with or without "-f 65001". Each database is made
// when missing and refused when its collation is not Korean, then its tables, views and
// functions follow.
QByteArray serverDdlFile();
// The embedded databases' DDL, for comparison.
QString sqliteDdlScript();
