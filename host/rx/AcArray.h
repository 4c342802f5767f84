// AcArray<T>: the platform's growable array with a logical length, a physical
// length and a grow size. Out-of-range access throws std::out_of_range.
#pragma once

#include <algorithm>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

template <typename T>
class AcArray {
public:
    using iterator = typename std::vector<T>::iterator;
    using const_iterator = typename std::vector<T>::const_iterator;

    explicit AcArray(int physicalLength = 0, int growLength = 8)
        : m_grow(growLength > 0 ? growLength : 8)
    {
        setPhysicalLength(physicalLength);
    }
    AcArray(std::initializer_list<T> items) : m_data(items), m_phys(static_cast<int>(items.size())) {}

    // Element access --------------------------------------------------------
    T& at(int i) { check(i); return m_data[static_cast<size_t>(i)]; }
    const T& at(int i) const { check(i); return m_data[static_cast<size_t>(i)]; }
    T& operator[](int i) { return at(i); }
    const T& operator[](int i) const { return at(i); }
    T& first() { return at(0); }
    const T& first() const { return at(0); }
    T& last() { return at(length() - 1); }
    const T& last() const { return at(length() - 1); }
    AcArray& setAt(int i, const T& value) { at(i) = value; return *this; }
    T* asArrayPtr() { return m_data.data(); }
    const T* asArrayPtr() const { return m_data.data(); }

    // Lengths ---------------------------------------------------------------
    int length() const { return static_cast<int>(m_data.size()); }
    int logicalLength() const { return length(); }
    int physicalLength() const { return m_phys; }
    int growLength() const { return m_grow; }
    bool isEmpty() const { return m_data.empty(); }

    AcArray& setLogicalLength(int n)
    {
        if (n < 0)
            throw std::out_of_range("AcArray::setLogicalLength: negative length " + std::to_string(n));
        if (n > m_phys)
            setPhysicalLength(n);
        m_data.resize(static_cast<size_t>(n));
        return *this;
    }
    // Shrinking the physical length below the logical one truncates the array.
    AcArray& setPhysicalLength(int n)
    {
        if (n < 0)
            throw std::out_of_range("AcArray::setPhysicalLength: negative length " + std::to_string(n));
        if (n < length())
            m_data.resize(static_cast<size_t>(n));
        m_data.reserve(static_cast<size_t>(n));
        m_phys = n;
        return *this;
    }
    AcArray& setGrowLength(int n)
    {
        if (n > 0)
            m_grow = n;
        return *this;
    }

    // Adding and removing ---------------------------------------------------
    int append(const T& value)
    {
        T copy(value); // value may live inside this array
        growFor(length() + 1);
        m_data.push_back(std::move(copy));
        return length() - 1;
    }
    AcArray& append(const AcArray& other)
    {
        std::vector<T> copy(other.m_data);
        growFor(length() + other.length());
        m_data.insert(m_data.end(), copy.begin(), copy.end());
        return *this;
    }
    // index may equal length(): that appends.
    AcArray& insertAt(int index, const T& value)
    {
        if (index < 0 || index > length())
            throw std::out_of_range(message("insertAt", index));
        T copy(value);
        growFor(length() + 1);
        m_data.insert(m_data.begin() + index, std::move(copy));
        return *this;
    }
    AcArray& removeAt(int index)
    {
        check(index);
        m_data.erase(m_data.begin() + index);
        return *this;
    }
    AcArray& removeFirst() { return removeAt(0); }
    AcArray& removeLast() { return removeAt(length() - 1); }
    AcArray& removeAll() { m_data.clear(); return *this; }
    // Removes the first element equal to value at or after start.
    bool remove(const T& value, int start = 0)
    {
        int i = findFrom(value, start);
        if (i < 0)
            return false;
        removeAt(i);
        return true;
    }
    AcArray& setAll(const T& value)
    {
        std::fill(m_data.begin(), m_data.end(), value);
        return *this;
    }

    // Searching and ordering ------------------------------------------------
    bool find(const T& value, int& foundAt, int start = 0) const
    {
        int i = findFrom(value, start);
        if (i < 0)
            return false;
        foundAt = i;
        return true;
    }
    // Index of the first element equal to value, or -1.
    int find(const T& value) const { return findFrom(value, 0); }
    bool contains(const T& value, int start = 0) const { return findFrom(value, start) >= 0; }
    AcArray& reverse()
    {
        std::reverse(m_data.begin(), m_data.end());
        return *this;
    }
    AcArray& swap(int i, int j)
    {
        check(i);
        check(j);
        std::swap(m_data[static_cast<size_t>(i)], m_data[static_cast<size_t>(j)]);
        return *this;
    }

    bool operator==(const AcArray& other) const { return m_data == other.m_data; }

    iterator begin() { return m_data.begin(); }
    iterator end() { return m_data.end(); }
    const_iterator begin() const { return m_data.begin(); }
    const_iterator end() const { return m_data.end(); }

private:
    int findFrom(const T& value, int start) const
    {
        for (int i = std::max(start, 0); i < length(); ++i)
            if (m_data[static_cast<size_t>(i)] == value)
                return i;
        return -1;
    }
    void check(int i) const
    {
        if (i < 0 || i >= length())
            throw std::out_of_range(message("index", i));
    }
    std::string message(const char* what, int i) const
    {
        return std::string("AcArray ") + what + " " + std::to_string(i) + " out of range (length "
             + std::to_string(length()) + ")";
    }
    // The physical length grows in steps of the grow size, enough for need.
    void growFor(int need)
    {
        if (need <= m_phys)
            return;
        // At least the grow size, and never less than doubling: appends stay
        // amortised constant time however large the array becomes.
        int phys = m_phys + (m_grow > m_phys ? m_grow : m_phys);
        if (phys < need)
            phys = need;
        m_data.reserve(static_cast<size_t>(phys));
        m_phys = phys;
    }

    std::vector<T> m_data;
    int m_grow = 8;
    int m_phys = 0;
};
