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
