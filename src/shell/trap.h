#pragma once

#include <QString>

#include <functional>

// The one error trap of a routine: runs body; an unexpected failure rolls back an open
// transaction when asked, goes to gsErrorLog with the place text ("BAMAS105 : sSaveQuery"),
// and answers false. A statement routine that fails inside body has already shown its box and
// logged its row; the trap then logs a second row under its own place text, without a box.
// Screens reach it through Screen::guarded; pop-ups call it directly.
bool gfTrap(const QString& place, const std::function<void()>& body, bool rollback = false);
