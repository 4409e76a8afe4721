// Random sessions of picking and grouping, compared with a plain model at each step.
//
// VELMO_SEED=7 in the environment replays the session of one seed.
#include <cstdlib>
#include <random>

#include "common/scene.h"
#include "host/editor/state/sysvars.h"

namespace {

using tests::Scene;
using Ids = std::vector<int>;

bool has(const Ids& ids, int id) { return std::find(ids.begin(), ids.end(), id) != ids.end(); }

void drop(Ids& ids, int id) { ids.erase(std::remove(ids.begin(), ids.end(), id), ids.end()); }

/// One entity of the model. Its number is the model's own.
struct Thing {
    int id;
    std::string kind;
    int x = 0;  ///< where it was drawn
    bool record = false;
    int count = 0;    ///< of a begin marker
    int partner = 0;  ///< of a marker: number of the other one
};

/// The rule of widening selections, and as much of host and commands as leads to it. What is erased
/// is not in the drawing any more.
struct Model {
    host::Switches settings;
    std::vector<Thing> drawing;  ///< in drawing order
    Ids picked, gathered;
    std::string printed;
    int pickAdd = 1, pickFirst = 1, lastId = 0;
    bool active = true, react = true, due = false;

    int indexOf(int id) const {
        int at = static_cast<int>(drawing.size());
        while (--at >= 0 && drawing[at].id != id) {
        }
        return at;
    }
    bool grouped(int id) const { return indexOf(id) >= 0 && drawing[indexOf(id)].record; }

    /// A group is whole when the next marker is an end whose begin still stands and no more than
    /// the counted members stand between them; then its numbers from the begin to the end.
    Ids groupOf(int id) {
        if (!grouped(id)) return {};
        const int start = indexOf(id), size = static_cast<int>(drawing.size());
        int end = start;
        while (++end < size && drawing[end].partner == 0) {
        }
        const int begin =
            end < size && drawing[end].kind == "end" ? indexOf(drawing[end].partner) : -1;
        const int missing = begin < 0 ? -1 : drawing[begin].count - (end - begin - 1);
        if (missing < 0) printed += tests::kNotGrouped;
        if (missing < 0) return {};
        if (missing > 0) {
            printed += "\nNote: " + std::to_string(missing);
            printed += " member(s) missing from original Group.";
        }
        Ids group = {drawing[begin].id};
        for (int i = start; i < end; ++i)
            group.push_back(drawing[i].id);
        for (int i = begin + 1; i < start; ++i)
            group.push_back(drawing[i].id);
        group.push_back(drawing[end].id);
        return group;
    }

    void pickfirstModified() {
        active = active && pickFirst != 0;
        if (!active) return;
        const bool ignored = !react;
        react = true;
        if (ignored) return;
        if (picked.empty() && !settings.emptyPickfirstIsNorm) return gathered.clear();
        if (pickAdd == 0 && picked.size() == 1) gathered.clear();
        if (gathered.size() == picked.size()) return;
        printed += tests::kGathering;
        if (gathered.size() < picked.size()) {
            for (std::size_t i = gathered.size(), end = picked.size(); i < end; ++i) {
                const int id = picked[i];
                const Ids group = groupOf(id);
                if (!group.empty()) drop(picked, id);
                for (const int member : group) {
                    if (!has(picked, member)) picked.push_back(member);
                }
            }
        } else {
            for (const int id : picked)
                drop(gathered, id);
            for (const int id : gathered) {
                for (const int member : groupOf(id))
                    drop(picked, member);
            }
        }
        gathered = picked;
        react = false;
        changed();
    }

    void changed() {
        due = true;
        if (settings.pickfirstNotifiedInside) idle();
    }
    void idle() {
        while (due) {
            due = false;
            pickfirstModified();
        }
    }
    void gesture(const Ids& set) {
        due = due || set != picked || pickFirst == 0;
        if (pickFirst != 0) picked = set;
        idle();
    }
    void click(const Ids& ids) {
        Ids set = pickAdd != 0 ? picked : Ids();
        for (const int id : ids) {
            if (!has(set, id)) set.push_back(id);
        }
        gesture(set);
    }
    void shiftClick(const Ids& ids) {
        Ids set = picked;
        for (const int id : ids)
            drop(set, id);
        for (const int id : ids) {
            if (pickAdd == 0 && !has(picked, id)) set.push_back(id);
        }
        gesture(set);
    }
    Ids window(int from, int to) const {
        Ids found;
        for (const Thing& thing : drawing) {
            if (thing.partner == 0 && thing.x >= from && thing.x <= to) found.push_back(thing.id);
        }
        if (settings.newestFirst) std::reverse(found.begin(), found.end());
        return found;
    }

