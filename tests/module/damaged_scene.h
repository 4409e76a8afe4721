// Drawings of whole and broken groups at random, the same ones for the same seed.
#pragma once

#include <random>

#include "common/census.h"
#include "group_record.h"
#include "storage_pieces.h"

namespace tests {

class DamagedScene : public Scene {
  public:
    DamagedScene(unsigned seed, const host::Switches& settings)
        : Scene("", settings), m_random(seed) {
        draw(words());
        run(L"VelmoGROUPNOTACTIVE\n");
        for (int i = roll(9); i > 0; --i)
            damage();
        run(L"VelmoGROUPACTIVE\nPICK NONE\n");
    }

    int roll(int sides) { return static_cast<int>(m_random() % static_cast<unsigned>(sides)); }

    /// Puts some of the entities on a layer that is locked.
    void lockSome() {
        addRecord<AcDbLayerTable, AcDbLayerTableRecord>(L"LOCKED");
        for (const AcDbObjectId& id : entities()) {
            Opened<AcDbEntity> entity;
            if (roll(3) != 0) continue;
            ASSERT_EQ(acdbOpenAcDbEntity(entity.receive(), id, AcDb::kForWrite), Acad::eOk);
            entity->setLayer(L"LOCKED");
        }
        lockLayer(L"LOCKED");
    }

  private:
    std::string words() {
        std::string text = "line";
        for (int groups = 2 + roll(4); groups > 0; --groups) {
            text += " (line";
            for (int i = roll(6); i > 0; --i)
                text += " circle";
            text += roll(2) != 0 ? " line)" : " line) line";
        }
        return text;
    }

    /// An entity goes, markers are copied as they are with what follows them, a count is wrong, an
    /// end marker names something else or in another writing, two groups run into one, or a marker
    /// counts as a member.
    void damage() {
        const std::vector<int> markers = markerPositions();
        if (markers.empty()) return;
        const int marker = roll(static_cast<int>(markers.size()));
        const int other = roll(static_cast<int>(markers.size()));
        const auto at = [&](int n) { return L"#" + std::to_wstring(markers[n]) + L" "; };
        const std::vector<std::string> words = wordsOf(*this);
        const auto isEnd = [&](int n) { return words[markers[n] - 1][0] == 'e'; };
        const int kind = roll(8);
        if (kind == 0) after(L"ERASE " + at(marker) + L"\n\n");
        if (kind == 1) after(L"COPY " + at(marker) + at(other) + L"\n\n0,0 0,0\n\n");
        if (kind == 2 && !isEnd(marker)) setAttribute(*this, marker, 1, anyCount());
        if (kind == 3 && isEnd(marker)) name(marker, markers[other], L"");
        if (kind == 4) createXrecord(entities()[markers[marker] - 1]);
        if (kind == 5 && isEnd(marker) && marker > 0 && marker + 2 < int(markers.size()) &&
            isEnd(marker + 2)) {
            name(marker + 2, markers[marker - 1], L"");
            after(L"ERASE " + at(marker) + L"\n\n");
        }
        if (kind == 6 && isEnd(marker)) name(marker, 1 + roll(int(words.size())), L"0");
        if (kind == 7 && isEnd(marker) && marker > 0) name(marker, markers[marker - 1], L"0");
    }

    std::wstring anyCount() {
        const wchar_t* const odd[] = {L"-2147483648", L"-99999999999", L"99999999999", L"+3",
                                      L"3x"};
        const int choice = roll(20);
        return choice < 5 ? odd[choice] : std::to_wstring(roll(16));
    }

    void name(int endMarker, int position, const std::wstring& inFront) {
        ACHAR handle[17] = {};
        entities()[position - 1].handle().getIntoAsciiBuffer(handle);
        setAttribute(*this, endMarker, 0, inFront + handle);
    }

    /// Positions of the markers.
    std::vector<int> markerPositions() const {
        const std::vector<std::string> words = wordsOf(*this);
        std::vector<int> positions;
        for (std::size_t i = 0; i < words.size(); ++i)
            if (isMarker(words[i])) positions.push_back(static_cast<int>(i) + 1);
        return positions;
    }

    std::mt19937 m_random;
};

}  // namespace tests
