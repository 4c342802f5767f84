// The world draw and viewport draw that record into a display list: what an entity draws
// lands in the list in world coordinates, with the traits of the moment.
#pragma once

#include <memory>

#include "host/gi/AcGiWorldDraw.h"
#include "host/gi/GiDisplayList.h"

class GiRecorder;

// Settings shared by both recording draws.
struct GiRecordingOptions {
    AcGiRegenType regenType = kAcGiStandardDisplay;
    bool plotGeneration = false;
    AcDbDatabase* database = nullptr;
    double deviation = 0.0;  // 0: scaled to the size of the coordinates
    Adesk::UInt32 isolines = 4;
};

// What both recording draws share; Base is AcGiWorldDraw or AcGiViewportDraw.
template <class Base>
class GiRecordingDrawBase : public Base {
public:
    ~GiRecordingDrawBase() override;

    // The traits the next primitives start from (an entity's own colour, layer...).
    void setTraits(const GiTraits& traits);
    void setRegenType(AcGiRegenType type);
    // The answer regenAbort() gives from now on.
    void setRegenAbort(bool abort);
    GiDisplayList& displayList();

    AcGiRegenType regenType() const override;
    Adesk::Boolean regenAbort() const override;
    AcGiSubEntityTraits& subEntityTraits() const override;
    AcGiGeometry* rawGeometry() const override;
    Adesk::Boolean isDragging() const override { return Adesk::kFalse; }
    AcGiContext* context() override;
    Adesk::UInt32 numberOfIsolines() const override;
    double deviation(AcGiDeviationType type, const AcGePoint3d& point) const override;

protected:
    GiRecordingDrawBase(GiDisplayList& target, const GiRecordingOptions& options);
    std::unique_ptr<GiRecorder> m_rec;
};

extern template class GiRecordingDrawBase<AcGiWorldDraw>;
extern template class GiRecordingDrawBase<AcGiViewportDraw>;

class GiRecordingWorldDraw : public GiRecordingDrawBase<AcGiWorldDraw> {
public:
    explicit GiRecordingWorldDraw(GiDisplayList& target, GiRecordingOptions options = {});
    AcGiWorldGeometry& geometry() const override;
};

// The same for viewportDraw, seen from the plan view.
class GiRecordingViewportDraw : public GiRecordingDrawBase<AcGiViewportDraw> {
public:
    explicit GiRecordingViewportDraw(GiDisplayList& target, GiRecordingOptions options = {});
    AcGiViewportGeometry& geometry() const override;
    AcGiViewport& viewport() const override;
    Adesk::UInt32 sequenceNumber() const override { return 0; }
};
