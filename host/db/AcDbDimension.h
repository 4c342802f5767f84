// AcDbDimension: what every dimension kind shares: text, text position, style, and the
// dimension variables as per-dimension overrides kept apart from the style.
#pragma once

#include <set>
#include <string>

#include "host/db/AcDbDimVars.h"
#include "host/db/AcDbEntity.h"

class AcDbDimStyleTableRecord;

// Accessors of every dimension variable: the getter gives the effective value (the
// override if there is one, else the style's); the setters set an override.
#define SV_DIMENSION_DIMVAR_ACCESSORS(lower, Cap, Kind, code, imp, met)                              \
    AcDbDimVar##Kind::Get lower() const                                                            \
    {                                                                                              \
        assertReadEnabled();                                                                       \
        fetchEffective(code);                                                                      \
        return AcDbDimVar##Kind::get(m_effective.lower);                                           \
    }                                                                                              \
    Acad::ErrorStatus set##Cap(AcDbDimVar##Kind::Arg v)                                            \
    {                                                                                              \
        assertWriteEnabled();                                                                      \
        AcDbDimVar##Kind::put(m_over.lower, v);                                                    \
        m_overridden.insert(code);                                                                 \
        return Acad::eOk;                                                                          \
    }                                                                                              \
    Acad::ErrorStatus set##Cap(AcDbDimVar##Kind::Arg2 v) { return setDimVarArg2(code, v); }

// A world point of a dimension kind with its getter and setter.
#define SV_DIMENSION_POINT(getter, setter, member)                                                 \
    AcGePoint3d getter() const { assertReadEnabled(); return member; }                           \
    Acad::ErrorStatus setter(const AcGePoint3d& p) { assertWriteEnabled(); member = p; return Acad::eOk; }

// The hooks every kind implements (see AcDbDimension's protected part).
#define SV_DIMENSION_KIND_HOOKS                                                                    \
    int numDefPoints() const override;                                                             \
    AcGePoint3d defPoint(int index) const override;                                                \
    void setDefPoint(int index, const AcGePoint3d& point) override;                                \
    int dxfKind() const override;                                                                  \
    AcGePoint3d dxfDefPoint() const override;                                                      \
    void setDxfDefPoint(const AcGePoint3d& point) override;                                        \
    void dxfOutKind(AcDbDxfFiler* filer) const override;                                           \
    void dxfInKind(const resbuf& item, const std::wstring& subclass) override;                     \
    void dwgOutKind(AcDbDwgFiler* filer) const override;                                           \
    void dwgInKind(AcDbDwgFiler* filer) override

