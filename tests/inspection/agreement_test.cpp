// The inspection agrees with the module: what it calls whole the module verifies and leaves alone,
// and the repair pass does what was foretold.
#include <iterator>
#include <numeric>
#include <random>

#include "common/drawing_order.h"
#include "common/scene.h"
#include "common/scratch.h"
#include "common/seeds.h"
#include "drafthost/groups/drawing_inspection.h"
#include "host/tags/tag_values.h"

namespace {

using inspection::Group;
using inspection::Repair;
using tests::Scene;

/// Texts of a marker's attributes, at least two; none when it is gone.
std::vector<std::string> textsOf(const host::Store& store, const std::string& handle) {
    const host::ObjectBody* body = store.byHandle(handle);
    if (body == nullptr || body->erased) return {};
    std::vector<std::string> texts;
    for (const host::ObjectBody& part : store.children(body->self))
        texts.emplace_back(host::rawTag(part.tags(), 1));
    texts.resize(std::max<std::size_t>(texts.size(), 2));
    return texts;
}

struct Markers {
    Markers(const host::Store& store, const Group& group)
        : begin(textsOf(store, group.begin)), end(textsOf(store, group.end)) {
        const auto same = [](const std::string& text, const std::string& handle) {
            return host::parseHandle(text).value_or(0) == host::parseHandle(handle);
        };
        nameEachOther = !begin.empty() && !end.empty() && same(begin[0], group.end) &&
                        same(end[0], group.begin);
    }
    std::vector<std::string> begin, end;
    bool nameEachOther;
};

/// True when picking each recorded member brings its group without a word.
bool verifies(const Group& group) {
    int picked = 0;
    for (const inspection::Entity& member : group.members) {
        if (!member.hasRecord) continue;
        ++picked;
        host::pickNothing();
        host::clearEffects();
        host::pick({member.id});
        const std::string said = Scene::printed();
        if (said.find("Note:") != said.npos || said.find(tests::kNotGrouped + 2) != said.npos)
            return false;
    }
    host::pickNothing();
    return picked > 0;
}

/// What became of a group, by its markers before and after the repair pass.
std::string outcome(const Markers& before, const Markers& after) {
    if (after.begin.empty() && after.end.empty()) return "dissolved";
    if (after.begin.empty() || after.end.empty()) return "halved";
    if (!after.nameEachOther) return "damaged";
    if (before.begin.empty() || after.begin[1] != before.begin[1]) return "shortened";
    return before.nameEachOther ? "stays" : "linked";
}

std::string nameOf(Repair repair) {
    const char* const names[] = {"stays", "shortened", "linked", "dissolved", "damaged", "halved"};
    return names[static_cast<int>(repair)];
}

void expectAgreement(const std::string& file) {
    tests::Drafting drafting(file, L"", tests::Drafting::Damage::Known);
    AcDbDatabase& drawing = *drafting.session().database();
    const inspection::Inspection found = inspectDrawing(drawing, false);
    std::vector<Markers> before;
    std::vector<bool> verified;
    for (const Group& group : found.groups) {
        before.emplace_back(drafting.store(), group);
        verified.push_back(verifies(group));
    }
    drafting.run(L"REGEN\n");
    const inspection::Inspection mended = inspectDrawing(drawing, false);
    for (std::size_t i = 0; i < found.groups.size(); ++i) {
        const Group& group = found.groups[i];
        const Markers after(drafting.store(), group);
        const std::string told = nameOf(group.repair);
        const std::string seen = outcome(before[i], after);
        const std::string what = "group " + group.begin + ", " + inspection::nameOf(group.state) +
                                 ": " + group.reason + "; now " + drafting.order();
        // Damaged are also markers that stay as they are and are wrong.
        const bool lasts = seen != "dissolved" && seen != "halved";
        EXPECT_TRUE(told == "damaged" ? lasts : told == seen)
            << told << ", not " << seen << ": " << what;
        const auto isWhole = [&](const Group& each) {
            return each.begin == group.begin && each.end == group.end &&
                   each.state == inspection::State::Whole;
        };
        EXPECT_FALSE(told == "damaged" &&
                     std::any_of(mended.groups.begin(), mended.groups.end(), isWhole))
            << what;
        const bool left = seen == "stays";
        const bool recorded = std::any_of(group.members.begin(), group.members.end(),
                                          [](const auto& member) { return member.hasRecord; });
        if (recorded) {
            EXPECT_EQ(group.state == inspection::State::Whole, verified[i] && left) << what;
        }
    }
}

/// A saved drawing with groups whose entities are taken apart and put together differently.
class DamagedDrawing {
  public:
    DamagedDrawing(const std::string& dxf, const std::string& prefix, unsigned seed)
        : m_names{prefix + "_GB", prefix + "_GE", "velmo_ge", "OTHER", prefix + "_GX"},
          m_layer("\n  2\n" + prefix + "_GFRZ\n"),
          m_random(seed) {
        std::size_t at = dxf.find("  0\n", dxf.find("\nENTITIES\n"));
        m_before = dxf.substr(0, at);
        const std::size_t end = dxf.find("  0\nENDSEC\n", at);
        m_behind = dxf.substr(end);
        while (at < end) {
            const std::size_t next = dxf.find("\n  0\n", at) + 1;
            const std::string part = dxf.substr(at, next - at), type = part.substr(4, 6);
            if (type == "ATTRIB" || type == "SEQEND")
                m_entities.back() += part;
            else
                m_entities.push_back(part);
            at = next;
        }
    }
    std::string text() const {
        return std::accumulate(m_entities.begin(), m_entities.end(), m_before) + m_behind;
    }

