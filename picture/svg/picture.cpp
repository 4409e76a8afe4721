// Puts a picture together: paper, entities in drawing order, groups around theirs, the legend.
#include "picture/svg/picture.h"

#include <algorithm>
#include <unordered_map>

#include "host/text/text_codec.h"
#include "host/text/wildcard.h"
#include "picture/svg/entity_writer.h"
#include "picture/svg/group_frames.h"
#include "picture/svg/style.h"
#include "picture/svg/xml_text.h"

namespace picture {
namespace {

constexpr double kWidth = 1120, kHeight = 760, kMargin = 34, kLegend = 320, kHead = 52;
constexpr double kNotes = 68;  ///< below the legend
/// Entities, or members of groups, up to which each is an element with a title.
constexpr std::size_t kMostSingle = 20000, kMostSingleMembers = 5000;

class Drawer {
  public:
    Drawer(const host::Store& store, host::Index space, const std::string& spaceName,
           const inspection::Inspection& inspection, const Choice& choice)
        : m_store(store),
          m_choice(choice),
          m_spaceName(spaceName),
          m_strays(std::count_if(
              inspection.strays.begin(), inspection.strays.end(),
              [&](const inspection::Stray& stray) { return stray.space == spaceName; })),
          m_groups(numbered(inspection)),
          m_scene(readScene(store, space, filter())),
          m_sheet(
              sheetFor(m_scene.bounds, choice.window, kWidth - 2 * kMargin, kHeight - 2 * kMargin)),
          m_inks(store),
          m_writer(store, m_scene, m_sheet, m_inks, limitsOf(store)) {
        m_sheet.left = kMargin;
        m_sheet.top = kHead + kMargin;
        keepInWindow();
    }

    std::string draw(const std::string& title) {
        const double canvas = m_sheet.width() + 2 * kMargin;
        const double width = std::max(canvas, 360.0) + (legend() ? kLegend : 0);
        const double bottom = m_sheet.top + m_sheet.height() + kMargin;
        LabelPlaces places({4, kHead + 4, canvas - 4, bottom - 4});
        takeWords(places);
        GroupFrames frames({width - kLegend + 8, kHead + 12, width - 20, kHead + kHeight - kNotes},
                           places, m_groups);
        const double height = std::max(bottom, legend() ? frames.legendBottom() + kNotes : 0);
        constexpr std::size_t kUsualBytes = 200;  // for an entity; what is not used costs nothing
        std::string svg;
        svg.reserve(kUsualBytes * m_scene.shown.size());
        svg += "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 ";
        addSpot(svg, {width, height});
        svg += "\">\n<style>" + commonStyle() + "</style>\n" + m_sheet.definitions();
        svg += "<rect class=\"paper\" width=\"100%\" height=\"100%\"/>\n";
        svg += heading(title, width);
        writeEntities(svg, frames);
        // At the end: which inks are in use is known now.
        svg += "<style>" + m_inks.style(m_sheet.pixel) + m_writer.style() + "</style>\n";
        svg += scaleBar(m_sheet, m_store, {kMargin, bottom - 12});
        svg += footnotes(frames, width, height) + "</svg>\n";
        return svg;
    }

  private:
    bool legend() const { return !m_groups.empty() || m_strays > 0; }
    bool shares() const { return m_scene.shown.size() > kMostSingle; }

    /// A picture has at most five times the bytes of its drawing and a million more; some of these
    /// are for what stands around the entities.
    static PictureLimits limitsOf(const host::Store& store) {
        constexpr std::size_t kAlways = 800000;
        std::size_t size = 0;
        for (host::Index i = 1; i <= store.count(); ++i)
            size += store.at(i).size;
        return {2 * size + kAlways, 5 * size + kAlways};
    }

    /// The groups of the space that may be shown; notes which entities belong to them.
    std::vector<Numbered> numbered(const inspection::Inspection& inspection) {
        std::vector<Numbered> groups;
        std::size_t number = 0;
        for (const inspection::Group& group : inspection.groups) {
            if (group.space != m_spaceName) continue;
            if (m_choice.group != 0 && m_choice.group != ++number) continue;
            groups.push_back({m_choice.group != 0 ? number : groups.size() + 1, &group});
            for (const inspection::Entity& member : group.members)
                m_groupOf[member.id.asWord()] = groups.size();
        }
        return groups;
    }

