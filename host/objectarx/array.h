// Growable array of the interface.
#pragma once

#include <vector>

/// Growable array with value semantics. All of it is assumed; growth by the growth length is a
/// promise about allocation that callers cannot see.
template <typename T>
class AcArray {
  public:
    explicit AcArray(int physicalLength = 0, int /*growLength*/ = 8) {
        m_items.reserve(static_cast<std::size_t>(physicalLength));
    }

    /// Adds `value` behind the last element and returns its index.
    int append(const T& value) {
        m_items.push_back(value);
        return length() - 1;
    }
    AcArray& append(const AcArray& other) {
        const std::vector<T> copy = other.m_items;
        m_items.insert(m_items.end(), copy.begin(), copy.end());
        return *this;
    }

    int length() const { return static_cast<int>(m_items.size()); }
    /// Cuts the array or fills it up with default values; 0 keeps the storage.
    AcArray& setLogicalLength(int length) {
        m_items.resize(static_cast<std::size_t>(length));
        return *this;
    }

    T& operator[](int index) { return m_items[static_cast<std::size_t>(index)]; }
    const T& operator[](int index) const { return m_items[static_cast<std::size_t>(index)]; }
    T& first() { return m_items.front(); }
    const T& first() const { return m_items.front(); }
    T& last() { return m_items.back(); }
    const T& last() const { return m_items.back(); }

  private:
    std::vector<T> m_items;
};
