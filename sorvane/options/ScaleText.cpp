// Reading scale texts into numbers.
#include "options/ScaleText.h"

#include "services/Numbers.h"
#include "services/Trace.h"

namespace {

// The number behind every annotative or unnamed scale.
constexpr double kAnnotativeScale = 0.01;
// String-table entry of the word the scale lists show for annotative scale.
constexpr UINT kIdsAnnoScaleWord = 7102;

BOOL IsAnnotativeWord(const CString& strScale)
{
    if (strScale.IsEmpty() || strScale.CollateNoCase(L"AnnoScale") == 0 || strScale.CollateNoCase(L"BMaß") == 0)
        return TRUE;
    // A language file may translate the word; its own form counts too.
    CString strWord;
    return strWord.LoadString(kIdsAnnoScaleWord) && !strWord.IsEmpty() && strScale.CollateNoCase(strWord) == 0;
}

} // namespace

double ScaleStr2Double(const CString& strScale)
{
    if (IsAnnotativeWord(strScale))
        return kAnnotativeScale;
    double dScale = 0.0;
    const int iColon = strScale.Find(L':');
    if (iColon < 0) {
        dScale = StrToDouble(strScale);
    } else {
        double dA = StrToDouble(strScale.Left(iColon));
        double dB = StrToDouble(strScale.Mid(iColon + 1));
        if (dB == 0.0)
            dB = 100.0;
        if (dA == 0.0)
            dA = 1.0;
        dScale = dA / dB;
    }
    if (dScale == 0.0) {
        TraceF(L"\n !!!!!!!!!! ScaleStr2Double(%s) ", strScale.GetString());
        dScale = 1.0;
    }
    return dScale;
}
