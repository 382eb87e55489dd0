#include "shell/trap.h"

#include "data/database.h"
#include "data/messages.h"
#include "data/session.h"

#include <exception>

namespace {

void rollbackIfAsked(bool rollback) {
    if (rollback && session().gDb && session().gDb->inTransaction()) {
        try {
            session().gDb->rollback();
        } catch (const DbError&) {
            // Nothing left to undo.
        }
    }
}

} // namespace

bool gfTrap(const QString& place, const std::function<void()>& body, bool rollback) {
    try {
        body();
        return true;
    } catch (const DbError& error) {
        rollbackIfAsked(rollback);
        gsErrorLog(error, place, QString());
    } catch (const std::exception& error) {
        rollbackIfAsked(rollback);
        gsErrorLog(-1, QString::fromLocal8Bit(error.what()), place, QString());
    }
    gsFlushErrorLog(); // the log row held back while a transaction was open
    return false;
}
