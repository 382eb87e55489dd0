#include "shell/commandline.h"

#include "data/session.h"

#include <stdexcept>

QStringList commandLineItems(const QStringList& arguments) {
    QString raw = arguments.join(QLatin1Char(' '));
    raw.remove(QLatin1Char(' '));
    raw.remove(QLatin1Char('\t'));
    return raw.split(QLatin1Char(','));
}

bool applyCommandLine(const QStringList& items) {
    if (items.size() < 2) {
        return false;
    }
    Session& s = session();
    const auto item = [&items](qsizetype i) {
        if (i >= items.size()) {
            throw std::out_of_range("Subscript out of range");
        }
        return items.at(i);
    };
    s.gsCompany = item(0);
    s.gsUserId = item(1);
    s.gsUserName = item(2);
    s.gsUserClass = item(3);
    return true;
}
