#pragma once

/// Shows the wait cursor over the whole program while it lives: for work that can take longer than
/// half a second.
class WaitCursor
{
public:
    WaitCursor();
    ~WaitCursor();

    WaitCursor(const WaitCursor &) = delete;
    WaitCursor &operator=(const WaitCursor &) = delete;
};
