#pragma once

// The process entry: one instance, the launcher's command line, the embedded databases, the
// main window. Returns the process exit code.
int torvixMain(int argc, char** argv);

class QString;

// The databases of the session, from the data folder's configuration: made ready, or a box that
// names what is wrong and false (the start ends). A trace database that cannot be used turns
// the trace off; notice then holds a short status line that says so, detail the whole message.
bool openSessionDatabases(const QString& dataFolder, QString& notice, QString& detail);
