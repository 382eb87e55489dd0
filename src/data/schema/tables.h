#pragma once

#include "data/schema/schema.h"

#include <vector>

// The tables of the main database beyond the logs: masters, stock documents, the till's slips
// and the back-up copies that a slip deletion fills.
std::vector<TableDef> masterTables();
std::vector<TableDef> stockTables();
std::vector<TableDef> slipTables();

// The slip tables whose rows are copied by "INSERT INTO X_DEL_BACK SELECT * FROM X" before a
// slip is deleted, in the order of that deletion.
QStringList backedUpSlipTables();
// The back-up twin of a table: the same columns in the same order, no key, so that a slip
// deleted twice can be backed up twice.
TableDef backupTable(const TableDef& source);
