// The MATCHPROP protocol: a class that wants its own property copying attaches an
// AcDbMatchProperties object to its class descriptor (addX); MATCHPROP then calls it instead
// of copying the common properties itself. The MATCHPROP provider is loaded with the first
// MATCHPROP: it registers the service "MatchProperties" and reports itself loaded to the
// dynamic linker's reactors.
#pragma once

#include "host/rx/AcRxObject.h"

class AcDbEntity;

class AcDbMatchProperties : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbMatchProperties);

    enum Flags {
        kColorFlag = 0x1,
        kLayerFlag = 0x2,
        kLtypeFlag = 0x4,
        kThicknessFlag = 0x8,
        kLtscaleFlag = 0x10,
        kTextFlag = 0x20,
        kDimensionFlag = 0x40,
        kHatchFlag = 0x80,
        kLweightFlag = 0x100,
        kPlotstylenameFlag = 0x200,
        kPolylineFlag = 0x400,
        kViewportFlag = 0x800,
        kTableFlag = 0x1000,
        kMaterialFlag = 0x2000,
        kShadowDisplayFlag = 0x4000,
        kMultileaderFlag = 0x8000,
        kTransparencyFlag = 0x10000,
        kSetAllFlagsOn = 0x1FFFF,
    };

    // target is open for write, source for read.
    virtual void copyProperties(AcDbEntity* source, AcDbEntity* target, unsigned int flags) const = 0;
};

// The name the provider reports to linker reactors and its service name.
#define AP_MATCHPROP_APP ACRX_T("acmatch")
#define AP_MATCHPROP_SERVICE ACRX_T("MatchProperties")

// Loads the MATCHPROP provider now (once): the service and the rxAppLoaded notice.
void apLoadMatchPropProvider();
bool apMatchPropProviderLoaded();
