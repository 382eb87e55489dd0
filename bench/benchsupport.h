#pragma once

#include <QString>

// Prints one figure in the form the bench script collects.
void report(const char* name, double value, const char* unit);
// A fresh session on embedded databases in a folder of the bench run (TORVIX_BENCH_DIR), or in
// the folder itself when it is an absolute path, with a presenter that prints boxes instead of
// showing them.
void openBenchSession(const QString& subfolder);
// The size of the chain the stock benchmarks run on: BENCH_SCALE, else the benchmark scale.
int benchScale();
// A session on the chain in `folder` (absolute), made there at `scale` first when the folder
// holds none, and brought to this build's schema when it holds an older one. Building a large
// chain or an index over its history takes longer than a statement may, so both run on a
// connection of their own without the statement time limit.
void openBenchChain(const QString& folder, int scale);