    Filter filter() const {
        if (m_choice.layers.empty() && m_choice.group == 0) return {};
        const std::wstring layers = host::foldCase(m_choice.layers);
        return [this, layers](const host::ObjectBody& entity) {
            if (m_choice.group != 0 && groupOf(entity) == 0) return false;
            return layers.empty() ||
                   host::wildcardMatch(layers, host::foldCase(host::layerName(entity)));
        };
    }

    /// Drops what lies outside of the window, and groups of which then nothing is left.
    void keepInWindow() {
        if (m_choice.window) {
            const host::Box& window = *m_choice.window;
            const auto outside = [&](const Shown& one) {
                const host::Box& box = one.bounds;
                if (m_scene.isEndless(one)) return false;
                return box.right < window.left || box.left > window.right ||
                       box.top < window.bottom || box.bottom > window.top;
            };
            m_scene.shown.erase(std::remove_if(m_scene.shown.begin(), m_scene.shown.end(), outside),
                                m_scene.shown.end());
        }
        if (!m_choice.window && m_choice.layers.empty()) return;
        std::vector<bool> seen(m_groups.size() + 1, false);
        for (const Shown& one : m_scene.shown)
            seen[groupOf(*one.entity)] = true;
        std::vector<std::size_t> places(m_groups.size() + 1, 0);
        std::vector<Numbered> kept;
        for (std::size_t i = 0; i < m_groups.size(); ++i) {
            if (!seen[i + 1]) continue;
            kept.push_back(m_groups[i]);
            places[i + 1] = kept.size();
        }
        m_groups.swap(kept);
        for (auto& [word, place] : m_groupOf)
            place = places[place];
    }

    /// Place of the group of an entity in the list, from 1; 0 for none.
    std::size_t groupOf(const host::ObjectBody& entity) const {
        if (m_groupOf.empty()) return 0;
        const auto found = m_groupOf.find(entity.store->idOf(entity).asWord());
        return found != m_groupOf.end() ? found->second : 0;
    }

    Area areaOf(const host::Box& box) const {
        const Spot low = m_sheet.at({box.left, box.top, 0});
        const Spot high = m_sheet.at({box.right, box.bottom, 0});
        return {low.x, low.y, high.x, high.y};
    }

    void takeWords(LabelPlaces& places) const {
        constexpr std::size_t kMostWords = 20000;
        const std::vector<host::Writing>& writings = m_scene.outline.writings;
        if (m_groups.empty() || writings.size() > kMostWords) return;
        for (const host::Writing& writing : writings)
            places.take(areaOf(host::boundsOf(m_scene.outline.areas[writing.area])));
    }

    /// All entities in drawing order; the members of a group stand together and in its element.
    void writeEntities(std::string& svg, GroupFrames& frames) {
        const std::vector<Shown>& shown = m_scene.shown;
        std::vector<std::size_t> firsts(m_groups.size() + 1, shown.size()), ends(firsts.size(), 0);
        for (std::size_t i = shown.size(); i-- > 0;) {
            const std::size_t place = groupOf(*shown[i].entity);
            firsts[place] = i;
            ends[place] = std::max(ends[place], i + 1);
        }
        writePlain(svg);
        for (std::size_t place = 1; place < ends.size(); ++place)
            writeGroup(svg, frames, place, firsts[place], ends[place]);
        svg += frames.labels();
    }

    /// What belongs to no group, below what does.
    void writePlain(std::string& svg) {
        constexpr std::size_t kUsualWords = 150;  // bytes
        if (shares()) m_writer.expectWords(kUsualWords * m_scene.shown.size());
        svg += m_sheet.openDrawing() + "\n";
        for (const Shown& one : m_scene.shown) {
            if (groupOf(*one.entity) != 0) continue;
            if (shares())
                m_writer.collect(one, Role::Plain, svg.size());
            else
                m_writer.write(svg, one, Role::Plain, "");
        }
        m_writer.writeCollected(svg);
        svg += "</g>\n";
    }

