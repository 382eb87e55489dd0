#pragma once

#include <QStringList>

// The launcher's command line: every blank removed, then split on ",". On Linux the process
// arguments are joined first, since the shell has already split them at blanks.
QStringList commandLineItems(const QStringList& arguments);

// Copies the items into the session record. Fewer than two items: false (not logged in). Two or
// three items fail on the missing one, as the old program did: throws std::out_of_range.
bool applyCommandLine(const QStringList& items);
