// The MFC base object and the exception kinds the host throws.
//
// Like MFC, exceptions are thrown by pointer and the catcher deletes them:
//     try { arr.GetAt(99); }
//     catch (CInvalidArgException* e) { e->Delete(); }   // or catch (CException* e)
#pragma once

#include "host/win/WinTypes.h"

class CObject {
public:
    virtual ~CObject() = default;
    virtual void AssertValid() const {}

protected:
    CObject() = default;
    CObject(const CObject&) = default;
    CObject& operator=(const CObject&) = default;
};

class CException : public CObject {
public:
    // Frees an exception caught by pointer.
    void Delete() { delete this; }
    // Copies a short description (NUL-terminated, truncated to nMax) and returns TRUE.
    virtual BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, UINT* pnHelpContext = nullptr) const;
    virtual const wchar_t* What() const { return L"Unknown exception"; }
};

// An index or argument outside what the callee accepts (MFC's E_INVALIDARG).
class CInvalidArgException : public CException {
public:
    const wchar_t* What() const override { return L"Invalid argument"; }
};

class CMemoryException : public CException {
public:
    const wchar_t* What() const override { return L"Out of memory"; }
};

[[noreturn]] void AfxThrowInvalidArgException();
[[noreturn]] void AfxThrowMemoryException();

// The runtime-class macros are accepted so that module classes read as usual;
// type questions are answered with dynamic_cast instead.
#ifndef DECLARE_DYNAMIC
#define DECLARE_DYNAMIC(cls)
#define IMPLEMENT_DYNAMIC(cls, base)
#define DECLARE_DYNCREATE(cls)
#define IMPLEMENT_DYNCREATE(cls, base)
#define DECLARE_SERIAL(cls)
#define IMPLEMENT_SERIAL(cls, base, schema)
#endif