    void writeGroup(std::string& svg, GroupFrames& frames, std::size_t place, std::size_t first,
                    std::size_t end) {
        const Numbered& one = m_groups[place - 1];
        const std::string number = std::to_string(one.number);
        std::string note = ", group " + number;
        if (one.group->state != inspection::State::Whole)
            note += std::string(", ") + nameOf(one.group->state) + ": " +
                    xml(std::string_view(shortened(one.group->reason, 200)));
        const bool single = m_groupOf.size() <= kMostSingleMembers;
        svg += GroupFrames::open(one) + m_sheet.openDrawing();
        svg += "<use class=\"halo\" href=\"#s" + number + "\"/><g id=\"s" + number + "\">\n";
        if (!single) svg += "<title>" + note.substr(2) + "</title>";
        std::optional<host::Box> bounds;
        for (std::size_t i = first; i < end; ++i) {
            const Shown& member = m_scene.shown[i];
            if (groupOf(*member.entity) != place) continue;
            extend(bounds, member.bounds);
            if (single)
                m_writer.write(svg, member, Role::Member, note);
            else
                m_writer.collect(member, Role::Member, svg.size());
        }
        m_writer.writeCollected(svg);
        svg += "</g></g>\n";
        constexpr double kAround = 7;
        const Area area = areaOf(bounds.value_or(host::Box{}));
        const Area frame{area.left - kAround, area.top - kAround, area.right + kAround,
                         area.bottom + kAround};
        svg += frames.close(one, bounds ? &frame : nullptr);
    }

    std::string heading(const std::string& title, double width) const {
        std::string summary =
            m_spaceName + ", " + host::amount(m_scene.shown.size(), "entity", "entities");
        if (!m_groups.empty()) {
            const auto whole = std::count_if(m_groups.begin(), m_groups.end(), [](const auto& one) {
                return one.group->state == inspection::State::Whole;
            });
            summary += ", " + host::amount(m_groups.size(), "group", "groups");
            if (whole != static_cast<long>(m_groups.size()))
                summary += ", " + std::to_string(static_cast<long>(m_groups.size()) - whole) +
                           " not whole";
        }
        std::string rule = "M0 " + std::to_string(static_cast<int>(kHead)) + "h";
        addNumber(rule, width);
        return sheetText("head", 20, 28, title) + sheetText("small", 20, 45, summary) +
               "<path class=\"rule\" d=\"" + rule + "\"/>\n";
    }

    std::string footnotes(const GroupFrames& frames, double width, double height) const {
        std::vector<std::string> notes;
        if (frames.unlisted() > 0)
            notes.push_back("and " + std::to_string(frames.unlisted()) +
                            " more groups; --groups lists them");
        if (m_strays > 0)
            notes.push_back(
                host::amount(m_strays, "stray marker or record", "stray markers or records") +
                "; --groups lists " + (m_strays == 1 ? "it" : "them"));
        std::string types;
        for (const auto& [type, count] : m_scene.shapeless)
            types += (types.empty() ? "" : ", ") + std::to_string(count) + " " + type;
        if (!types.empty()) notes.push_back("not drawn: " + types);
        if (const long boxes = m_writer.framed() + m_scene.repeating; boxes > 0)
            notes.push_back(std::to_string(boxes) + " block references as frames");
        if (m_writer.omitted() > 0)
            notes.push_back(std::to_string(m_writer.omitted()) +
                            " entities left out: the picture would grow too large");
        if (shares()) notes.push_back("names of entities: draw a --window or a --layer of it");
        std::string svg;
        double y = height - 12 - 15 * static_cast<double>(notes.size() - 1);
        const double x = legend() ? width - kLegend + 8 : kMargin + 230;
        for (const std::string& note : notes) {
            svg += sheetText("small", x, y, note) + "\n";
            y += 15;
        }
        return svg;
    }

    const host::Store& m_store;
    const Choice& m_choice;
    const std::string& m_spaceName;
    long m_strays;                                             ///< in the space
    std::unordered_map<std::uint64_t, std::size_t> m_groupOf;  ///< places from 1, by entity
    std::vector<Numbered> m_groups;                            ///< that are shown
    Scene m_scene;
    Sheet m_sheet;
    Inks m_inks;
    EntityWriter m_writer;
};

}  // namespace

std::string draw(const host::Store& store, host::Index space, const std::string& title,
                 const std::string& spaceName, const inspection::Inspection& inspection,
                 const Choice& choice) {
    return Drawer(store, space, spaceName, inspection, choice).draw(title);
}

}  // namespace picture