    /// What commands do to the pick-first set that they do not use, or that they have read.
    void dropPicked() {
        if (picked.empty()) return;
        picked.clear();
        if (settings.dropNotifiesPickfirst) changed();
    }
    void draw(const std::string& kind, int x) {
        dropPicked();
        drawing.push_back({++lastId, kind, x});
        idle();
    }
    void switchGrouping(bool on) {
        dropPicked();
        active = on;
        idle();
    }
    Thing take(int id) {
        const Thing thing = drawing.at(indexOf(id));
        drawing.erase(drawing.begin() + indexOf(id));
        return thing;
    }

    /// Without a pick-first set the entity is picked at the prompt.
    void make(int prompted) {
        Ids set = picked;
        if (picked.empty()) {
            printed += "\nSelect entities to form an VelmoGroup: \nSelect objects: \n1 found";
            printed += "\nSelect objects: ";
            set = {prompted};
            for (const int member : groupOf(prompted)) {
                if (member != prompted) set.push_back(member);
            }
        }
        std::vector<Thing> members;
        for (const int id : set) {
            if (const Thing thing = take(id); thing.partner == 0) members.push_back(thing);
        }
        const int begin = ++lastId, end = ++lastId;
        drawing.push_back({begin, "begin", 0, false, static_cast<int>(members.size()), end});
        for (const Thing& each : members) {
            drawing.push_back({++lastId, each.kind, each.x, true});
        }
        drawing.push_back({end, "end", 0, false, 0, begin});
        gathered.clear();
        picked.clear();
        changed();
        idle();
    }
    void ungroup(int prompted) {
        Ids set = picked;
        const bool asked = picked.empty();
        dropPicked();
        if (asked) {
            printed += "\nPick group(s) to explode: \nSelect objects: \n1 found\nSelect objects: ";
            set = grouped(prompted) ? groupOf(prompted) : Ids{prompted};
        } else {
            gathered.clear();
            react = false;
        }
        int count = 0;
        for (const int id : set) {
            count += grouped(id) ? 1 : 0;
            drawing[indexOf(id)].record = false;
            if (drawing[indexOf(id)].partner != 0) take(id);
        }
        printed += "\n" + std::to_string(count) + " Entities Ungrouped.";
        idle();
    }

    std::string state() const {
        std::string text;
        for (const Thing& thing : drawing) {
            text += (text.empty() ? "" : " ") + thing.kind + (thing.record ? "*" : "");
            if (thing.kind == "begin") text += "(" + std::to_string(thing.count) + ")";
        }
        text += " |";
        for (const int id : picked)
            text += " " + std::to_string(indexOf(id) + 1);
        return text + (picked.empty() ? "  | " : " | ") + printed;
    }
};

class RandomSession {
  public:
    explicit RandomSession(unsigned seed) : m_random(seed), m_scene("", settingsOf(seed)) {
        m_model.settings = settingsOf(seed);
        for (int i = 0; i < 12; ++i)
            draw();
    }

    /// One gesture or command, on both; its description.
    std::string step() {
        m_model.printed.clear();
        const int dice = roll(100);
        if (dice < 6 || m_model.drawing.size() < 2) return draw();
        if (dice < 9) return setVariable(L"PICKADD", m_model.pickAdd = roll(3));
        if (dice < 12) return switchGrouping(roll(3) != 0);
        if (dice < 17) return none();
        if (dice < 28) return window();
        if (dice > 70) return command(dice);
        const bool pickfirstOff = roll(50) == 0;
        if (pickfirstOff) setVariable(L"PICKFIRST", m_model.pickFirst = 0);
        const std::string text = pick(dice < 45);
        if (pickfirstOff) setVariable(L"PICKFIRST", m_model.pickFirst = 1);
        return text + (pickfirstOff ? " with PICKFIRST 0" : "");
    }

