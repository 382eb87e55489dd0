#pragma once

#include <QString>

// Prints one figure in the form the bench script collects.
void report(const char* name, double value, const char* unit);
// A fresh session on embedded databases in a folder of the bench run (TORVIX_BENCH_DIR), with a
// presenter that prints boxes instead of showing them.
void openBenchSession(const QString& subfolder);
