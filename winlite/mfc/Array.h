#pragma once

#include "base/Types.h"

#include <cassert>
#include <vector>

/// An array that grows; ARG is how elements are handed in. Positions out of range assert. Different from MFC: it owns
/// no run-time class and is not written to archives.
template<class T, class ARG = const T&>
class CArray
{
public:
    INT_PTR GetSize() const { return static_cast<INT_PTR>(m_vElements.size()); }
    INT_PTR GetCount() const { return GetSize(); }
    BOOL IsEmpty() const { return m_vElements.empty(); }

    /// Appends, and gives the new element's position.
    INT_PTR Add(ARG element)
    {
        m_vElements.push_back(element);
        return GetSize() - 1;
    }
    void RemoveAt(INT_PTR iElement, INT_PTR nElements = 1)
    {
        assert(iElement >= 0 && nElements >= 0 && iElement + nElements <= GetSize());
        m_vElements.erase(m_vElements.begin() + iElement, m_vElements.begin() + iElement + nElements);
    }
    void RemoveAll() { m_vElements.clear(); }

    T& operator[](INT_PTR iElement) { return m_vElements[Checked(iElement)]; }
    const T& operator[](INT_PTR iElement) const { return m_vElements[Checked(iElement)]; }

    /// All elements, one after the other.
    T* GetData() { return m_vElements.data(); }
    const T* GetData() const { return m_vElements.data(); }

private:
    std::size_t Checked(INT_PTR iElement) const
    {
        assert(iElement >= 0 && iElement < GetSize());
        return static_cast<std::size_t>(iElement);
    }

    std::vector<T> m_vElements;
};