class AcDbDimension : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbDimension);
    AcDbDimension();

    // Text ----------------------------------------------------------------------------
    // The override text verbatim: "" the measured value, "<>" the value spliced in, " "
    // no text. A copy the caller deletes with delete[].
    ACHAR* dimensionText() const;
    const std::wstring& dimensionTextString() const;
    Acad::ErrorStatus setDimensionText(const ACHAR* text);
    AcGePoint3d textPosition() const;
    Acad::ErrorStatus setTextPosition(const AcGePoint3d& position);
    // DXF 70 bit 128: the text stands where the user put it.
    bool isUsingDefaultTextPosition() const;
    Acad::ErrorStatus useDefaultTextPosition();
    Acad::ErrorStatus useSetTextPosition();
    double textRotation() const;
    Acad::ErrorStatus setTextRotation(double angle);
    double horizontalRotation() const;
    Acad::ErrorStatus setHorizontalRotation(double angle);
    int textAttachment() const;  // AcDbMText::AttachmentPoint, 1..9
    Acad::ErrorStatus setTextAttachment(int attachment);
    int textLineSpacingStyle() const;
    Acad::ErrorStatus setTextLineSpacingStyle(int style);
    double textLineSpacingFactor() const;
    Acad::ErrorStatus setTextLineSpacingFactor(double factor);

    // Plane ---------------------------------------------------------------------------
    AcGeVector3d normal() const;
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    double elevation() const;
    Acad::ErrorStatus setElevation(double elevation);
    void getEcs(AcGeMatrix3d& retVal) const override;

    // Geometry block (the drawn picture, not kept up to date here) ------------------------
    AcDbObjectId dimBlockId() const;
    Acad::ErrorStatus setDimBlockId(AcDbObjectId blockId);
    // The block name written to DXF when no block id is set (as read from a file).
    const std::wstring& dimBlockName() const;
    Acad::ErrorStatus setDimBlockName(const ACHAR* name);

    // Style and overrides ---------------------------------------------------------------
    AcDbObjectId dimensionStyle() const;
    // Changes the style only: the overrides stay.
    Acad::ErrorStatus setDimensionStyle(AcDbObjectId styleId);
    // Makes the dimension look as the record says: each variable where the record differs
    // from the dimension's style becomes an override, the others lose theirs.
    Acad::ErrorStatus setDimstyleData(const AcDbDimStyleTableRecord* record);
    Acad::ErrorStatus setDimstyleData(AcDbObjectId recordId);
    // A new record (not in a database, the caller deletes it) with the effective values.
    Acad::ErrorStatus getDimstyleData(AcDbDimStyleTableRecord*& record) const;
    // The variables of the style (defaults when there is none), without overrides.
    AcDbDimVars styleVars() const;
    // The effective variables: style plus overrides.
    AcDbDimVars effectiveVars() const;
    bool isOverridden(int dxfCode) const;
    const std::set<int>& overriddenCodes() const { return m_overridden; }
    Acad::ErrorStatus removeOverride(int dxfCode);
    void removeAllOverrides();

    SV_DIMVAR_LIST(SV_DIMENSION_DIMVAR_ACCESSORS)
    Acad::ErrorStatus setDimVarArg2(int code, AcDbObjectId blockId);
    Acad::ErrorStatus setDimVarArg2(int, AcDbDimVarNoArg) { return Acad::eOk; }

    // The measured value with the length factor dimlfac applied (angles: radians, no factor).
    Acad::ErrorStatus measurement(double& value) const;
    // The geometric measure before dimlfac.
    virtual double rawMeasurement() const = 0;
    // Whether dimlfac applies (false for angles).
    virtual bool isLinearMeasure() const { return true; }

    // The overrides travel in the extended data of "ACAD" as "DSTYLE" { code value ... }:
    // xData adds them to what is stored, setXData takes them out of the chain given.
    resbuf* xData(const ACHAR* appName = nullptr) const override;
    Acad::ErrorStatus setXData(const resbuf* xdata) override;
    // After a file was read: the DSTYLE part of the stored data becomes the overrides.
    void composeForLoad() override;

    // Dimensions transform their points; the text height does not follow.
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform) override;
    Acad::ErrorStatus getGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray& osnapModes,
                                    AcDbIntArray& geomIds) const override;
    Acad::ErrorStatus moveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) override;
    Adesk::Boolean worldDraw(AcGiWorldDraw* worldDraw) override;
    // Lines, solids and texts: what worldDraw draws, as entities.
    Acad::ErrorStatus explode(AcDbVoidPtrArray& entitySet) const override;
    void list() const override;

    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

protected:
    // The kind's part: its definition points in world coordinates (grips and transforms).
    virtual int numDefPoints() const = 0;
    virtual AcGePoint3d defPoint(int index) const = 0;
    virtual void setDefPoint(int index, const AcGePoint3d& point) = 0;
    // DXF 70 kind number and the point written as group 10.
    virtual int dxfKind() const = 0;
    virtual AcGePoint3d dxfDefPoint() const = 0;
    virtual void setDxfDefPoint(const AcGePoint3d& point) = 0;
    // The kind's own DXF subclasses and groups (after AcDbDimension's), and one group of
    // them on reading (subclass as the latest 100 marker said).
    virtual void dxfOutKind(AcDbDxfFiler* filer) const = 0;
    virtual void dxfInKind(const resbuf& item, const std::wstring& subclass) = 0;
    virtual void dwgOutKind(AcDbDwgFiler* filer) const = 0;
    virtual void dwgInKind(AcDbDwgFiler* filer) = 0;
    // Kinds with angles to turn with a transformation (rotation of linear dimensions).
    virtual void transformKind(const AcGeMatrix3d&) {}

    void fetchEffective(int dxfCode) const;

private:
    // The ACAD DSTYLE items of the overrides (from the "DSTYLE" item on); null for none.
    resbuf* overridesToXData() const;
    void overridesFromXData(const resbuf* dstyle);
    void takeDstyle(resbuf* chain);

    std::wstring m_text;
    AcGePoint3d m_textPosition;
    bool m_userTextPosition = false;
    double m_textRotation = 0.0;
    double m_horizontalRotation = 0.0;
    int m_attachment = 5;
    int m_spacingStyle = 1;
    double m_spacingFactor = 1.0;
    AcGeVector3d m_normal{0.0, 0.0, 1.0};
    double m_elevation = 0.0;
    AcDbObjectId m_blockId;
    std::wstring m_blockName;
    AcDbObjectId m_style;

protected:
    AcDbDimVars m_over;
    std::set<int> m_overridden;
    mutable AcDbDimVars m_effective;
};
