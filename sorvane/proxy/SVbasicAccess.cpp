// SVdim: the point accessors with their index rules, the text style, and the
// per-extension flags (visibility, leader, tick type).
#include <cstdlib>

#include "proxy/SVbasic.h"
#include "services/Trace.h"

namespace {

// Tick type t (0 to 5) and its bit in an extension's flag word.
constexpr UINT kTickBit[6] = {512, 16, 32, 64, 128, 256};
// The order in which an extension's tick bits are tested.
constexpr int kTickTestOrder[6] = {1, 3, 2, 4, 5, 0};

}  // namespace

int SVdim::GetExtensions() const
{
    return m_points.length() / 4;
}

int SVdim::PointSlot(const wchar_t* pszWho, int iExt, int iSlot) const
{
    const int nExt = GetExtensions();
    const int iIndex = std::abs(iExt);
    if (iIndex >= nExt || nExt < 2) {
        TraceF(L"\n%s(%d) extensions=%d ", pszWho, iExt, nExt);
        return -1;
    }
    return 4 * iIndex + iSlot;
}

AcGePoint3d SVdim::GetPointInput(int iExt) const
{
    const int iSlot = PointSlot(L"GetPointInput", iExt, 0);
    return iSlot < 0 ? AcGePoint3d::kOrigin : m_points[iSlot];
}

AcGePoint3d SVdim::GetPointExt1(int iExt) const
{
    const int iSlot = PointSlot(L"GetPointExt1", iExt, 1);
    return iSlot < 0 ? AcGePoint3d::kOrigin : m_points[iSlot];
}

AcGePoint3d SVdim::GetPointTextRef(int iExt) const
{
    const int iSlot = PointSlot(L"GetPointTextRef", iExt, 3);
    return iSlot < 0 ? AcGePoint3d::kOrigin : m_points[iSlot];
}

AcGePoint3d SVdim::GetPointDim(int iExt) const
{
    const int nExt = GetExtensions();
    // The codes for the first two extensions; the positive ones only on short
    // chains, where they cannot be real indices.
    int iIndex = iExt;
    if (iExt == -100 || (iExt == 100 && nExt < 6))
        iIndex = 1;
    else if (iExt == -99 || (iExt == 99 && nExt < 6))
        iIndex = 0;
    iIndex = std::abs(iIndex);
    if (iIndex == nExt)
        iIndex = nExt - 1;
    if (nExt < 1 || iIndex >= nExt) {
        TraceF(L"\nGetPointDim(%d) extensions=%d ", iExt, nExt);
        return AcGePoint3d::kOrigin;
    }
    return m_points[4 * iIndex + 2];
}

AcDbObjectId SVdim::textStyleId() const
{
    assertReadEnabled();
    return m_textStyleId;
}

void SVdim::setTextStyleId(AcDbObjectId styleId)
{
    assertWriteEnabled();
    m_textStyleId = styleId;
}

BOOL SVdim::GetExtLineVisible(int iExt) const
{
    if (iExt < 0 || iExt >= m_extFlags.GetSize())
        return TRUE;
    return (m_extFlags[iExt] & kExtHidden) == 0;
}

BOOL SVdim::IsLeader(int iExt) const
{
    if (iExt < 0 || iExt >= m_extFlags.GetSize())
        return FALSE;
    return (m_extFlags[iExt] & kExtLeader) != 0;
}

int SVdim::SetExtLineVisible(int iExt, BOOL bVisible)
{
    if (iExt < 0 || iExt >= m_extFlags.GetSize())
        return 0;
    UINT& nFlags = m_extFlags[iExt];
    const int iOld = (nFlags & kExtHidden) ? 1 : 0;
    nFlags = bVisible ? (nFlags & ~kExtHidden) : (nFlags | kExtHidden);
    return iOld;
}

int SVdim::SetLeader(int iExt, BOOL bLeader)
{
    if (iExt < 0 || iExt >= m_extFlags.GetSize())
        return 0;
    UINT& nFlags = m_extFlags[iExt];
    const int iOld = (nFlags & kExtLeader) ? 1 : 0;
    nFlags = bLeader ? (nFlags | kExtLeader) : (nFlags & ~kExtLeader);
    return iOld;
}

int SVdim::GetTickType(int iExt) const
{
    const int iChainTick = static_cast<int>(arrayInt[kIntLastType]);
    if (iExt == -1) {
        for (int i = 0; i < m_extFlags.GetSize(); ++i)
            if (GetTickType(i) != iChainTick)
                return -1;
        return iChainTick;
    }
    if (iExt < 0 || iExt >= m_extFlags.GetSize())
        return iChainTick;
    for (int iTick : kTickTestOrder)
        if (m_extFlags[iExt] & kTickBit[iTick])
            return iTick;
    return iChainTick;
}

BOOL SVdim::SetTickType(int iExt, int iTick)
{
    if (iTick < 0 || iTick > 5)
        return FALSE;
    if (iExt == -1) {
        arrayInt[kIntLastType] = static_cast<UINT>(iTick);
        for (int i = 0; i < m_extFlags.GetSize(); ++i)
            m_extFlags[i] &= ~kTickBitsMask;
        return TRUE;
    }
    if (iExt < 0 || iExt >= m_extFlags.GetSize())
        return FALSE;
    m_extFlags[iExt] &= ~kTickBitsMask;
    if (iTick != static_cast<int>(arrayInt[kIntLastType]))
        m_extFlags[iExt] |= kTickBit[iTick];
    return TRUE;
}
