// Runs a piece of work so that no exception leaves it: helpers report by return value and
// trace, never by throwing across their boundary.
#pragma once

#include <utility>

#include "host/mfc/CException.h"

// Runs f(); true when it returned normally, false when it threw (the platform's
// exceptions, caught by pointer, are freed).
template <typename F>
bool RunGuarded(F&& f)
{
    try {
        std::forward<F>(f)();
        return true;
    } catch (CException* e) {
        e->Delete();
    } catch (...) {
    }
    return false;
}
