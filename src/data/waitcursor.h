#pragma once

// The hourglass while a statement runs. Nested calls balance; false clears every level, so a
// message box never shows under it.
void gsWaitCursor(bool on);

// Sets the wait cursor for a scope.
class WaitCursor {
public:
    WaitCursor() { gsWaitCursor(true); }
    ~WaitCursor() { gsWaitCursor(false); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

// The hourglass for one statement, unless a caller already shows it; leaves an outer one alone.
class StatementWait {
public:
    StatementWait();
    ~StatementWait();
    StatementWait(const StatementWait&) = delete;
    StatementWait& operator=(const StatementWait&) = delete;

private:
    bool m_mine = false;
};
