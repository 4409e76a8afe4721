// Style rules: calm paper, thin strokes, groups in colours of their own, and what pointing lights.
#include "picture/svg/style.h"

namespace picture {
namespace {

struct GroupColour {
    const char* light;
    const char* dark;
};

/// Told apart from each other, from both papers, and from the red of what is broken.
constexpr GroupColour kColours[kGroupColours] = {
    {"#1d5fd1", "#7fb0ff"}, {"#b45309", "#f2a65a"}, {"#15803d", "#63d297"}, {"#7c3aed", "#bda1ff"},
    {"#0e7490", "#5cc8de"}, {"#a3256f", "#f39ac7"}, {"#5b6b12", "#c1cf5f"}, {"#7a4b2a", "#d8a988"},
};

constexpr const char* kCommon = R"css(
svg{--paper:#fcfcfa;--ink:#30343a;--soft:#74797f;--line:#dcdcd6;--bad:#c62828;background:var(--paper);font-family:system-ui,"Segoe UI","DejaVu Sans",sans-serif}
.paper{fill:var(--paper)}
path{fill:none;stroke:var(--c,var(--ink));stroke-width:calc((var(--w,1.25px) + var(--lit,0px) + var(--halo,0px))*var(--k,1));stroke-linecap:round;stroke-linejoin:round;vector-effect:non-scaling-stroke}
text{fill:var(--c,var(--ink));white-space:pre;stroke:var(--c);stroke-width:calc(var(--halo,0px)*var(--u,1))}
.f{fill:var(--c,var(--ink));fill-opacity:.8;--w:.4px}
.a{fill-opacity:1}
.b{--k:var(--u);vector-effect:none;stroke-linecap:butt;stroke-linejoin:miter}
.h{--w:.8px;fill:var(--c,var(--ink));fill-opacity:.1;fill-rule:evenodd}
.s{fill-opacity:.4}
.n{fill-opacity:0;stroke:none}
.p{--w:.8px}
.o{--w:3px}
.fr{stroke-dasharray:4 3;--w:.9px;stroke-opacity:.8}
.note{fill-opacity:.8}
.halo{--halo:8px;opacity:.2;transition:opacity .12s}
.frame{fill:none;stroke:var(--c);opacity:0;pointer-events:none}
.bad .frame{stroke:var(--bad);stroke-dasharray:7 4;opacity:.55}
.g{cursor:default;outline:none}
.g:hover .halo,.g:focus .halo{opacity:.42}
.g:hover .frame,.g:focus .frame{opacity:.75}
.g:hover .m,.g:focus .m{--lit:1.9px}
.tag rect{fill:var(--paper);stroke:var(--c);stroke-width:1px}
.tag{pointer-events:none}
.tag.bad rect{stroke:var(--bad)}
.tag text,.row text{font-size:12px;fill:var(--ink)}
.tag text,.row text,.head,.small{stroke:none}
.tag text{font-weight:600;fill:var(--c)}
.tag.bad text,.row .why{fill:var(--bad)}
.row rect{fill:transparent}
.g:hover .row rect,.g:focus .row rect{fill:var(--c);fill-opacity:.14}
.row .dot{fill:var(--c)}
.row .small,.small{font-size:11px;fill:var(--soft)}
.row .why{font-size:11px}
.head{font-size:15px;font-weight:600;fill:var(--ink)}
.rule{stroke:var(--line);--w:1px}
.bar{stroke:var(--soft);--w:1px;stroke-linecap:butt}
)css";

}  // namespace

std::string commonStyle() {
    std::string
        light = kCommon,
        dark = "svg{--paper:#17191d;--ink:#d9dce1;--soft:#969ca5;--line:#33373e;--bad:#ff8a80}";
    for (int i = 0; i < kGroupColours; ++i) {
        const std::string rule = ".q" + std::to_string(i) + "{--c:";
        light += rule + kColours[i].light + "}";
        dark += rule + kColours[i].dark + "}";
    }
    return light + "\n@media(prefers-color-scheme:dark){" + dark + "}\n";
}

}  // namespace picture
