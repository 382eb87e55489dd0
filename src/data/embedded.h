#pragma once

#include <QString>

struct ConnectionConfig;

// Makes the embedded databases ready on start: creates the data folder and both files on first
// start with the schema (and the demo chain when the main database is new), and adds any table
// a newer program knows. Returns "" or a message that names the file at fault; a file that is
// no database is left as it is.
enum class DemoData { Fill, Leave };
QString prepareEmbeddedDatabases(const ConnectionConfig& config, const QString& dataFolder,
                                 DemoData demo = DemoData::Leave);
