// SVdim: the dimension chain. One entity measures a run of points along one
// dimension line (or arc) and holds a value text for each pair of neighbours.
// This header is the chain's contract: what it stores, how its slots are
// addressed, and which operations of the host's entity it replaces.
#pragma once

#include "host/db/AcDbEntity.h"
#include "host/db/AcDbObjectId.h"
#include "host/ge/AcGe.h"
#include "host/mfc/afxcoll.h"
#include "options/DoubleArray.h"
#include "proxy/AppendTextObject.h"

// The application text a drawing keeps for the module's classes, shown when
// the module is missing: product, description, company and web address.
extern const wchar_t* const kSorvaneClassAppText;

class AcDbCurve;

class SVdim : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(SVdim);

    // Chain types (m_dimType).
    static constexpr int kHorizontal = 0;  // along the chain's x axis
    static constexpr int kVertical = 1;    // 90 degrees above type 0
    static constexpr int kAligned = 2;     // along two points or a picked object
    static constexpr int kArc = 3;         // along an arc, circle or polyline arc

    // The chain computes with its own rounded constants; angles compared in
    // whole degrees depend on them, so they must not become the library's.
    static constexpr double kPi = 3.1415926535;
    static constexpr double kTwoPi = 6.283185307;
    static constexpr double kHalfPi = 1.57079632675;

    // Bits of a word of m_extFlags.
    static constexpr UINT kExtHidden = 1;
    static constexpr UINT kExtLeader = 2;
    static constexpr UINT kTickBitsMask = 16 | 32 | 64 | 128 | 256 | 512;

    // Indices of the parameter arrays the chain reads itself.
    static constexpr int kDblScaleVal = 0;
    static constexpr int kDblTextHeight = 1;
    static constexpr int kDblExtLineLength = 2;
    static constexpr int kDblDimLinesDistance = 3;
    static constexpr int kDblAcadUnits = 9;
    static constexpr int kStrIniFile = 3;
    static constexpr int kIntExtLine = 0;
    static constexpr int kIntRoundMM = 2;
    static constexpr int kIntLastType = 3;
    static constexpr int kIntDecimals = 4;
    static constexpr int kIntArcMinPoint = 10;
    static constexpr int kIntArcMaxPoint = 11;
    static constexpr int kIntArcAsCircle = 12;
    static constexpr int kIntAppVersion = 13;
    static constexpr int kIntArcInputIsCircle = 15;
    static constexpr int kIntSumStatus = 20;
    static constexpr int kIntWipeOutStatus = 21;
    static constexpr int kIntAltUnitsStatus = 22;

    // --- construction -------------------------------------------------------
    // Empty chain, as the filer, the class descriptor and copies make it.
    SVdim();
    // A chain of two extension lines through pt1 and pt2 with its dimension
    // line through ptDim. pVectorDim fixes the direction; without it the
    // type decides (type 2 first asks for an object to align with when no
    // matrix is given). arcId names the source curve of an arc chain, with the
    // polyline segment iArcSegment. pMatrix gives the coordinate system;
    // without it the current UCS.
    SVdim(const AcGePoint3d& pt1, const AcGePoint3d& pt2, const AcGePoint3d& ptDim, int iType,
          const AcGeVector3d* pVectorDim = nullptr, AcDbObjectId arcId = AcDbObjectId::kNull,
          int iArcSegment = 0, const AcGeMatrix3d* pMatrix = nullptr);
    ~SVdim() override;

    // m_normal to (0,0,1); with iMode 0 also the parameter arrays from the
    // linear set of the option store, where they are shorter than the set.
    // FALSE without an option store.
    BOOL Initialize(int iMode = 0);
    // Origin and axes from the matrix (x and y normalised, z their cross
    // product), or from the current UCS for null; then RecalcVectorDim.
    // Takes write access for the call when the chain is open for read.
    void SetCoordSystem(const AcGeMatrix3d* pMatrix);

    // --- points -----------------------------------------------------------------
    // Extension line i owns slots 4i (input), 4i+1 (start of the extension
    // line), 4i+2 (dimension point) and 4i+3 (text point of segment i).
    int GetExtensions() const;
    // A negative index counts as its absolute value. A bad index, or a chain
    // below two extensions, gives (0,0,0) and a trace line.
    AcGePoint3d GetPointInput(int iExt) const;
    AcGePoint3d GetPointExt1(int iExt) const;
    AcGePoint3d GetPointTextRef(int iExt) const;
    // As above, but a single extension suffices, an index equal to the count
    // reads the last, and -100 reads extension 1 and -99 extension 0 (100 and
    // 99 too while the chain has fewer than 6 extensions).
    AcGePoint3d GetPointDim(int iExt) const;
    // x axis cross y axis: the normal of every plane operation.
    AcGeVector3d GetChainNormal() const;
    AcDbObjectId textStyleId() const;
    void setTextStyleId(AcDbObjectId styleId);

    // --- extension flags ------------------------------------------------------
    BOOL GetExtLineVisible(int iExt) const;  // TRUE also for a bad index
    BOOL IsLeader(int iExt) const;
    // Both return the old state (0 or 1); a bad index changes nothing and gives 0.
    int SetExtLineVisible(int iExt, BOOL bVisible);
    int SetLeader(int iExt, BOOL bLeader);
    // The tick of an extension: its own tick bit, else the chain's LastType.
    // -1 asks for the chain's tick when every extension agrees, else -1.
    int GetTickType(int iExt) const;
    // An extension keeps its own bit only when it differs from the chain's
    // tick; -1 sets the chain's tick and drops every own bit. FALSE for a bad
    // index or tick type.
    BOOL SetTickType(int iExt, int iTick);

    // --- units ------------------------------------------------------------------
    // The scale: ScaleVal, or the drawing's annotation scale on an annotative
    // chain. A ScaleVal of 0 is repaired to 0.01 (and said on the console).
    double GetScale() const;
    // Drawing units per millimetre; 0 is repaired to 0.001.
    double GetAcadUnits() const;
    // Paper millimetres to drawing units.
    double ToDrawing(double dValue) const;
    // The percentage option iIndex of the text height, as a drawing length.
    double AdaptByTextHeight(int iIndex) const;
    // Radians to degrees, rounded by printing with iDecimals (0 or 2).
    static double DegRound(double dAngle, int iDecimals = 0);
    // Snaps a rotation near 0, 90, 180, 270 or 360 degrees; returns it.
    static double SnapAngle(double& dAngle);
    // The rotation of a line in the plane, from whichever of its two senses
    // turns less: 0 up to below 180 degrees, snapped.
    static double LineRotation(const AcGeVector3d& vLine);

    // Chain status combined with the global switch: off globally counts only
    // when the status is 1; on globally counts unless the status is 2.
    BOOL IsAltUnits() const;
    BOOL IsShowSum() const;
    BOOL IsWipeOut() const;
    // The chain's format becomes the current options (the options file name
    // stays the store's own). FALSE without an option store.
    BOOL SaveToGlobal() const;

    // --- coordinates ------------------------------------------------------------
    void WcsToChain(AcGePoint3d& point) const;
    void WcsToChain(AcGeVector3d& vector) const;
    void ChainToWcs(AcGePoint3d& point) const;
    void ChainToWcs(AcGeVector3d& vector) const;

    // --- geometry used while a chain is made -------------------------------
    // Appends an extension for the point; see SVbasicGeometry.cpp.
    int AddPointInput(AcGePoint3d& point, bool bForce = false);
    AcGeLine3d GetDimLine() const;
    AcGePoint3d PointToDimLine(const AcGePoint3d& point) const;
    AcGeLine3d GetLineExt(int iExt) const;
    double GetDistance(int iExt) const;
    void RecalcVectorDim();
    // Puts the extensions in ascending order along the dimension line (chain
    // x, or y for a chain at 90 degrees; arc chains by curve parameter) and
    // returns the new index of iExt (-1: none to follow).
    int RearrangeExtensions(int iExt);
    int ChangePointMainDim(AcGePoint3d& point, int iMode = 0);
    // The source curve of an arc chain, open for read (the caller closes it).
    AcDbCurve* GetDbArcInput() const;
    // A new arc the caller deletes: the source arc, or a fictive one through
    // the chain's points; null without points.
    AcGeCircArc3d* GetArcInput(bool bFull = false);
    int MakeParamArray();

    // --- replaced operations of the host's entity -------------------------------
    Adesk::UInt32 setAttributes(void* traits) override;
    Adesk::Boolean isPlanar() const override;
    Adesk::Boolean worldDraw(AcGiWorldDraw* pWd) override;
    void viewportDraw(AcGiViewportDraw* pVd) override;
    Adesk::UInt32 viewportDrawLogicalFlags(AcGiViewportDraw* pVd) override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* pFiler) override;
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* pFiler) const override;
    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* pFiler) override;
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* pFiler) const override;
    Acad::ErrorStatus applyPartialUndo(AcDbDwgFiler* pUndoFiler, AcRxClass* pClass) override;
    void erased(const AcDbObject* pObj, Adesk::Boolean bErasing = true) override;
    void modified(const AcDbObject* pObj) override;
    // LIST: version, type, extensions, rotation, points and texts.
    void list() const override;
    Acad::ErrorStatus getOsnapPoints(AcDb::OsnapMode osnapMode, Adesk::GsMarker gsSelectionMark,
                                     const AcGePoint3d& pickPoint, const AcGePoint3d& lastPoint,
                                     const AcGeMatrix3d& viewXform, AcGePoint3dArray& snapPoints,
                                     AcDbIntArray& geomIds) const override;
    Acad::ErrorStatus getOsnapPoints(AcDb::OsnapMode osnapMode, Adesk::GsMarker gsSelectionMark,
                                     const AcGePoint3d& pickPoint, const AcGePoint3d& lastPoint,
                                     const AcGeMatrix3d& viewXform, AcGePoint3dArray& snapPoints,
                                     AcDbIntArray& geomIds, const AcGeMatrix3d& insertionMat) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform) override;
    Acad::ErrorStatus getTransformedCopy(const AcGeMatrix3d& xform, AcDbEntity*& pEnt) const override;
    Acad::ErrorStatus explode(AcDbVoidPtrArray& entitySet) const override;
    Acad::ErrorStatus getGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray& osnapModes,
                                    AcDbIntArray& geomIds) const override;
    Acad::ErrorStatus moveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) override;
    Acad::ErrorStatus moveStretchPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) override;
    Acad::ErrorStatus getSubentPathsAtGsMarker(AcDb::SubentType type, Adesk::GsMarker gsMark,
                                               const AcGePoint3d& pickPoint, const AcGeMatrix3d& viewXform,
                                               int& numPaths, AcDbFullSubentPath*& subentPaths,
                                               int numInserts = 0,
                                               AcDbObjectId* entAndInsertStack = nullptr) const override;
    Acad::ErrorStatus getGsMarkersAtSubentPath(const AcDbFullSubentPath& subPath,
                                               AcDbGsMarkerArray& gsMarkers) const override;
    Acad::ErrorStatus getStretchPoints(AcGePoint3dArray& stretchPoints) const override;

    // --- data, in the order the chain has always kept it ------------------------
    AcDbObjectId m_arcObjectId;
    Adesk::UInt32 m_arcSegment = 0;
    // Arc chains: 0 dimension point at the start, 2 at the end, 3 centre,
    // 4 input point at the start, 6 at the end; 1 and 5 unused.
    AcGePoint3dArray m_arcPoints;
    CObArray AppendTextList;  // owns its CAppendTextObject entries
    int m_dimType = 0;
    double m_dRotation = 0.0;  // radians, 0 up to below 180 degrees
    AcGeVector3d m_vectorDim;  // unit direction of the dimension line (world)
    AcGeDoubleArray m_arcParams;  // source curve parameter of each input point
    AcGePoint3d m_xyzOrigin;
    AcGeVector3d m_xAxis;
    AcGeVector3d m_yAxis;
    AcGeVector3d m_zAxis;
    CDoubleArray arrayDouble;
    CStringArray arrayString;
    CUIntArray arrayInt;
    CUIntArray m_extFlags;   // one word per extension line
    CStringArray m_dimTexts;  // one record per segment, "text#pos[@user@prefix@postfix]"
    AcGePoint3dArray m_points;
    AcDbObjectId m_textStyleId;
    AcGeVector3d m_normal;

