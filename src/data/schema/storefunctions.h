#pragma once

struct sqlite3;

// FN_STOREFULLNAME, FN_STOREADDRES and FN_STORETEL (company, store) on an embedded connection:
// the store's full name, address and telephone number from C_STORE, NULL for an unknown store.
// Statements write them as DBO.FN_...(...); the connection drops the "DBO." before SQLite sees
// them. Register on every connection that may run such a statement.
void registerStoreFunctions(sqlite3* db);
