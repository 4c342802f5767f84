// Handle text: parsing hex and writing it upper-case without leading zeros.
#include "host/db/AcDbHandle.h"

#include <cwctype>

AcDbHandle::AcDbHandle(const ACHAR* hexText)
{
    if (!hexText)
        return;
    const ACHAR* p = hexText;
    while (*p && std::iswspace(static_cast<wint_t>(*p)))
        ++p;
    Adesk::UInt64 value = 0;
    int digits = 0;
    for (; *p && !std::iswspace(static_cast<wint_t>(*p)); ++p) {
        int d;
        if (*p >= L'0' && *p <= L'9')
            d = *p - L'0';
        else if (*p >= L'a' && *p <= L'f')
            d = *p - L'a' + 10;
        else if (*p >= L'A' && *p <= L'F')
            d = *p - L'A' + 10;
        else
            return;
        if (++digits > 16)
            return;
        value = (value << 4) | static_cast<Adesk::UInt64>(d);
    }
    while (*p) {
        if (!std::iswspace(static_cast<wint_t>(*p)))
            return;
        ++p;
    }
    m_value = value;
}

void AcDbHandle::getIntoAsciiBuffer(ACHAR* buffer, size_t bufferSize) const
{
    if (!buffer || bufferSize == 0)
        return;
    ACHAR digits[17];
    int n = 0;
    Adesk::UInt64 v = m_value;
    do {
        digits[n++] = L"0123456789ABCDEF"[v & 0xF];
        v >>= 4;
    } while (v != 0);
    size_t out = 0;
    while (n > 0 && out + 1 < bufferSize)
        buffer[out++] = digits[--n];
    buffer[out] = L'\0';
}
