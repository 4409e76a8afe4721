// Colours of a picture: those of layers and entities, made readable on light and on dark paper.
#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>

#include "host/store/store.h"
#include "host/tags/tag_values.h"
#include "host/tags/tag_walk.h"
#include "picture/linetypes.h"

namespace picture {

/// Red, green and blue from the high byte on.
using Rgb = std::uint32_t;

/// The colour of an index from 1 to 255; 7 is the ink of the paper.
Rgb colourOfIndex(int index);
/// The colour, a little calmer, and darker or lighter as far as it has to be to stand out from the
/// paper.
Rgb readableOnLight(Rgb colour);
Rgb readableOnDark(Rgb colour);

/// Width of a stroke in pixels for a line weight in hundredths of a millimetre; below 0 the usual
/// one.
double strokeWidth(int weight);

/// What the head of an entity's tags says about its look. Views borrow the drawing's text.
struct Look {
    explicit Look(const host::ObjectBody& entity);

    std::string_view layer = "0";
    int colour = 256;  ///< index; 0 takes the reference's, 256 the layer's
    int trueColour = -1;
    int weight = -1;  ///< hundredths of a millimetre; -1 takes the layer's, -2 the reference's
    std::string_view linetype = "ByLayer";
    double linetypeScale = 1;
};

/// "#30343a", for style rules.
std::string hex(Rgb colour);
/// True for what fills its areas in the ink itself: strokes with a width, heads of leaders.
bool fillsWithInk(std::string_view type);

/// Finds colour, line weight and dashes of entities, and names them by style classes.
class Inks {
  public:
    explicit Inks(const host::Store& store)
        : m_store(store), m_linetypeScale(linetypeScale(store)) {}

    /// The colour of an entity on a layer; `reference` is the look of the entity whose colour
    /// counts where a part of its block takes that.
    Rgb colourOf(const Look& look, std::string_view layer, const Look& reference);
    /// Its line weight in hundredths of a millimetre; -1 for the usual one.
    int weightOf(const Look& look, std::string_view layer, const Look& reference);
    /// Its dashes in drawing units; `scale` is that of the block in which it stands. Valid as long
    /// as this.
    const Dashes& dashesOf(const Look& look, std::string_view layer, const Look& reference,
                           double scale);
    /// Class of a colour ("k3") on a layer; `reference` is the look of the entity whose colour
    /// counts where a part of its block takes that.
    const std::string& colourClass(const Look& look, std::string_view layer, const Look& reference);
    /// Class of a line weight ("w50"), empty for the usual weight.
    std::string weightClass(const Look& look, std::string_view layer, const Look& reference);
    /// Class of dashes ("d2") as above, empty for those that nobody could tell apart: `pixel` is
    /// the size of one in drawing units.
    std::string dashClass(const Look& look, std::string_view layer, const Look& reference,
                          double scale, double pixel);
    /// Class of strokes with a width in drawing units ("b1").
    const std::string& widthClass(double width);
    /// Rules of all classes given out.
    std::string style(double pixel) const;

  private:
    struct Layer {
        Rgb colour = 0;
        int weight = -3;
        std::string_view linetype;
    };
    const Layer& layerOf(std::string_view name);

    const host::Store& m_store;
    std::unordered_map<std::string_view, Layer> m_layers;  ///< names borrowed from the drawing
    std::string_view m_lastName;                           ///< looked up last
    const Layer* m_last = nullptr;
    std::map<Rgb, std::string> m_colours;    ///< with their classes
    std::map<double, std::string> m_widths;  ///< of broad strokes, with their classes
    std::set<int> m_weights;                 ///< hundredths of a millimetre that are in use
    double m_linetypeScale;
    struct Dashed {
        Dashes dashes;
        std::string name;  ///< of its class, once that was asked for
    };
    std::map<std::pair<std::string_view, double>, Dashed> m_dashed;  ///< by line type and scale
    Dashed* dashedOf(const Look& look, std::string_view layer, const Look& reference, double scale);
    std::size_t m_dashClasses = 0;
};

}  // namespace picture
