// Drawing of block inserts: the block's entities under the insert's transform, with ByBlock
// colour and line weight and layer "0" taking the insert's own, nested to a fixed depth.
#include "host/db/AcDbBlockReference.h"
#include "host/db/AcDbBlockTable.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbDraw.h"
#include "host/db/AcDbLayerTable.h"
#include "host/db/AcDbObjectAccess.h"
#include "host/db/AcDbRender.h"
#include "host/gi/AcGiWorldDraw.h"

namespace {

// Deeper nesting than this is a block that contains itself: it is not drawn further.
constexpr int kMaxBlockDepth = 16;

// Passes traits on, putting the insert's values where an entity asks for ByBlock or layer 0.
class ByBlockTraits : public AcGiSubEntityTraits {
public:
    using AcGiSubEntityTraits::setLayer;
    using AcGiSubEntityTraits::setLineType;

    ByBlockTraits(AcGiSubEntityTraits& inner, AcGiLayerKey layerZero)
        : m_inner(inner), m_color(inner.trueColor()), m_layer(inner.layerKey()),
          m_lineWeight(inner.lineWeight()), m_layerZero(layerZero)
    {
    }

    void setColor(Adesk::UInt16 color) override
    {
        if (color == 0)
            m_inner.setTrueColor(m_color);
        else
            m_inner.setColor(color);
    }
    void setTrueColor(const AcCmEntityColor& color) override
    {
        m_inner.setTrueColor(color.isByBlock() ? m_color : color);
    }
    void setLayer(AcGiLayerKey layer) override
    {
        m_inner.setLayer(layer == m_layerZero || layer == 0 ? m_layer : layer);
    }
    void setLineType(AcGiLinetypeKey linetype) override { m_inner.setLineType(linetype); }
    void setSelectionMarker(Adesk::GsMarker marker) override { m_inner.setSelectionMarker(marker); }
    void setFillType(AcGiFillType fillType) override { m_inner.setFillType(fillType); }
    void setLineWeight(int lineWeight) override
    {
        m_inner.setLineWeight(lineWeight == AcGiLineWeight::kByBlock ? m_lineWeight : lineWeight);
    }
    void setLineTypeScale(double scale) override { m_inner.setLineTypeScale(scale); }
    void setThickness(double thickness) override { m_inner.setThickness(thickness); }

    Adesk::UInt16 color() const override { return m_inner.color(); }
    AcCmEntityColor trueColor() const override { return m_inner.trueColor(); }
    AcGiLayerKey layerKey() const override { return m_inner.layerKey(); }
    AcGiLinetypeKey lineTypeKey() const override { return m_inner.lineTypeKey(); }
    Adesk::GsMarker selectionMarker() const override { return m_inner.selectionMarker(); }
    AcGiFillType fillType() const override { return m_inner.fillType(); }
    int lineWeight() const override { return m_inner.lineWeight(); }
    double lineTypeScale() const override { return m_inner.lineTypeScale(); }
    double thickness() const override { return m_inner.thickness(); }

private:
    AcGiSubEntityTraits& m_inner;
    AcCmEntityColor m_color;
    AcGiLayerKey m_layer;
    int m_lineWeight;
    AcGiLayerKey m_layerZero;
};

// The world draw the block's entities see: the caller's, with the insert's traits rules.
class BlockWorldDraw : public AcGiWorldDraw {
public:
    BlockWorldDraw(AcGiWorldDraw& inner, AcGiLayerKey layerZero, int depth)
        : m_inner(inner), m_traits(inner.subEntityTraits(), layerZero), m_depth(depth)
    {
    }
    int depth() const { return m_depth; }

    AcGiRegenType regenType() const override { return m_inner.regenType(); }
    Adesk::Boolean regenAbort() const override { return m_inner.regenAbort(); }
    AcGiSubEntityTraits& subEntityTraits() const override { return m_traits; }
    AcGiGeometry* rawGeometry() const override { return m_inner.rawGeometry(); }
    Adesk::Boolean isDragging() const override { return m_inner.isDragging(); }
    AcGiContext* context() override { return m_inner.context(); }
    Adesk::UInt32 numberOfIsolines() const override { return m_inner.numberOfIsolines(); }
    double deviation(AcGiDeviationType type, const AcGePoint3d& point) const override
    {
        return m_inner.deviation(type, point);
    }
    AcGiWorldGeometry& geometry() const override { return m_inner.geometry(); }

private:
    AcGiWorldDraw& m_inner;
    mutable ByBlockTraits m_traits;
    int m_depth;
};

AcGiLayerKey LayerZeroKey(AcDbDatabase* db)
{
    if (!db)
        return 0;
    const AcDbPeek table(db->layerTableId());
    const auto* layers = table.as<AcDbLayerTable>();
    AcDbObjectId zero;
    if (!layers || layers->getAt(L"0", zero) != Acad::eOk)
        return 0;
    return static_cast<AcGiLayerKey>(zero.asOldId());
}

} // namespace

Adesk::Boolean AcDbBlockReference::worldDraw(AcGiWorldDraw* worldDraw)
{
    assertReadEnabled();
    if (!worldDraw || m_block.isNull())
        return Adesk::kTrue;
    const auto* outer = dynamic_cast<BlockWorldDraw*>(worldDraw);
    const int depth = outer ? outer->depth() + 1 : 1;
    if (depth > kMaxBlockDepth)
        return Adesk::kTrue;

    acdbSetEntityTraits(this, worldDraw);
    const AcDbPeek blockPeek(m_block);
    const auto* block = blockPeek.as<AcDbBlockTableRecord>();
    if (!block)
        return Adesk::kTrue;
    BlockWorldDraw inner(*worldDraw, LayerZeroKey(m_block.database()), depth);
    AcGiGeometry& geometry = worldDraw->geometry();
    geometry.pushModelTransform(blockTransform());
    for (const AcDbObjectId& id : block->entityIds()) {
        if (worldDraw->regenAbort())
            break;
        const AcDbPeek peek(id);
        AcDbEntity* entity = peek.as<AcDbEntity>();
        if (!entity || entity->isErased() || entity->visibility() != AcDb::kVisible)
            continue;
        acdbDrawEntity(entity, &inner);
    }
    geometry.popModelTransform();
    return Adesk::kTrue;
}
