#pragma once

#include <QString>

#include <functional>

// The one error trap of a routine: runs body; an unexpected failure rolls back an open
// transaction when asked, goes to gsErrorLog with the place text ("BAMAS105 : sSaveQuery"),
// and answers false. Screens reach it through Screen::guarded; pop-ups call it directly.
bool gfTrap(const QString& place, const std::function<void()>& body, bool rollback = false);
