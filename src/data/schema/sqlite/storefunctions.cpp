#include "data/schema/storefunctions.h"

#include <sqlite3.h>

namespace {

// The function's user data: the column it reads.
void storeColumn(sqlite3_context* ctx, int argc, sqlite3_value** argv) {
    const auto* column = static_cast<const char*>(sqlite3_user_data(ctx));
    if (argc != 2 || sqlite3_value_type(argv[0]) == SQLITE_NULL ||
        sqlite3_value_type(argv[1]) == SQLITE_NULL) {
        sqlite3_result_null(ctx);
        return;
    }
    sqlite3* db = sqlite3_context_db_handle(ctx);
    char* sql =
        sqlite3_mprintf("SELECT %s FROM C_STORE WHERE COMPANY = ?1 AND STORECD = ?2", column);
    sqlite3_stmt* stmt = nullptr;
    int rc = sqlite3_prepare_v2(db, sql, -1, &stmt, nullptr);
    sqlite3_free(sql);
    if (rc != SQLITE_OK) {
        sqlite3_result_error(ctx, sqlite3_errmsg(db), -1);
        sqlite3_finalize(stmt);
        return;
    }
    sqlite3_bind_value(stmt, 1, argv[0]);
    sqlite3_bind_value(stmt, 2, argv[1]);
    rc = sqlite3_step(stmt);
    if (rc == SQLITE_ROW) {
        sqlite3_result_value(ctx, sqlite3_column_value(stmt, 0));
    } else if (rc == SQLITE_DONE) {
        sqlite3_result_null(ctx);
    } else {
        sqlite3_result_error(ctx, sqlite3_errmsg(db), -1);
    }
    sqlite3_finalize(stmt);
}

} // namespace

void registerStoreFunctions(sqlite3* db) {
    static const char* const functions[][2] = {{"FN_STOREFULLNAME", "STOREFULLNAME"},
                                               {"FN_STOREADDRES", "STOREADDRES"},
                                               {"FN_STORETEL", "STORETEL"}};
    for (const auto& fn : functions) {
        // Reads a table, so not deterministic: a store's name may change between statements.
        sqlite3_create_function_v2(db, fn[0], 2, SQLITE_UTF8, const_cast<char*>(fn[1]), storeColumn,
                                   nullptr, nullptr, nullptr);
    }
}
