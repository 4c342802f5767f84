// AcGiSubEntityTraits: the properties (colour, layer, fill, marker...) that the next primitives take.
#pragma once

#include "host/gi/AcCmColor.h"
#include "host/gi/AcGi.h"
#include "host/rx/Adesk.h"

class AcDbObjectId;

class AcGiSubEntityTraits {
public:
    virtual ~AcGiSubEntityTraits() = default;

    // An index colour: 0 ByBlock, 256 ByLayer, 1..255 the palette.
    virtual void setColor(Adesk::UInt16 color) = 0;
    virtual void setTrueColor(const AcCmEntityColor& color) = 0;
    virtual void setLayer(AcGiLayerKey layer) = 0;
    virtual void setLineType(AcGiLinetypeKey linetype) = 0;
    virtual void setSelectionMarker(Adesk::GsMarker marker) = 0;
    virtual void setFillType(AcGiFillType fillType) = 0;
    // Hundredths of a millimetre, or one of AcGiLineWeight's negative values.
    virtual void setLineWeight(int lineWeight) = 0;
    virtual void setLineTypeScale(double scale = 1.0) = 0;
    virtual void setThickness(double thickness) = 0;

    // The index colour; a true colour answers its nearest palette index.
    virtual Adesk::UInt16 color() const = 0;
    virtual AcCmEntityColor trueColor() const = 0;
    virtual AcGiLayerKey layerKey() const = 0;
    virtual AcGiLinetypeKey lineTypeKey() const = 0;
    virtual Adesk::GsMarker selectionMarker() const = 0;
    virtual AcGiFillType fillType() const = 0;
    virtual int lineWeight() const = 0;
    virtual double lineTypeScale() const = 0;
    virtual double thickness() const = 0;

    // The platform's id forms. The database library defines them (it turns an id into its
    // key); gi only declares them so that entity code can pass ids as it always has.
    void setLayer(const AcDbObjectId& layerId);
    void setLineType(const AcDbObjectId& linetypeId);
};
