// Group code ranges and the kind of value each carries.
#include "host/db/AcDbDxfCode.h"

AcDb::DxfValueKind acdbGroupCodeKind(int c)
{
    using namespace AcDb;
    if (c < 0)
        return (c == -1 || c == -2) ? kDxfKindObjectId : kDxfKindString;  // -1/-2 entity names, -3..-6 markers
    if (c == 5 || c == 105)
        return kDxfKindHandle;
    if (c <= 9)
        return kDxfKindString;
    if (c <= 37)
        return kDxfKindPoint;
    if (c <= 59)
        return kDxfKindDouble;
    if (c <= 79)
        return kDxfKindInt16;
    if (c <= 89)
        return kDxfKindUnknown;
    if (c <= 99)
        return kDxfKindInt32;
    if (c == 100 || c == 101 || c == 102)
        return kDxfKindString;
    if (c >= 110 && c <= 139)
        return kDxfKindPoint;
    if (c >= 140 && c <= 149)
        return kDxfKindDouble;
    if (c >= 160 && c <= 169)
        return kDxfKindInt64;
    if (c >= 170 && c <= 179)
        return kDxfKindInt16;
    if (c >= 210 && c <= 239)
        return kDxfKindPoint;
    if (c >= 270 && c <= 279)
        return kDxfKindInt16;
    if (c >= 280 && c <= 289)
        return kDxfKindInt8;
    if (c >= 290 && c <= 299)
        return kDxfKindBool;
    if (c >= 300 && c <= 309)
        return kDxfKindString;
    if (c >= 310 && c <= 319)
        return kDxfKindBinary;
    if (c >= 320 && c <= 329)
        return kDxfKindHandle;
    if (c >= 330 && c <= 369)
        return kDxfKindObjectId;
    if (c >= 370 && c <= 389)
        return kDxfKindInt16;
    if (c >= 390 && c <= 399)
        return kDxfKindObjectId;
    if (c >= 400 && c <= 409)
        return kDxfKindInt16;
    if (c >= 410 && c <= 419)
        return kDxfKindString;
    if (c >= 420 && c <= 429)
        return kDxfKindInt32;
    if (c >= 430 && c <= 439)
        return kDxfKindString;
    if (c >= 440 && c <= 459)
        return kDxfKindInt32;
    if (c >= 460 && c <= 469)
        return kDxfKindDouble;
    if (c >= 470 && c <= 479)
        return kDxfKindString;
    if (c >= 480 && c <= 481)
        return kDxfKindObjectId;
    if (c == 999)
        return kDxfKindString;
    if (c == 1004)
        return kDxfKindBinary;
    if (c == 1005)
        return kDxfKindHandle;
    if (c >= 1000 && c <= 1009)
        return kDxfKindString;
    if (c >= 1010 && c <= 1039)
        return kDxfKindPoint;
    if (c >= 1040 && c <= 1059)
        return kDxfKindDouble;
    if (c >= 1060 && c <= 1070)
        return kDxfKindInt16;
    if (c == 1071)
        return kDxfKindInt32;
    return kDxfKindUnknown;
}

bool acdbIsPointXCode(int c)
{
    return (c >= 10 && c <= 18) || (c >= 110 && c <= 112) || c == 210 || (c >= 1010 && c <= 1013);
}
