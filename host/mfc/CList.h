// CList: MFC's doubly linked list walked with POSITION values, the template
// behind CStringList, CPtrList and CObList (see afxcoll.h).
//
// A POSITION stays valid until its own element is removed. Using a null
// POSITION, or taking the head or tail of an empty list, throws
// CInvalidArgException* (catch by pointer and Delete() it).
#pragma once

#include <concepts>
#include <utility>

#include "host/mfc/CException.h"
#include "host/win/WinTypes.h"

struct __POSITION {};
using POSITION = __POSITION*;

#ifndef BEFORE_START_POSITION
#define BEFORE_START_POSITION (reinterpret_cast<POSITION>(-1))
#endif

template <class TYPE, class ARG_TYPE = const TYPE&>
class CList : public CObject {
    struct Node {
        TYPE data;
        Node* prev = nullptr;
        Node* next = nullptr;
    };

public:
    CList() = default;
    CList(const CList& other) { AddTail(&other); }
    CList& operator=(const CList& other)
    {
        if (this != &other) {
            RemoveAll();
            AddTail(&other);
        }
        return *this;
    }
    ~CList() override { RemoveAll(); }

    INT_PTR GetCount() const { return m_count; }
    INT_PTR GetSize() const { return m_count; }
    BOOL IsEmpty() const { return m_count == 0; }

    TYPE& GetHead() { return NonEmpty(m_head)->data; }
    const TYPE& GetHead() const { return NonEmpty(m_head)->data; }
    TYPE& GetTail() { return NonEmpty(m_tail)->data; }
    const TYPE& GetTail() const { return NonEmpty(m_tail)->data; }

    TYPE RemoveHead()
    {
        Node* node = NonEmpty(m_head);
        TYPE value(std::move(node->data));
        Unlink(node);
        return value;
    }
    TYPE RemoveTail()
    {
        Node* node = NonEmpty(m_tail);
        TYPE value(std::move(node->data));
        Unlink(node);
        return value;
    }

    POSITION AddHead(ARG_TYPE newElement) { return Pos(LinkBefore(m_head, newElement)); }
    POSITION AddTail(ARG_TYPE newElement) { return Pos(LinkBefore(nullptr, newElement)); }
    // List forms: copy every element of the other list (which may be this one).
    // Templates, so that a null element is never taken for a null list.
    template <std::derived_from<CList> L>
    void AddHead(const L* pNewList)
    {
        if (!pNewList)
            AfxThrowInvalidArgException();
        const CList copy(*static_cast<const CList*>(pNewList));
        for (Node* n = copy.m_tail; n; n = n->prev)
            AddHead(n->data);
    }
    template <std::derived_from<CList> L>
    void AddTail(const L* pNewList)
    {
        if (!pNewList)
            AfxThrowInvalidArgException();
        const INT_PTR count = pNewList->m_count;
        Node* n = pNewList->m_head;
        for (INT_PTR i = 0; i < count; ++i, n = n->next)
            AddTail(n->data);
    }
    void RemoveAll()
    {
        while (m_head)
            Unlink(m_head);
    }

    POSITION GetHeadPosition() const { return Pos(m_head); }
    POSITION GetTailPosition() const { return Pos(m_tail); }
    // Return the element at rPosition and move rPosition on (null at the end).
    TYPE& GetNext(POSITION& rPosition)
    {
        Node* node = At(rPosition);
        rPosition = Pos(node->next);
        return node->data;
    }
    const TYPE& GetNext(POSITION& rPosition) const
    {
        Node* node = At(rPosition);
        rPosition = Pos(node->next);
        return node->data;
    }
    TYPE& GetPrev(POSITION& rPosition)
    {
        Node* node = At(rPosition);
        rPosition = Pos(node->prev);
        return node->data;
    }
    const TYPE& GetPrev(POSITION& rPosition) const
    {
        Node* node = At(rPosition);
        rPosition = Pos(node->prev);
        return node->data;
    }
    TYPE& GetAt(POSITION position) { return At(position)->data; }
    const TYPE& GetAt(POSITION position) const { return At(position)->data; }
    void SetAt(POSITION pos, ARG_TYPE newElement) { At(pos)->data = newElement; }
    void RemoveAt(POSITION position) { Unlink(At(position)); }
    POSITION InsertBefore(POSITION position, ARG_TYPE newElement)
    {
        return position ? Pos(LinkBefore(At(position), newElement)) : AddHead(newElement);
    }
    POSITION InsertAfter(POSITION position, ARG_TYPE newElement)
    {
        return position ? Pos(LinkBefore(At(position)->next, newElement)) : AddTail(newElement);
    }

    // The first element equal to searchValue after startAfter (from the head
    // when null); null if none.
    POSITION Find(ARG_TYPE searchValue, POSITION startAfter = nullptr) const
    {
        for (Node* n = startAfter ? At(startAfter)->next : m_head; n; n = n->next) {
            if (n->data == searchValue)
                return Pos(n);
        }
        return nullptr;
    }
    // Null when nIndex is outside the list.
    POSITION FindIndex(INT_PTR nIndex) const
    {
        if (nIndex < 0 || nIndex >= m_count)
            return nullptr;
        Node* n = m_head;
        while (nIndex-- > 0)
            n = n->next;
        return Pos(n);
    }

private:
    static POSITION Pos(Node* node) { return reinterpret_cast<POSITION>(node); }
    static Node* At(POSITION pos)
    {
        if (!pos || pos == BEFORE_START_POSITION)
            AfxThrowInvalidArgException();
        return reinterpret_cast<Node*>(pos);
    }
    static Node* NonEmpty(Node* node)
    {
        if (!node)
            AfxThrowInvalidArgException();
        return node;
    }
    Node* LinkBefore(Node* before, ARG_TYPE value)
    {
        Node* node = new Node{TYPE(value)};
        node->next = before;
        node->prev = before ? before->prev : m_tail;
        (node->prev ? node->prev->next : m_head) = node;
        (before ? before->prev : m_tail) = node;
        ++m_count;
        return node;
    }
    void Unlink(Node* node)
    {
        (node->prev ? node->prev->next : m_head) = node->next;
        (node->next ? node->next->prev : m_tail) = node->prev;
        --m_count;
        delete node;
    }

    Node* m_head = nullptr;
    Node* m_tail = nullptr;
    INT_PTR m_count = 0;
};
