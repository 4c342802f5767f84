// Reading scale texts into numbers.
#include "options/ScaleText.h"

#include "services/Annotative.h"
#include "services/Numbers.h"
#include "services/Trace.h"

namespace {

// The number behind every annotative or unnamed scale.
constexpr double kAnnotativeScale = 0.01;
// The annotative word, and the empty text, which no scale list shows.
BOOL IsAnnotativeWord(const CString& strScale)
{
    return strScale.IsEmpty() || IsAnnoScaleText(strScale);
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
