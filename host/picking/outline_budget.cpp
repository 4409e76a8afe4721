// How much outlines may repeat: what references multiply is measured before it is drawn.
#include <algorithm>
#include <utility>

#include "host/content/paper_viewport.h"
#include "host/control/effects.h"
#include "host/picking/outline.h"
#include "host/store/store.h"

namespace host {
namespace {

/// Strokes that references may repeat in any drawing; a larger one may repeat more of them.
constexpr double kAlways = 2e6;
constexpr double kForEachByte = 0.5;
/// Tried without measuring: nearly every reference repeats less.
constexpr double kTried = 4096;
/// Frames behind which everything is measured first: a drawing of many such references.
constexpr long kTrials = 16;

std::size_t sizeOfWords(const Writing& writing) {
    constexpr std::size_t kCharactersOfStroke = 8;
    std::size_t size = 0;
    for (const std::wstring& line : writing.lines)
        size += 1 + line.size() / kCharactersOfStroke;
    return size;
}

}  // namespace

double costOf(const ObjectBody& entity) {
    constexpr double kBytesOfStroke = 256;
    return 1 + entity.size / kBytesOfStroke;
}

double costOf(const Outline& outline, const OutlineMark& from) {
    std::size_t cost = outline.lines.size() - from.lines + outline.arcs.size() - from.arcs;
    for (std::size_t i = from.areas; i < outline.areas.size(); ++i)
        cost += 1 + outline.areas[i].size();
    for (std::size_t i = from.writings; i < outline.writings.size(); ++i)
        cost += sizeOfWords(outline.writings[i]);
    for (std::size_t i = from.patterns; i < outline.patterns.size(); ++i)
        cost += 1 + outline.patterns[i].dashes.size();
    return static_cast<double>(cost);
}

OutlineMaker::OutlineMaker(const Store& store) : m_store(store), m_layers(store), m_left(kAlways) {}

bool OutlineMaker::mayDraw(double cost) {
    if (cost > m_left && !m_leftIsAll) {
        std::size_t bytes = 0;
        for (Index i = 1; i <= m_store.count(); ++i)
            bytes += m_store.at(i).size;
        m_left += kForEachByte * static_cast<double>(bytes);
        m_leftIsAll = true;
    }
    return cost <= m_left;
}

bool OutlineMaker::drawWithin(const ObjectBody& entity, double most) {
    const OutlineMark from = m_outline->mark();
    const std::size_t firstPart = m_parts != nullptr ? m_parts->size() : 0;
    m_spent = 0;
    m_most = most;
    draw(entity, Pen(*m_outline, {}), "0");
    if (m_spent <= m_most) {
        m_left -= m_spent;
        return true;
    }
    m_outline->cut(from);
    if (m_parts != nullptr) m_parts->resize(firstPart);
    return false;
}

/// What an entity would draw, with all that its references repeat.
OutlineMaker::Extent OutlineMaker::measured(const ObjectBody& entity, std::string_view layer) {
    Outline own;
    Outline* const outer = std::exchange(m_outline, &own);
    std::vector<OutlinePart>* const parts = std::exchange(m_parts, nullptr);
    const bool measuring = std::exchange(m_measuring, true);
    const double spent = std::exchange(m_spent, 0);
    draw(entity, Pen(own, {}), layer);
    Extent extent{m_spent, own.bounds()};
    m_outline = outer;
    m_parts = parts;
    m_measuring = measuring;
    m_spent = spent;
    return extent;
}

/// Measured once for each depth, since deep ones are cut off, and each state of the layer that its
/// contents may inherit. A block inside itself, whose measure is not known yet, adds nothing.
const OutlineMaker::Extent& OutlineMaker::contentOf(const ObjectBody& record,
                                                    std::string_view layer) {
    const bool drawn = m_layers.drawn(layer), frozen = m_layers.frozen(layer);
    const std::uint64_t key = (std::uint64_t{record.self} << 16) + (m_blocks.size() << 2) +
                              (drawn ? 2 : 0) + (frozen ? 1 : 0);
    const auto [place, isNew] = m_contents.try_emplace(key);
    if (!isNew) return place->second;
    Extent content;
    for (const ObjectBody& entity : m_store.children(record.self)) {
        const Extent one = measured(entity, layer);
        content.cost += one.cost;
        extend(content.box, one.box);
    }
    return place->second = content;
}

void OutlineMaker::measureBlock(const ObjectBody& record, const Pen& pen, std::string_view layer) {
    const Extent& content = contentOf(record, layer);
    m_spent += content.cost;
    if (content.box) pen.frame(*content.box);
}

void OutlineMaker::drawAsFrame(const ObjectBody& entity, const Extent& extent) {
    if (!extent.box) return;
    ++m_framed;
    const OwnTags tags(entity.tags());
    if (m_parts != nullptr)
        m_parts->push_back({&entity, trimmed(entity.type()), tags.text(8, "0"), m_outline->mark()});
    Pen(*m_outline, {}).frame(*extent.box);
}

void OutlineMaker::begin(const ObjectBody& entity, Outline& outline,
                         std::vector<OutlinePart>* parts) {
    m_outline = &outline;
    m_parts = parts;
    if (isPaperViewport(entity)) return;  // the paper itself has no lines
    m_blocks.clear();
    const bool tries = m_framed < kTrials;
    if (tries && drawWithin(entity, std::min(kTried, std::max(m_left, 0.0)))) return;
    const Extent extent = measured(entity, "0");
    if (mayDraw(extent.cost) && drawWithin(entity, m_left)) return;
    drawAsFrame(entity, extent);
}

std::string OutlineMaker::framesLine() const {
    return amount(m_framed, "entity is", "entities are") +
           " taken as frames: what they repeat is more than is drawn at once";
}

void OutlineMaker::tellFrames() const {
    if (m_framed == 0 || std::exchange(m_store.framesTold, true)) return;
    printLine(fromUtf8(framesLine()) + L".");
}

}  // namespace host
