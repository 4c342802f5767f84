// AcDbHandleIndex: handle -> object table entry, the lookup every id and every file read goes through.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

class AcDbStub;

// Handles are given out from a seed and files number their objects densely, so most handles
// index a plain array; the odd far-off handle (a hand-edited file, a huge seed) goes to a hash
// map instead, which keeps the array within a small multiple of the number of entries.
class AcDbHandleIndex {
public:
    AcDbStub* find(std::uint64_t handle) const noexcept
    {
        if (handle < m_dense.size() && m_dense[handle])
            return m_dense[handle];
        if (m_sparse.empty())
            return nullptr;
        const auto it = m_sparse.find(handle);
        return it == m_sparse.end() ? nullptr : it->second;
    }

    bool contains(std::uint64_t handle) const noexcept { return find(handle) != nullptr; }

    // The handle must not be present.
    void insert(std::uint64_t handle, AcDbStub* stub)
    {
        if (handle >= m_dense.size() && handle < denseLimit())
            grow(std::max<std::size_t>(handle + 1, 2 * m_dense.size()));
        if (handle < m_dense.size())
            m_dense[handle] = stub;
        else
            m_sparse.emplace(handle, stub);
        ++m_size;
    }

    void erase(std::uint64_t handle) noexcept
    {
        if (handle < m_dense.size() && m_dense[handle]) {
            m_dense[handle] = nullptr;
            --m_size;
        } else if (m_sparse.erase(handle)) {
            --m_size;
        }
    }

    std::size_t size() const noexcept { return m_size; }

    // Every entry as (handle, stub); those in the array in handle order, then the others.
    template <typename Fn>
    void forEach(Fn&& fn) const
    {
        for (std::size_t h = 0; h < m_dense.size(); ++h)
            if (m_dense[h])
                fn(static_cast<std::uint64_t>(h), m_dense[h]);
        for (const auto& [h, stub] : m_sparse)
            fn(h, stub);
    }

    // True when forEach visits in handle order (no entry outside the array).
    bool ordered() const noexcept { return m_sparse.empty(); }

private:
    // A forward reference early in a file can land far out; once the array reaches it, it moves in.
    void grow(std::size_t size)
    {
        m_dense.resize(size, nullptr);
        for (auto it = m_sparse.begin(); it != m_sparse.end();) {
            if (it->first < size) {
                m_dense[it->first] = it->second;
                it = m_sparse.erase(it);
            } else {
                ++it;
            }
        }
    }

    // Room for growth without letting one large handle claim gigabytes.
    std::size_t denseLimit() const noexcept { return std::max<std::size_t>(1u << 16, 8 * (m_size + 1)); }

    std::vector<AcDbStub*> m_dense;
    std::unordered_map<std::uint64_t, AcDbStub*> m_sparse;
    std::size_t m_size = 0;
};
