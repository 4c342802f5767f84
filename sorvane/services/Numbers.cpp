// Number formatting and tolerant number reading.
#include "services/Numbers.h"

#include <algorithm>
#include <cwchar>

#include "host/win/WinCrt.h"
#include "host/win/wsprintf.h"

namespace {

constexpr int kMaxDecimals = 14;

// Everything that makes a text more than a number. 'w' sits at the end.
constexpr const wchar_t* kNotNumberChars = L"+-\u00b1 ^*/:;'?!abcdefghijklmnopqrstuvxyzw\"";

bool HasDecimalSign(const CString& text)
{
    return text.Find(L'.') >= 0 || text.Find(L',') >= 0;
}

} // namespace

CString FormatDouble(double value, int decimals, int trimZeros, const wchar_t* decimalSign)
{
    const int precision = std::clamp(decimals, 0, kMaxDecimals);
    CString text(FormatWide(L"%.*f", precision, value));

    if (trimZeros && HasDecimalSign(text)) {
        while (!text.IsEmpty() && text[text.GetLength() - 1] == L'0')
            text = text.Left(text.GetLength() - 1);
        if (!text.IsEmpty() && (text[text.GetLength() - 1] == L'.' || text[text.GetLength() - 1] == L','))
            text = text.Left(text.GetLength() - 1);
    }

    // "-0" or "-0.00" from a tiny negative value: drop the sign.
    if (!text.IsEmpty() && text[0] == L'-' && Str2Double(text) == 0.0)
        text = text.Mid(1);

    if (decimalSign && *decimalSign) {
        if (std::wcscmp(decimalSign, L".") != 0)
            text.Replace(L".", decimalSign);
        if (std::wcscmp(decimalSign, L",") != 0)
            text.Replace(L",", decimalSign);
    }
    return text;
}

CString Double2Str(double value, int decimals)
{
    return FormatDouble(value, decimals, 1, nullptr);
}

double Str2Double(const wchar_t* text)
{
    if (!text || !*text)
        return 0.0;
    CString number(text);
    number.Replace(L',', L'.');
    return _wtof(number);
}

double StrToDouble(const wchar_t* text)
{
    if (!text || !*text)
        return 0.0;
    CString number(text);
    number.Replace(L',', L'.');
    double value = _wtof(number);
    if (value == 0.0 && number.Find(L'.') >= 0) {
        number.Replace(L'.', L',');
        value = _wtof(number);
    }
    return value;
}

int IsNumber(CString text)
{
    text.MakeLower();
    if (!text.IsEmpty() && text[0] == L'-') {
        text = text.Mid(1);
        text.TrimLeft();
    }
    return text.FindOneOf(kNotNumberChars) < 0 ? 1 : 0;
}
