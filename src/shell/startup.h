#pragma once

// The process entry: one instance, the launcher's command line, the embedded databases, the
// main window. Returns the process exit code.
int torvixMain(int argc, char** argv);