    /// Links between markers are not the question here.
    std::string actual() const {
        std::string state = m_scene.state();
        state.erase(std::remove(state.begin(), state.end(), '?'), state.end());
        return state;
    }
    std::string expected() const { return m_model.state(); }

  private:
    static host::Switches settingsOf(unsigned seed) {
        host::Switches settings;
        settings.newestFirst = (seed & 1) != 0;
        settings.pickfirstNotifiedInside = (seed & 2) != 0;
        settings.emptyPickfirstIsNorm = (seed & 4) != 0;
        settings.dropNotifiesPickfirst = (seed & 8) != 0;
        return settings;
    }

    int roll(int sides) { return static_cast<int>(m_random() % static_cast<unsigned>(sides)); }
    int position() { return 1 + roll(static_cast<int>(m_model.drawing.size())); }

    std::string pick(bool shift) {
        std::string text = shift ? "shift-pick" : "pick";
        Ids positions, ids;
        for (int i = 1 + roll(4); i > 0; --i) {
            const int at = position();
            if (has(positions, at)) continue;
            positions.push_back(at);
            ids.push_back(m_model.drawing[at - 1].id);
            text += " " + std::to_string(at);
        }
        shift ? m_model.shiftClick(ids) : m_model.click(ids);
        shift ? m_scene.shiftClick(positions) : m_scene.click(positions);
        return text;
    }

    std::string script(const std::string& text) {
        m_scene.after(host::fromUtf8(text));
        return text;
    }
    std::string window() {
        const int from = 1 + roll(m_drawn), to = from + roll(6);
        const Ids found = m_model.window(from, to);
        if (found.empty()) m_model.printed += "\n0 found";
        if (!found.empty()) m_model.click(found);
        return script("PICK W " + std::to_string(from - 0.5) + ",-1 " + std::to_string(to + 0.5) +
                      ",2\n");
    }
    std::string none() {
        m_model.gesture({});
        return script("PICK NONE\n");
    }
    std::string switchGrouping(bool on) {
        m_model.switchGrouping(on);
        return script(on ? "VelmoGROUPACTIVE\n" : "VelmoGROUPNOTACTIVE\n");
    }
    /// Not with the command, which would change the pick-first set.
    static std::string setVariable(const wchar_t* name, int value) {
        std::wstring explanation;
        EXPECT_TRUE(host::setSysvarText(name, std::to_wstring(value), explanation));
        host::clearEffects();
        return host::toUtf8(name) + "=" + std::to_string(value);
    }
    std::string draw() {
        const char* const kind = roll(2) != 0 ? "line" : "circle";
        m_model.draw(kind, ++m_drawn);
        m_scene.draw(kind);
        host::clearEffects();
        m_model.printed.clear();
        return kind;
    }

    /// A command, often on what is picked now; erasing breaks groups and is always prompted.
    std::string command(int dice) {
        const std::string command =
            dice < 84 ? "VelmoGROUPMAKE" : (dice < 92 ? "VelmoGROUPDELETE" : "ERASE");
        if (dice >= 92 || roll(3) == 0) none();
        m_model.printed.clear();
        const int at = position();
        const int id = m_model.drawing[at - 1].id;
        const bool asked = m_model.picked.empty();
        if (dice < 84) {
            m_model.make(id);
        } else if (dice < 92) {
            m_model.ungroup(id);
        } else {
            m_model.take(id);
            m_model.printed += "\nSelect objects: \n1 found\nSelect objects: ";
        }
        return script(command + (asked ? " #" + std::to_string(at) + "\n\n" : "\n"));
    }

    std::mt19937 m_random;
    Scene m_scene;
    Model m_model;
    int m_drawn = 0;
};

void runSession(unsigned seed) {
    RandomSession session(seed);
    std::string history;
    for (int step = 0; step < 100 && !testing::Test::HasFailure(); ++step) {
        history += session.step() + "; ";
        SCOPED_TRACE("VELMO_SEED=" + std::to_string(seed) + ": " + history);
        EXPECT_EQ(session.actual(), session.expected());
    }
}

TEST(PickModel, RandomSessionsFollowTheModel) {
    if (const char* seed = std::getenv("VELMO_SEED")) {
        return runSession(static_cast<unsigned>(std::strtoul(seed, nullptr, 10)));
    }
    for (unsigned seed = 1; seed <= 48 && !HasFailure(); ++seed) {
        runSession(seed);
    }
}

}  // namespace
