// Puts a picture together: paper, entities in drawing order, groups around theirs, the legend.
#include "picture/picture.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>
#include <unordered_map>

#include "host/text/text_codec.h"
#include "picture/entity_writer.h"
#include "picture/group_frames.h"
#include "picture/plain_text.h"
#include "picture/scene.h"
#include "picture/style.h"

namespace picture {
namespace {

constexpr double kWidth = 1120, kHeight = 760, kMargin = 34, kLegend = 320, kHead = 52;
constexpr double kNotes = 68;  ///< below the legend
/// Members up to which each gets a wide unseen stroke to point at.
constexpr std::size_t kMostWide = 5000;

/// The drawing fitted into the canvas; a drawing without size gets some.
View viewOf(const std::optional<host::Box>& bounds) {
    View view;
    view.margin = kMargin;
    if (bounds) view.box = *bounds;
    host::Box& box = view.box;
    const double size = std::max(box.right - box.left, box.top - box.bottom);
    const double far = std::max({std::fabs(box.left), std::fabs(box.right), std::fabs(box.top),
                                 std::fabs(box.bottom), 1e-9});
    if (!(size > far * 1e-12)) {
        const double some = std::max(far * 1e-9, 0.5);
        box = {box.left - some, box.bottom - some, box.right + some, box.top + some};
    }
    view.scale = std::min((kWidth - 2 * kMargin) / std::max(box.right - box.left, 1e-300),
                          (kHeight - 2 * kMargin) / std::max(box.top - box.bottom, 1e-300));
    return view;
}

class Drawer {
  public:
    Drawer(const host::Store& store, host::Index space, const std::string& spaceName,
           const inspection::Inspection& inspection)
        : m_scene(readScene(store, space)),
          m_view(viewOf(m_scene.bounds)),
          m_inks(store),
          m_writer(store, m_scene, m_view, m_inks, limitsOf(store)),
          m_spaceName(spaceName),
          m_strays(std::count_if(
              inspection.strays.begin(), inspection.strays.end(),
              [&](const inspection::Stray& stray) { return stray.space == spaceName; })) {
        for (const inspection::Group& group : inspection.groups) {
            if (group.space != spaceName) continue;
            m_groups.push_back(&group);
            for (const inspection::Entity& member : group.members)
                m_groupOf[member.id.asWord()] = m_groups.size();
        }
    }

    std::string draw(const std::string& title) {
        const double width = std::max(m_view.width(), 360.0) + (legend() ? kLegend : 0);
        GroupFrames frames({width - kLegend + 8, 12, width - 20, kHeight - kNotes},
                           {4, 4, m_view.width() - 4, m_view.height() - 4}, m_groups);
        const double height =
            std::max(m_view.height(), legend() ? frames.legendBottom() + kNotes : 0) + kHead;
        constexpr std::size_t kUsualBytes = 200;  // for an entity
        std::string svg = "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 ";
        svg.reserve(kUsualBytes * m_scene.shown.size());
        addSpot(svg, {width, height});
        svg += "\">\n<style>" + commonStyle() + "</style>\n";
        svg += "<rect class=\"paper\" width=\"100%\" height=\"100%\"/>\n";
        svg += heading(title, width);
        writeEntities(svg, frames);
        // At the end: which colours are in use is known now.
        svg += "<style>" + m_inks.style() + "</style>\n";
        svg += footnotes(frames, width, height) + "</svg>\n";
        return svg;
    }

  private:
    bool legend() const { return !m_groups.empty() || m_strays > 0; }

    /// A picture has at most five times the bytes of its drawing and a million more; some of these
    /// are for what stands around the entities.
    static PictureLimits limitsOf(const host::Store& store) {
        constexpr std::size_t kAlways = 800000;
        std::size_t size = 0;
        for (host::Index i = 1; i <= store.count(); ++i)
            size += store.at(i).size;
        return {2 * size + kAlways, 5 * size + kAlways};
    }

    /// Number of the group of an entity, from 1; 0 for none.
    std::size_t groupOf(const Shown& shown) const {
        if (m_groupOf.empty()) return 0;
        const auto found = m_groupOf.find(shown.entity->store->idOf(*shown.entity).asWord());
        return found != m_groupOf.end() ? found->second : 0;
    }

