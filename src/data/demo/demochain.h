#pragma once

#include <QDate>

class Database;

// The demo chain's company and the user that scripts/run starts the program with.
inline constexpr char kDemoCompany[] = "01";
inline constexpr char kDemoUserId[] = "admin";
inline constexpr char kDemoUserName[] = "관리자";
inline constexpr char kDemoUserClass[] = "S";

// Scale that gives at least 500,000 slip lines (S_ORDERDETAIL), the size benchmarks run on.
inline constexpr int kDemoBenchmarkScale = 100;

// Fills an empty main database (schema already made) with a chain of school-uniform shops:
// program list and rights, code groups, brands with size tables, stores, schools, items,
// prices, contracts and students, stock documents and the tills' slips with everything that
// hangs from them. The same seed, scale and day give the same chain, row for row. The chain's
// history ends on `today`, so the screens' default dates find it. Scale 1 is a few thousand
// slip lines; slip lines grow linearly with the scale. Runs in one transaction.
void generateDemoChain(Database& db, int seed, int scale,
                       const QDate& today = QDate::currentDate());

// True when the main database holds no chain yet (no store of the demo company), so that a
// first start knows to generate one.
bool demoChainMissing(Database& db);