private:
    // Origin and axes from the matrix or the current UCS, without RecalcVectorDim.
    void StoreCoordSystem(const AcGeMatrix3d* pMatrix);
    // The matrix of the chain's coordinate system (chain to world).
    AcGeMatrix3d ChainMatrix() const;
    // Constructor step: m_vectorDim and m_dRotation from the type and the points.
    void InitDirection(const AcGePoint3d& pt1, const AcGePoint3d& pt2, const AcGeVector3d* pVectorDim,
                       bool bAskObject);
    // Type 2: the direction of an object the user picks; FALSE without one.
    BOOL PickAlignment(AcGePoint3d& ptFrom, AcGePoint3d& ptTo) const;
    // Constructor step: the source arc and the two input points of an arc chain.
    void InitArcSource(AcGePoint3d& pt1, AcGePoint3d& pt2);
    void ChangePointMainDimArc(AcGePoint3d& point);
    // The slot of a point accessor after the index rules; -1 for a bad index.
    int PointSlot(const wchar_t* pszWho, int iExt, int iSlot) const;
    // Extends m_dimTexts and m_extFlags to the extension count.
    void FitRecords();

    // Text placement: position codes to points, text boxes, the automatic search, appended texts.
public:
    // Where a text of segment iExt with code iPos stands before alignment;
    // a negative iPos reads the record's code.
    AcGePoint3d GetTextAnchor(int iExt, int iPos = -100) const;
    // The start points of the text parts (main, raised digit, rest) of segment
    // iExt, of the label (-100), the sum (count) or pAppend. A negative iPos
    // takes the stored text point. 1 when there is a raised digit; 0 also
    // when there is nothing to show.
    int GetPointText(int iExt, AcGePoint3dArray& points, CStringArray& texts,
                     CAppendTextObject* pAppend = nullptr, int iPos = -1) const;
    // The box of a text, widened by dMargin on every side: corners in the
    // order start, along, far, up. Width and height are the text's own.
    int GetTextCorners(int iExt, double dMargin, AcGePoint3dArray& corners, double& dWidth,
                       double& dHeight, CAppendTextObject* pAppend = nullptr, int iPos = -1) const;
    // Crossing edges or middle lines; a box wholly inside the other does not count.
    static bool BoxesOverlap(const AcGePoint3dArray& boxA, const AcGePoint3dArray& boxB);
    // The position code an automatic text of segment iExt takes (8: it fits).
    int FindAutoTextPos(int iExt) const;
    // Places the text of segment iExt by its code; 0 for a negative index.
    int CenterPointText(int iExt);
    // iMode 0 (by AutoPosition), 'A' all automatic, 'C' all centred,
    // 'G' re-place texts still at their anchor, 'R' re-place all.
    BOOL AdjustTexts(int iMode);
    BOOL AdjustAllTexts() { return AdjustTexts('G'); }
    BOOL CenterAllText() { return AdjustTexts('C'); }
    BOOL ResetAllTexts() { return AdjustTexts(m_dimType == kArc ? 'C' : 'A'); }
    // Stores the text point of segment iExt, on the chain's plane; an appended
    // text follows unless it is free and bKeepAppended is 0. 0 for a bad index.
    int SetPointText(int iExt, const AcGePoint3d& point, int bKeepAppended = 1);
    // Moves the text point: 'E'/'W' along the text, 'N'/'S' across it.
    BOOL MoveText(int iExt, wchar_t cDirection, double dDistance);
    // The appended text of segment iExt (segments 0 and 1 share one); later
    // duplicates are deleted. List index or -1.
    int GetAppendingText(int iExt, CAppendTextObject*& pText);
    int GetAppendingTextAt(const AcGePoint3d& ptRef, CAppendTextObject*& pText);
    // Copies pText into the entry (made when missing), or deletes the entry
    // for null. The list index, or the count when nothing was found to delete.
    int SetAppendingText(int iExt, const CAppendTextObject* pText);
    int SetAppendingTextAt(const AcGePoint3d& ptRef, const CAppendTextObject* pText, int iExt);
    // Re-keys the entry found by its reference point; iExt above 0 too.
    BOOL SetAppendingTextPoint(const AcGePoint3d& ptRef, const AcGePoint3d& ptNewRef, int iExt);
    // An appended text below the text of its segment. 0 for a bad call.
    int SetAppendingTextPos(int iExt, CAppendTextObject* pText) const;

    // Geometry: keeping the points in step (SVbasicGeometry.cpp, SVbasicOrder.cpp, SVbasicRefresh.cpp).
