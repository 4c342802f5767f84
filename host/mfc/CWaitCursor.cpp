// CWaitCursor's headless record of the wait state.
#include "host/mfc/CWaitCursor.h"

namespace {

struct WaitState {
    CWaitCursor::Counts counts;
    int alive = 0;
};

WaitState& State()
{
    static WaitState state;
    return state;
}

} // namespace

CWaitCursor::CWaitCursor()
{
    ++State().counts.begins;
    ++State().alive;
}

CWaitCursor::~CWaitCursor()
{
    ++State().counts.ends;
    --State().alive;
}

void CWaitCursor::Restore()
{
    ++State().counts.restores;
}

CWaitCursor::Counts CWaitCursor::GetCounts()
{
    return State().counts;
}

void CWaitCursor::ResetCounts()
{
    State().counts = Counts{};
}

bool CWaitCursor::IsWaiting()
{
    return State().alive > 0;
}