    /// One random damage; what it was.
    std::string damage() {
        const std::size_t from = any(m_entities.size()), to = any(m_entities.size());
        const std::string moved = m_entities[from];
        switch (any(14)) {
            case 0:
            case 1:
            case 2:
                if (m_entities.size() < 6) return "nothing";
                m_entities.erase(at(from));
                return "erase " + std::to_string(from);
            case 3:
            case 4:
                m_entities.erase(at(from));
                m_entities.insert(at(to), moved);
                return "move " + std::to_string(from) + " to " + std::to_string(to);
            case 5:
            case 6:
                return any(2) == 0 ? change("\nATTRIB\n", "  2", m_names[any(5)])
                                   : change("", "  2", m_names[any(2)]);
            case 7:
                m_entities.insert(at(to), "  0\nPOINT\n  8\n0\n 10\n0\n 20\n0\n 30\n0\n");
                return "point at " + std::to_string(to);
            case 8:
                m_entities.insert(at(to),
                                  "  0\nPOLYLINE\n  8\n0\n 66\n1\n 70\n8\n"
                                  "  0\nVERTEX\n  8\n0\n 10\n1\n 70\n32\n  0\nSEQEND\n  8\n0\n");
                return "polyline at " + std::to_string(to);
            case 9:
                if (const std::size_t layer = m_before.find(m_layer); layer != m_before.npos)
                    m_before.replace(m_before.find("\n 70\n", layer) + 5, 1, "4");
                return "lock the layer";
            default:
                return change("\nATTRIB\n", "  1", anyText(moved));
        }
    }

  private:
    std::size_t any(std::size_t count) { return m_random() % count; }
    std::vector<std::string>::iterator at(std::size_t place) {
        return m_entities.begin() + static_cast<std::ptrdiff_t>(place);
    }
    /// What a marker's text may hold, right or wrong; of handles that of an entity.
    std::string anyText(const std::string& entity) {
        const std::size_t begin = entity.find("\n  5\n") + 5;
        const std::string handle = entity.substr(begin, entity.find('\n', begin) - begin);
        const std::string texts[] = {handle,        handle, "1",  "2",     "3",         "4",
                                     "many",        "",     " 2", "FFFFF", "ENT_HANDL", "2x",
                                     "-2147483648", "+3"};
        return texts[any(std::size(texts))];
    }
    /// Gives a value of a random marker another: the first with that code behind `from`.
    std::string change(const std::string& from, const std::string& code, const std::string& value) {
        std::vector<std::string*> markers;
        for (std::string& entity : m_entities) {
            if (entity.find(m_names[0] + "\n") != entity.npos ||
                entity.find(m_names[1] + "\n") != entity.npos)
                markers.push_back(&entity);
        }
        if (markers.empty()) return "nothing";
        std::string& marker = *markers[any(markers.size())];
        // Of the two attributes of a begin marker either.
        std::size_t begin = any(2) == 0 ? marker.find(from) : marker.rfind(from);
        begin = marker.find("\n" + code + "\n", from.empty() ? 0 : begin);
        if (begin == marker.npos) return "nothing";
        begin += code.size() + 2;
        marker.replace(begin, marker.find('\n', begin) - begin, value);
        return code + " " + value;
    }

    const std::string m_names[5], m_layer;
    std::mt19937 m_random;
    std::string m_before, m_behind;
    std::vector<std::string> m_entities;  ///< main ones with their sub-entities
};

std::string groupedDrawing(const std::string& prefix) {
    Scene scene("(line line line) circle (circle) line (line circle) line");
    const tests::ScratchFolder folder;
    EXPECT_TRUE(scene.session().saveDrawing(folder.file("grouped.dxf")));
    return tests::replaced(tests::contentOf(folder.file("grouped.dxf")), "VELMO", prefix);
}

TEST(Inspection, AgreesWithTheModuleOnDamageOfEveryKind) {
    const std::string prefixes[] = {"VELMO", "KEST"};
    const std::string drawings[] = {groupedDrawing(prefixes[0]), groupedDrawing(prefixes[1])};
    const tests::ScratchFolder folder;
    const std::string file = folder.file("damaged.dxf");
    tests::tryEachSeed(500, [&](unsigned seed) {
        DamagedDrawing drawing(drawings[seed % 2], prefixes[seed % 2], seed);
        std::string history;
        for (unsigned damages = seed % 9; damages > 0; --damages)
            history += drawing.damage() + ", ";
        SCOPED_TRACE(history);
        tests::write(file, drawing.text());
        expectAgreement(file);
    });
}

}  // namespace
