// The platform's error status: what every fallible SDK call returns, and its printable name.
#pragma once

#include "host/rx/AcChar.h"

// Every status in a fixed order. X(name) takes the next value; XV(name, value) pins the value
// where callers depend on the number (a status read from a file or compared as an integer).
// Pinned values only ever grow along the list, so no two statuses share a number.
#define SV_ACAD_ERROR_STATUS_LIST(X, XV) \
    X(eOk) X(eNotImplementedYet) X(eNotApplicable) \
    X(eInvalidInput) X(eAmbiguousInput) X(eAmbiguousOutput) \
    X(eOutOfMemory) X(eBufferTooSmall) X(eInvalidOpenState) \
    X(eEntityInInactiveLayout) X(eHandleExists) X(eNullHandle) \
    X(eBrokenHandle) X(eUnknownHandle) X(eHandleInUse) \
    X(eNullObjectPointer) X(eNullObjectId) X(eNullBlockName) \
    X(eContainerNotEmpty) X(eNullEntityPointer) X(eIllegalEntityType) \
    X(eKeyNotFound) X(eDuplicateKey) X(eInvalidIndex) \
    X(eDuplicateIndex) X(eAlreadyInDb) X(eOutOfDisk) \
    X(eDeletedEntry) X(eNegativeValueNotAllowed) X(eInvalidExtents) \
    X(eInvalidAdsName) X(eInvalidSymbolTableName) X(eInvalidKey) \
    X(eWrongObjectType) X(eWrongDatabase) X(eObjectToBeDeleted) \
    X(eInvalidDwgVersion) X(eAnonymousEntry) X(eIllegalReplacement) \
    X(eEndOfObject) X(eEndOfFile) X(eIsReading) \
    X(eIsWriting) X(eNotOpenForRead) X(eNotOpenForWrite) \
    X(eNotThatKindOfClass) X(eInvalidBlockName) X(eMissingDxfField) \
    X(eDuplicateDxfField) X(eInvalidDxfCode) X(eInvalidResBuf) \
    X(eBadDxfSequence) X(eFilerError) X(eVertexAfterFace) \
    X(eInvalidFaceVertexIndex) X(eInvalidMeshVertexIndex) X(eOtherObjectsBusy) \
    X(eMustFirstAddBlockToDb) X(eCannotNestBlockDefs) X(eDwgRecoveredOK) \
    X(eDwgNotRecoverable) X(eDxfPartiallyRead) X(eDxfReadAborted) \
    X(eDxbPartiallyRead) X(eDwgCRCDoesNotMatch) X(eDwgSentinelDoesNotMatch) \
    X(eDwgObjectImproperlyRead) X(eNoInputFiler) X(eDwgNeedsAFullSave) \
    X(eDxbReadAborted) X(eFileLockedByACAD) X(eFileAccessErr) \
    X(eFileSystemErr) X(eFileInternalErr) X(eFileTooManyOpen) \
    X(eFileNotFound) X(eDwkLockFileFound) X(eWasErased) \
    X(ePermanentlyErased) X(eWasOpenForRead) X(eWasOpenForWrite) \
    X(eWasOpenForUndo) XV(eWasNotifying, 85) X(eWasOpenForNotify) \
    X(eOnLockedLayer) X(eMustOpenThruOwner) X(eSubentitiesStillOpen) \
    X(eAtMaxReaders) X(eIsWriteProtected) X(eIsXRefObject) \
    X(eNotAnEntity) X(eHadMultipleReaders) X(eDuplicateRecordName) \
    X(eXRefDependent) X(eSelfReference) X(eMissingSymbolTable) \
    X(eMissingSymbolTableRec) X(eWasNotOpenForWrite) X(eCloseWasNotifying) \
    X(eCloseModifyAborted) X(eClosePartialFailure) X(eCloseFailObjectDamaged) \
    X(eCannotBeErasedByCaller) X(eCannotBeResurrected) X(eWasNotErased) \
    X(eInsertAfter) X(eFixedAllErrors) X(eLeftErrorsUnfixed) \
    X(eUnrecoverableErrors) X(eNoDatabase) X(eXdataSizeExceeded) \
    X(eRegappIdNotFound) X(eRepeatEntity) X(eRecordNotInTable) \
    X(eIteratorDone) X(eNullIterator) X(eNotInBlock) \
    X(eOwnerNotInDatabase) X(eOwnerNotOpenForRead) X(eOwnerNotOpenForWrite) \
    X(eExplodeBeforeTransform) X(eCannotScaleNonUniformly) X(eNotInDatabase) \
    X(eNotCurrentDatabase) X(eIsAnEntity) X(eCannotChangeActiveViewport) \
    X(eNotInPaperspace) X(eCommandWasInProgress) X(eGeneralModelingFailure) \
    X(eOutOfRange) X(eNonCoplanarGeometry) X(eDegenerateGeometry) \
    X(eInvalidAxis) X(ePointNotOnEntity) X(eSingularPoint) \
    X(eInvalidOffset) X(eNonPlanarEntity) X(eCannotExplodeEntity) \
    X(eStringTooLong) X(eInvalidSymTableFlag) X(eUndefinedLineType) \
    X(eInvalidTextStyle) X(eTooFewLineTypeElements) X(eTooManyLineTypeElements) \
    X(eExcessiveItemCount) X(eIgnoredLinetypeRedef) X(eBadUCS) \
    X(eBadPaperspaceView) X(eSomeInputDataLeftUnread) X(eNoInternalSpace) \
    X(eInvalidDimStyle) X(eInvalidLayer) X(eUserBreak) \
    X(eDwgNeedsRecovery) X(eDeleteEntity) X(eInvalidFix) \
    X(eFSMError) X(eBadLayerName) X(eLayerGroupCodeMissing) \
    X(eBadColorIndex) X(eBadLinetypeName) X(eBadLinetypeScale) \
    X(eBadVisibilityValue) X(eProperClassSeparatorExpected) X(eBadLineWeightValue) \
    X(eBadColor) X(eNotAllowedForThisProxy) XV(eMakeMeProxy, 301) \
    X(eMakeMeProxyAndResurrect) X(eUndoOperationNotAvailable) X(eUndoNoGroupBegin) \
    X(eObjectIsReferenced) X(eHandleNotFound)

namespace Acad {

#define SV_ACAD_ERROR_STATUS_ENUMERATOR(name) name,
#define SV_ACAD_ERROR_STATUS_PINNED(name, value) name = value,
// A fixed underlying type: a status read back as a number is never out of range.
enum ErrorStatus : int {
    SV_ACAD_ERROR_STATUS_LIST(SV_ACAD_ERROR_STATUS_ENUMERATOR, SV_ACAD_ERROR_STATUS_PINNED)
};
#undef SV_ACAD_ERROR_STATUS_ENUMERATOR
#undef SV_ACAD_ERROR_STATUS_PINNED

static_assert(eOk == 0, "eOk must stay 0: callers test a status for truth");
static_assert(eInvalidInput == 3 && eWasNotifying == 85 && eMakeMeProxy == 301);

}  // namespace Acad

// The status's own name ("eOnLockedLayer"); "eUnknownErrorStatus" for a value outside the list.
const ACHAR* acadErrorStatusText(Acad::ErrorStatus status);