public:
    // Re-measures extension iExt through the point: 0 plain, 1 keeps the start
    // of the extension line, 100 as 1 with the text following and no re-order.
    // Returns the extension's index after re-ordering, -1 when refused.
    int SetPointInput(int iExt, AcGePoint3d& point, int iMode = 0);
    // The start of extension line iExt, forced on the line and kept at least
    // ExtendBeyondDimLine from the dimension line and OffsetFromOrigin from the
    // measured point beyond it. FALSE when the lines don't meet.
    BOOL SetPoint(int iExt, AcGePoint3d& point, int bFix = 0);
    // Fixed-length extension lines (ExtLine 1); a negative index treats all.
    void SetExtFixed(int iExt);
    // Moves the dimension line through the point; iMode 0 re-places texts.
    BOOL SetPointDim(int iExt, const AcGePoint3d& point, int iMode = 0);
    // Removes an extension; the count left, 0 when refused.
    int RemoveDimExt(int iExt);
    // Removes segments of zero length or on a shared input point; their number.
    int RemoveEmptySegments();
    // +1 or -1: the side of the dimension line the input point of iExt (or
    // the given point) lies on, seen at dAngle.
    int GetPlaneSide(int iExt, double dAngle, const AcGePoint3d* pPoint = nullptr) const;
    // The sign of the text direction; dAngle the text angle, iSide GetPlaneSide.
    int GetSideSigns(int iExt, double& dAngle, int& iSide);
    // Three strengths of re-measuring the whole chain.
    BOOL Refresh();
    BOOL DimRefresh(int iType = 0);
    BOOL Regenerate(int iType = 0);
    // Places this chain parallel to the source chain, DimLinesDistance away.
    BOOL GetOffsetDimPoint(const SVdim* pSource);

