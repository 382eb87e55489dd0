#pragma once

#include <QString>

struct ConnectionConfig;

enum class DemoData { Fill, Leave };

// What start-up learnt of the two databases.
struct PreparedDatabases {
    // The main database cannot be used: a message naming the file and what to check. The
    // program cannot start.
    QString failure;
    // The trace database cannot be used: a message naming it. The program starts without the
    // trace and says so once.
    QString traceFailure;
};

// Makes the embedded databases ready on start: creates the data folder, and on first start the
// default files of the data folder with the schema (the main one with the demo chain when
// asked), and adds any table a newer program knows. A configured file is never made: a path
// that names no file is a failure, so that a misspelt path cannot put an empty chain in place
// of the shop's data. A file that is no database is left as it is.
PreparedDatabases prepareDatabases(const ConnectionConfig& config, const QString& dataFolder,
                                   DemoData demo = DemoData::Leave);
// The same for callers that need both databases: "" or the first message.
QString prepareEmbeddedDatabases(const ConnectionConfig& config, const QString& dataFolder,
                                 DemoData demo = DemoData::Leave);
