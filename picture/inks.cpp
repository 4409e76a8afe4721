// Colour indexes, contrast, and the style classes of colours and line weights.
#include "picture/inks.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <numeric>

namespace picture {
namespace {

constexpr int kByBlock = 0, kByLayer = 256;
constexpr Rgb kInk = 0x1000000;  ///< no colour of its own: black on light paper, white on dark
constexpr int kUsualWeight = 25;
constexpr Rgb kLightPaper = 0xfcfcfa, kDarkPaper = 0x17191d;
constexpr double kContrast = 3.5;
constexpr double kCalm = 0.22;  ///< how far colours go towards the grey that is as light

Rgb mixed(double red, double green, double blue) {
    const auto byte = [](double value) {
        return static_cast<Rgb>(std::lround(std::clamp(value, 0.0, 255.0)));
    };
    return byte(red) << 16 | byte(green) << 8 | byte(blue);
}

double part(Rgb colour, int shift) { return static_cast<double>(colour >> shift & 0xff); }

double luminance(Rgb colour) {
    const auto linear = [](double value) {
        value /= 255;
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(part(colour, 16)) + 0.7152 * linear(part(colour, 8)) +
           0.0722 * linear(part(colour, 0));
}

double contrast(Rgb a, Rgb b) {
    const double one = luminance(a) + 0.05, other = luminance(b) + 0.05;
    return std::max(one, other) / std::min(one, other);
}

/// Goes from the colour towards `goal` in steps until it stands out.
Rgb readable(Rgb colour, Rgb paper, Rgb goal) {
    constexpr int kSteps = 20;
    Rgb result = colour;
    for (int i = 1; i <= kSteps && contrast(result, paper) < kContrast; ++i) {
        const double t = static_cast<double>(i) / kSteps;
        const auto between = [&](int shift) {
            return part(colour, shift) * (1 - t) + part(goal, shift) * t;
        };
        result = mixed(between(16), between(8), between(0));
    }
    return result;
}

Rgb calm(Rgb colour) {
    const double grey = 0.3 * part(colour, 16) + 0.59 * part(colour, 8) + 0.11 * part(colour, 0);
    const auto calmer = [&](int shift) { return part(colour, shift) * (1 - kCalm) + grey * kCalm; };
    return mixed(calmer(16), calmer(8), calmer(0));
}

bool isSameName(std::string_view name, std::string_view folded) {
    return name.size() == folded.size() &&
           std::equal(name.begin(), name.end(), folded.begin(), [](char a, char b) {
               return (a >= 'a' && a <= 'z' ? static_cast<char>(a - 'a' + 'A') : a) == b;
           });
}

}  // namespace

std::string hex(Rgb colour) {
    char text[8];
    std::snprintf(text, sizeof text, "#%06x", static_cast<unsigned>(colour & 0xffffff));
    return text;
}

bool fillsWithInk(std::string_view type) {
    return type == "LWPOLYLINE" || type == "POLYLINE" || type == "MULTILEADER" || type == "MLEADER";
}

Rgb colourOfIndex(int index) {
    constexpr Rgb kFirst[] = {kInk,     0xff0000, 0xffff00, 0x00ff00, 0x00ffff,
                              0x0000ff, 0xff00ff, kInk,     0x808080, 0xc0c0c0};
    constexpr Rgb kGreys[] = {0x333333, 0x505050, 0x696969, 0x828282, 0xbebebe, 0xffffff};
    if (index < 10 || index > 255) return kFirst[index > 0 && index < 10 ? index : 0];
    if (index >= 250) return kGreys[index - 250];
    // Tens turn the hue, even units darken, odd ones are half as saturated.
    constexpr double kValues[] = {255, 165, 127, 76, 38};
    const double value = kValues[index % 10 / 2];
    const double low = index % 2 != 0 ? value / 2 : 0;
    const double sector = (index / 10 - 1) / 4.0;
    const double within = sector - std::floor(sector);
    const double rising = low + (value - low) * within,
                 falling = low + (value - low) * (1 - within);
    switch (static_cast<int>(sector)) {
        case 0:
            return mixed(value, rising, low);
        case 1:
            return mixed(falling, value, low);
        case 2:
            return mixed(low, value, rising);
        case 3:
            return mixed(low, falling, value);
        case 4:
            return mixed(rising, low, value);
        default:
            return mixed(value, low, falling);
    }
}

Rgb readableOnLight(Rgb colour) {
    return colour == kInk ? 0x30343a : readable(calm(colour), kLightPaper, 0x000000);
}

Rgb readableOnDark(Rgb colour) {
    return colour == kInk ? 0xd9dce1 : readable(calm(colour), kDarkPaper, 0xffffff);
}

double strokeWidth(int weight) {
    constexpr double kUsual = 1.25;
    return weight < 0 ? kUsual : 0.7 + 0.022 * weight;
}

Look::Look(const host::ObjectBody& entity) {
    host::TagWalk tags(entity.tags());
    // The head ends with the marker of the entity's own class.
    for (int classes = 0; classes < 2 && tags.nextOwn();) {
        const host::Tag& tag = tags.tag();
        if (tag.code == 100) ++classes;
        if (tag.code == 8) layer = host::trimmed(tag.value);
        if (tag.code == 62) colour = host::integerOf(tag.value, colour);
        if (tag.code == 420) trueColour = host::integerOf(tag.value, trueColour);
        if (tag.code == 6) linetype = host::trimmed(tag.value);
        if (tag.code == 48) linetypeScale = host::realOf(tag.value, 1);
        if (tag.code == 370) weight = host::integerOf(tag.value, weight);
    }
}

const Inks::Layer& Inks::layerOf(std::string_view name) {
    if (m_last != nullptr && name == m_lastName) return *m_last;
    const auto [place, isNew] = m_layers.try_emplace(name, Layer{kInk, -3, {}});
    m_lastName = name;
    m_last = &place->second;
    const host::ObjectBody* record =
        isNew ? m_store.symbol("LAYER", m_store.decode(name)) : nullptr;
    if (record == nullptr) return place->second;
    const host::OwnTags tags(record->tags());
    const int trueColour = tags.integer(420, -1);
    place->second.colour = trueColour >= 0 ? static_cast<Rgb>(trueColour) & 0xffffff
                                           : colourOfIndex(std::abs(tags.integer(62, 7)));
    place->second.weight = tags.integer(370, -3);
    place->second.linetype = tags.text(6);
    return place->second;
}

Rgb Inks::colourOf(const Look& look, std::string_view layer, const Look& reference) {
    const bool inherits = look.trueColour < 0 && look.colour == kByBlock && &look != &reference;
    if (inherits) return colourOf(reference, reference.layer, reference);
    if (look.trueColour >= 0) return static_cast<Rgb>(look.trueColour) & 0xffffff;
    return look.colour == kByLayer ? layerOf(layer).colour : colourOfIndex(look.colour);
}

const std::string& Inks::colourClass(const Look& look, std::string_view layer,
                                     const Look& reference) {
    const auto [place, isNew] = m_colours.try_emplace(colourOf(look, layer, reference));
    if (isNew) place->second = "k" + std::to_string(m_colours.size() - 1);
    return place->second;
}

int Inks::weightOf(const Look& look, std::string_view layer, const Look& reference) {
    constexpr int kLayersOwn = -1, kReferences = -2, kHeaviest = 211;
    if (look.weight == kReferences && &look != &reference)
        return weightOf(reference, reference.layer, reference);
    const int weight = look.weight == kLayersOwn ? layerOf(layer).weight : look.weight;
    return weight < 0 || weight == kUsualWeight ? -1 : std::min(weight, kHeaviest);
}

std::string Inks::weightClass(const Look& look, std::string_view layer, const Look& reference) {
    const int weight = weightOf(look, layer, reference);
    if (weight < 0) return {};
    m_weights.insert(weight);
    return "w" + std::to_string(weight);
}

const std::string& Inks::widthClass(double width) {
    const auto [place, isNew] = m_widths.try_emplace(width);
    if (isNew) place->second = "b" + std::to_string(m_widths.size());
    return place->second;
}

Inks::Dashed* Inks::dashedOf(const Look& look, std::string_view layer, const Look& reference,
                             double scale) {
    std::string_view name = look.linetype;
    if (isSameName(name, "BYBLOCK") && &look != &reference)
        return dashedOf(reference, reference.layer, reference, scale);
    if (isSameName(name, "BYLAYER")) name = layerOf(layer).linetype;
    if (name.empty() || isSameName(name, "CONTINUOUS") || isSameName(name, "BYBLOCK"))
        return nullptr;
    const double factor = m_linetypeScale * look.linetypeScale * scale;
    const auto [place, isNew] = m_dashed.try_emplace({name, factor});
    if (isNew) {
        place->second.dashes = patternOf(m_store, name);
        for (double& length : place->second.dashes)
            length *= factor;
    }
    return &place->second;
}

const Dashes& Inks::dashesOf(const Look& look, std::string_view layer, const Look& reference,
                             double scale) {
    static const Dashes kNone;
    const Dashed* dashed = dashedOf(look, layer, reference, scale);
    return dashed != nullptr ? dashed->dashes : kNone;
}

std::string Inks::dashClass(const Look& look, std::string_view layer, const Look& reference,
                            double scale, double pixel) {
    constexpr double kFinest = 2.5;  // pixels that a pattern takes at least
    Dashed* const dashed = dashedOf(look, layer, reference, scale);
    if (dashed == nullptr) return {};
    const double length = std::accumulate(dashed->dashes.begin(), dashed->dashes.end(), 0.0);
    if (!(length > kFinest * pixel) || !std::isfinite(length)) return {};
    if (dashed->name.empty()) dashed->name = "d" + std::to_string(m_dashClasses++);
    return dashed->name;
}

std::string Inks::style(double pixel) const {
    std::string light, dark;
    for (const auto& [colour, name] : m_colours) {
        const std::string rule = "." + name + "{--c:";
        light += rule + hex(readableOnLight(colour)) + "}";
        dark += rule + hex(readableOnDark(colour)) + "}";
    }
    std::string weights;
    for (const int weight : m_weights) {
        char rule[48];
        std::snprintf(rule, sizeof rule, ".w%d{--w:%.2fpx}", weight, strokeWidth(weight));
        weights += rule;
    }
    for (const auto& [key, dashed] : m_dashed) {
        if (dashed.name.empty()) continue;
        weights += "." + dashed.name +
                   "{--k:var(--u);vector-effect:none;stroke-linecap:butt;"
                   "stroke-dasharray:";
        for (std::size_t i = 0; i < dashed.dashes.size(); ++i) {
            const bool isDot = i % 2 == 0 && dashed.dashes[i] < pixel;
            char length[32];
            std::snprintf(length, sizeof length, i == 0 ? "%.5g" : " %.5g",
                          isDot ? 1.2 * pixel : dashed.dashes[i]);
            weights += length;
        }
        weights += "}";
    }
    for (const auto& [width, name] : m_widths) {
        char rule[64];
        std::snprintf(rule, sizeof rule, ".%s{--w:%.6gpx}", name.c_str(), width / pixel);
        weights += rule;
    }
    char unit[48];
    std::snprintf(unit, sizeof unit, "svg{--u:%.6g}", pixel);
    return unit + light + "\n" + weights + "\n@media(prefers-color-scheme:dark){" + dark + "}\n";
}

}  // namespace picture