private:
    // The linear set's value of the option store, else the chain's own.
    double GlobalDouble(int iIndex) const;
    // A general integer of the option store; 0 without one.
    static int GlobalOptInt(int iIndex);
    int ParamInt(int iIndex) const;  // 0 past the end
    bool IsExtFixed() const;         // ExtLine is 1
    // The start of a fixed-length extension line at dLength from ptDim, on
    // side iSide of a dimension line at dAngle (chain coordinates).
    AcGePoint3d FixedExtStart(const AcGePoint3d& ptDim, double dAngle, int iSign, int iSide, double dLength) const;
    // Unit vector across the dimension line towards the input point of iExt.
    AcGeVector3d TowardsInput(int iExt, double dAngle) const;
    // Adds segments iFirst.. iFirst+nCount-1 whose texts are to be re-centred.
    void CollectTexts(int iFirst, int nCount, int iMode, CUIntArray& segments) const;

    // Value text: the records "text#pos[@user[@prefix[@postfix]]]" and what is shown (SVbasicText.cpp).
public:
    // DistanceToText with the chain's own parameter arrays.
    CString DistanceToText(int iType, double dValue) const;
    // The fields of the record of iExt; their number, 0 for a bad index.
    int GetDimTextArray(int iExt, CStringArray& fields) const;
    // The position code of segment iExt (with bAbs its absolute value); for
    // the sum (iExt = count) where the sum stands: 6, 4 or 5.
    int GetDimTextPos(int iExt, int bAbs = 0) const;
    // The value shown on segment iExt: the user's (a number in the chain's
    // format), else the measured; the sum for iExt = count; "000" for a
    // negative index, "???" for a missing record (which is then made).
    CString GetDimValueText(int iExt) const;
    // The texts to draw: out[0] the whole text; with a raised digit out[0]
    // the main part, out[1] the digit, out[2] the alternative units. -100 is
    // the chain label. 1 when there is a raised digit.
    int GetDisplayTexts(int iExt, CStringArray& texts, const CAppendTextObject* pAppend = nullptr) const;
    // Field 0 of the record: measured text (empty stores "0") and position.
    int SetDimTextDim(int iExt, const wchar_t* pszText);
    int SetDimTextPos(int iExt, int iPos);
    // Fields 1 to 3; null or empty clears. Clearing the user value re-measures.
    int SetDimTextUser(int iExt, const wchar_t* pszText);
    int SetDimTextPrefix(int iExt, const wchar_t* pszText);
    int SetDimTextPostfix(int iExt, const wchar_t* pszText);
    // Measures segment iExt again into its record.
    int RefreshDimText(int iExt);
    // The user's number differs from the measure by more than UserTextTolerance.
    bool IsUserTextOff(int iExt) const;
    // DimDescription: the place digit (1 first end, 2 last, 3 both; 0 none) and the text.
    int GetChainLabelCode() const;
    CString GetChainLabelText() const;
    // A type-3 chain on a whole circle: one mark, shown with "U=".
    bool IsArcCircleChain() const;

