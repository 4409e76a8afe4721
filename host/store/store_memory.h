// Memory of a store: the arena of loaded text, the handle index, and the register of open stores.
#pragma once

#include <algorithm>
#include <cstring>

#include "host/store/store.h"

namespace host {

/// Open stores by serial number; the place of a closed one holds null. Place 0 is never used.
const std::vector<Store*>& storesBySerial();

/// Text that lives as long as the store. Blocks grow from small to some megabytes.
struct Store::Arena {
    std::string_view keep(std::string_view text) {
        if (text.size() > m_left) addBlock(text.size());
        char* const place = m_next;
        if (!text.empty()) std::memcpy(place, text.data(), text.size());
        m_next += text.size();
        m_left -= text.size();
        return {place, text.size()};
    }

  private:
    static constexpr std::size_t kFirstBlock = 16 * 1024;
    static constexpr std::size_t kLargestBlock = 4 * 1024 * 1024;

    void addBlock(std::size_t needed) {
        const std::size_t size = std::max(needed, m_blockSize);
        m_blockSize = std::min(m_blockSize * 2, kLargestBlock);
        m_blocks.emplace_back(new char[size]);
        m_next = m_blocks.back().get();
        m_left = size;
    }

    std::vector<std::unique_ptr<char[]>> m_blocks;
    std::size_t m_blockSize = kFirstBlock;
    char* m_next = nullptr;
    std::size_t m_left = 0;
};

/// From handle to slot. Open addressing over slot indexes alone: the handle to compare with is in
/// the slot, so one entry costs four bytes. Nothing is ever removed.
///
/// Handles and slots grow together over long stretches, so the distance between the two that was
/// found last is tried first: a walk in drawing order stays out of the table.
struct Store::HandleIndex {
    Index find(const Store& store, std::uint64_t handle) const {
        const std::uint64_t guess = handle - m_distance;
        if (guess != kNoIndex && guess <= store.count() &&
            store.at(static_cast<Index>(guess)).handle == handle) {
            return static_cast<Index>(guess);
        }
        const Index index = lookUp(store, handle);
        if (index != kNoIndex) m_distance = handle - index;
        return index;
    }
    /// `index`'s slot has its handle already; no other slot has the same.
    void add(const Store& store, Index index) {
        if (2 * (m_used + 1) > m_places.size()) grow(store);
        insert(store.at(index).handle, index);
        ++m_used;
    }

  private:
    Index lookUp(const Store& store, std::uint64_t handle) const {
        if (m_places.empty()) return kNoIndex;
        for (std::size_t place = firstPlace(handle);; place = (place + 1) & mask()) {
            const Index index = m_places[place];
            if (index == kNoIndex || store.at(index).handle == handle) return index;
        }
    }
    std::size_t mask() const { return m_places.size() - 1; }
    std::size_t firstPlace(std::uint64_t handle) const {
        return static_cast<std::size_t>((handle * 0x9E3779B97F4A7C15u) >> 32) & mask();
    }
    void insert(std::uint64_t handle, Index index) {
        std::size_t place = firstPlace(handle);
        while (m_places[place] != kNoIndex)
            place = (place + 1) & mask();
        m_places[place] = index;
    }
    void grow(const Store& store) {
        const std::vector<Index> old = std::move(m_places);
        m_places.assign(std::max<std::size_t>(256, old.size() * 2), kNoIndex);
        for (const Index index : old)
            if (index != kNoIndex) insert(store.at(index).handle, index);
    }

    std::vector<Index> m_places;
    std::size_t m_used = 0;
    mutable std::uint64_t m_distance = 0;  ///< from slot to handle, of the object found last
};

}  // namespace host