    /// All entities in drawing order; the members of a group stand together and in its element.
    void writeEntities(std::string& svg, GroupFrames& frames) {
        svg += "<g transform=\"translate(0 " + std::to_string(static_cast<int>(kHead)) + ")\">\n";
        const std::vector<Shown>& shown = m_scene.shown;
        std::vector<std::size_t> ends(m_groups.size() + 1, 0);
        for (std::size_t i = 0; i < shown.size(); ++i)
            ends[groupOf(shown[i])] = i + 1;
        for (std::size_t i = 0; i < shown.size();) {
            const std::size_t number = groupOf(shown[i]), last = number == 0 ? i + 1 : ends[number];
            if (number == 0)
                m_writer.write(svg, shown[i], Role::Plain, "");
            else
                writeGroup(svg, frames, number, {i, last});
            i = last;
        }
        for (std::size_t number = 1; number < ends.size(); ++number) {
            if (ends[number] == 0) writeGroup(svg, frames, number, {0, 0});  // nothing is shown
        }
        svg += frames.labels() + "</g>\n";
    }

    struct Range {
        std::size_t first, last;
    };

    /// What is wrong with a group; every member says it.
    static std::string shortReason(const inspection::Group& group) {
        return xml(host::shortened(host::fromUtf8(group.reason)));
    }

    void writeGroup(std::string& svg, GroupFrames& frames, std::size_t number, Range range) {
        const inspection::Group& group = *m_groups[number - 1];
        std::vector<Spot> spots;
        for (std::size_t i = range.first; i < range.last; ++i) {
            for (const host::Vec& corner : m_scene.cornersOf(m_scene.shown[i]))
                spots.push_back(m_view.spot(corner));
        }
        svg += frames.open(number, group, spots);
        std::string note = ", group " + std::to_string(number);
        if (group.state != inspection::State::Whole)
            note += std::string(", ") + nameOf(group.state) + ": " + shortReason(group);
        const Role role = m_groupOf.size() > kMostWide ? Role::Member : Role::WideMember;
        for (std::size_t i = range.first; i < range.last; ++i) {
            const bool isMember = groupOf(m_scene.shown[i]) == number;  // a marker may be between
            m_writer.write(svg, m_scene.shown[i], isMember ? role : Role::Plain,
                           isMember ? note : "");
        }
        svg += frames.close(number, group);
    }

    std::string heading(const std::string& title, double width) const {
        std::string summary = m_spaceName + ", " + std::to_string(m_scene.shown.size()) +
                              (m_scene.shown.size() == 1 ? " entity" : " entities");
        if (!m_groups.empty()) {
            const auto whole = std::count_if(
                m_groups.begin(), m_groups.end(),
                [](const auto* group) { return group->state == inspection::State::Whole; });
            summary += ", " + std::to_string(m_groups.size()) +
                       (m_groups.size() == 1 ? " group" : " groups");
            if (whole != static_cast<long>(m_groups.size()))
                summary += ", " + std::to_string(static_cast<long>(m_groups.size()) - whole) +
                           " not whole";
        }
        std::string svg = "<text class=\"head\" x=\"20\" y=\"28\">" + xml(title) + "</text>";
        svg += "<text class=\"small\" x=\"20\" y=\"45\">" + xml(summary) + "</text>";
        std::string rule = "M0 " + std::to_string(static_cast<int>(kHead)) + "h";
        addNumber(rule, width);
        return svg + "<path class=\"rule\" d=\"" + rule + "\"/>\n";
    }

    std::string footnotes(const GroupFrames& frames, double width, double height) const {
        std::vector<std::string> notes;
        if (frames.unlisted() > 0)
            notes.push_back("and " + std::to_string(frames.unlisted()) +
                            " more groups; --groups lists them");
        if (m_strays > 0)
            notes.push_back(
                std::to_string(m_strays) +
                (m_strays == 1 ? " stray marker or record" : " stray markers or records") +
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
        std::string svg;
        double y = height - 12 - 15 * static_cast<double>(notes.size() - 1);
        const double x = legend() ? width - kLegend + 8 : 20;
        for (const std::string& note : notes) {
            svg += "<text class=\"small\" x=\"";
            addNumber(svg, x);
            svg += "\" y=\"";
            addNumber(svg, y);
            svg += "\">" + xml(note) + "</text>\n";
            y += 15;
        }
        return svg;
    }

    Scene m_scene;
    View m_view;
    Inks m_inks;
    EntityWriter m_writer;
    const std::string& m_spaceName;
    long m_strays;                                             ///< in the space
    std::vector<const inspection::Group*> m_groups;            ///< of the space
    std::unordered_map<std::uint64_t, std::size_t> m_groupOf;  ///< numbers from 1, by entity
};

}  // namespace

std::string draw(const host::Store& store, host::Index space, const std::string& title,
                 const std::string& spaceName, const inspection::Inspection& inspection) {
    return Drawer(store, space, spaceName, inspection).draw(title);
}

}  // namespace picture