private:
    // Writes field iField of the record of iExt; null or empty clears it.
    int SetDimTextField(int iExt, int iField, const wchar_t* pszText);

    // Drawing: one routine for display, proxy graphics and explode (SVbasicDraw.cpp).
public:
    // Draws pDim into pWd, or without a context appends new entities to pEnts.
    // 0, or 3 for a null chain or without an option store.
    static int drawDimension(const SVdim* pDim, AcGiWorldDraw* pWd, AcDbVoidPtrArray* pEnts);
    // The value texts, the sum with its box, leaders, user-value marks,
    // appended texts and the label; bDrawTexts false leaves out the strings.
    static void DrawDimTexts(const SVdim* pDim, AcGiWorldDraw* pWd, AcDbVoidPtrArray* pEnts, bool bDrawTexts);
    // The line marking a user value of segment iExt (-1000: segment 1, near edge). 0 for a bad index.
    int GetPointsTextUser(int iExt, AcGePoint3d& pt1, AcGePoint3d& pt2) const;
    // The leader of segment iExt from the dimension line to its text: the number of points.
    int GetLeaderPoints(int iExt, AcGePoint3dArray& points) const;
    // A leader is drawn when its bit is set and the text stands at its anchor or in the upper row.
    bool IsLeaderShown(int iExt) const;
    // Hide, shade and render have no facets of their own: 0.
    int drawFacets() const { return 0; }
};
