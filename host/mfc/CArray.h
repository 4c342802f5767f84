// CArray: MFC's growable array, the one template behind every named array
// class (see afxcoll.h).
//
// Access outside the array throws CInvalidArgException* as MFC does; catch it
// by pointer and Delete() it (see CException.h). The array owns its elements
// by value: an array of pointers never deletes what they point to.
#pragma once

#include <algorithm>
#include <concepts>
#include <utility>
#include <vector>

#include "host/mfc/CException.h"
#include "host/win/WinTypes.h"

template <class TYPE, class ARG_TYPE = const TYPE&>
class CArray : public CObject {
public:
    CArray() = default;
    CArray(const CArray&) = default;
    CArray& operator=(const CArray&) = default;
    CArray(CArray&&) noexcept = default;
    CArray& operator=(CArray&&) noexcept = default;

    INT_PTR GetSize() const { return static_cast<INT_PTR>(m_data.size()); }
    INT_PTR GetCount() const { return GetSize(); }
    INT_PTR GetUpperBound() const { return GetSize() - 1; }
    BOOL IsEmpty() const { return m_data.empty(); }

    // New elements are value-initialised (0 for numbers and pointers). The
    // growth hint is accepted for compatibility; storage grows geometrically.
    void SetSize(INT_PTR nNewSize, INT_PTR nGrowBy = -1)
    {
        (void)nGrowBy;
        if (nNewSize < 0)
            AfxThrowInvalidArgException();
        m_data.resize(static_cast<std::size_t>(nNewSize));
    }
    void FreeExtra() { m_data.shrink_to_fit(); }
    void RemoveAll() { m_data.clear(); }

    const TYPE& GetAt(INT_PTR nIndex) const { return m_data[Checked(nIndex)]; }
    TYPE& GetAt(INT_PTR nIndex) { return m_data[Checked(nIndex)]; }
    void SetAt(INT_PTR nIndex, ARG_TYPE newElement) { m_data[Checked(nIndex)] = newElement; }
    TYPE& ElementAt(INT_PTR nIndex) { return m_data[Checked(nIndex)]; }
    const TYPE& ElementAt(INT_PTR nIndex) const { return m_data[Checked(nIndex)]; }
    TYPE& operator[](INT_PTR nIndex) { return m_data[Checked(nIndex)]; }
    const TYPE& operator[](INT_PTR nIndex) const { return m_data[Checked(nIndex)]; }

    // Null when the array is empty.
    const TYPE* GetData() const { return m_data.empty() ? nullptr : m_data.data(); }
    TYPE* GetData() { return m_data.empty() ? nullptr : m_data.data(); }

    // Grows the array (value-initialising the gap) when nIndex is past the end.
    void SetAtGrow(INT_PTR nIndex, ARG_TYPE newElement)
    {
        if (nIndex < 0)
            AfxThrowInvalidArgException();
        if (nIndex >= GetSize()) {
            TYPE copy(newElement);  // newElement may refer into this array
            m_data.resize(static_cast<std::size_t>(nIndex) + 1);
            m_data[static_cast<std::size_t>(nIndex)] = std::move(copy);
        } else {
            m_data[static_cast<std::size_t>(nIndex)] = newElement;
        }
    }
    // Returns the index of the new element.
    INT_PTR Add(ARG_TYPE newElement)
    {
        m_data.push_back(TYPE(newElement));
        return GetUpperBound();
    }
    // Returns the index of the first appended element.
    INT_PTR Append(const CArray& src)
    {
        const INT_PTR first = GetSize();
        if (&src == this) {
            const std::vector<TYPE> copy(m_data);
            m_data.insert(m_data.end(), copy.begin(), copy.end());
        } else {
            m_data.insert(m_data.end(), src.m_data.begin(), src.m_data.end());
        }
        return first;
    }
    void Copy(const CArray& src)
    {
        if (&src != this)
            m_data = src.m_data;
    }

    // Inserts nCount copies at nIndex; an index past the end grows the array
    // first. A negative index or a count below 1 throws.
    void InsertAt(INT_PTR nIndex, ARG_TYPE newElement, INT_PTR nCount = 1)
    {
        if (nIndex < 0 || nCount <= 0)
            AfxThrowInvalidArgException();
        TYPE copy(newElement);
        if (nIndex > GetSize())
            m_data.resize(static_cast<std::size_t>(nIndex));
        m_data.insert(m_data.begin() + nIndex, static_cast<std::size_t>(nCount), copy);
    }
    // The array form; a template so that a literal 0 element is never taken
    // for a null array.
    template <std::derived_from<CArray> A>
    void InsertAt(INT_PTR nStartIndex, const A* pNewArray)
    {
        if (!pNewArray || nStartIndex < 0)
            AfxThrowInvalidArgException();
        if (pNewArray->IsEmpty())
            return;
        const std::vector<TYPE> copy(pNewArray->m_data);
        if (nStartIndex > GetSize())
            m_data.resize(static_cast<std::size_t>(nStartIndex));
        m_data.insert(m_data.begin() + nStartIndex, copy.begin(), copy.end());
    }
    // Removes nCount elements from nIndex; the range must lie within the array.
    void RemoveAt(INT_PTR nIndex, INT_PTR nCount = 1)
    {
        if (nIndex < 0 || nCount < 0 || nIndex + nCount > GetSize())
            AfxThrowInvalidArgException();
        m_data.erase(m_data.begin() + nIndex, m_data.begin() + nIndex + nCount);
    }

    // Range-for support for host and test code.
    auto begin() { return m_data.begin(); }
    auto end() { return m_data.end(); }
    auto begin() const { return m_data.begin(); }
    auto end() const { return m_data.end(); }

private:
    std::size_t Checked(INT_PTR nIndex) const
    {
        if (nIndex < 0 || nIndex >= GetSize())
            AfxThrowInvalidArgException();
        return static_cast<std::size_t>(nIndex);
    }

    std::vector<TYPE> m_data;
};
