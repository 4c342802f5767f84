// CWaitCursor: the hourglass shown during long operations. Headless, it only
// counts how often the wait state was entered and left, for tests to read.
#pragma once

class CWaitCursor {
public:
    CWaitCursor();
    ~CWaitCursor();
    CWaitCursor(const CWaitCursor&) = delete;
    CWaitCursor& operator=(const CWaitCursor&) = delete;

    // Shows the wait state again after something (a message box) ended it.
    void Restore();

    struct Counts {
        int begins = 0;    // constructions
        int ends = 0;      // destructions
        int restores = 0;  // Restore calls
    };
    static Counts GetCounts();
    static void ResetCounts();
    // True while at least one CWaitCursor exists.
    static bool IsWaiting();
};
