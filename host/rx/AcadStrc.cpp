// Printable names of the error statuses, built from the same list as the enumeration.
#include "host/rx/AcadStrc.h"

const ACHAR* acadErrorStatusText(Acad::ErrorStatus status)
{
#define SV_ACAD_ERROR_STATUS_CASE(name) case Acad::name: return ACRX_T(#name);
#define SV_ACAD_ERROR_STATUS_PINNED_CASE(name, value) SV_ACAD_ERROR_STATUS_CASE(name)
    switch (status) {
        SV_ACAD_ERROR_STATUS_LIST(SV_ACAD_ERROR_STATUS_CASE, SV_ACAD_ERROR_STATUS_PINNED_CASE)
    }
#undef SV_ACAD_ERROR_STATUS_CASE
#undef SV_ACAD_ERROR_STATUS_PINNED_CASE
    return ACRX_T("eUnknownErrorStatus");
}
