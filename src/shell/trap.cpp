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
    const quint64 mark = gsErrorMark();
    try {
        body();
        // A statement routine that failed inside has shown its box and logged its row; the
        // command adds its own place, so that the log says which screen and command failed.
        gsErrorLogCommand(mark, place);
        gsFlushErrorLog();
        return true;
    } catch (const DbError& error) {
        rollbackIfAsked(rollback);
        gsErrorLog(error, place, QString());
    } catch (const std::exception& error) {
        rollbackIfAsked(rollback);
        gsErrorLog(-1, QString::fromLocal8Bit(error.what()), place, QString());
    }
    gsErrorLogCommand(mark, QString()); // logged under this place already
    gsFlushErrorLog();                  // the log row held back while a transaction was open
    return false;
}
