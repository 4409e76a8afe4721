// The moment of the build.
#pragma once

/// When this module was linked: "Jan  5 2013 16:19:18". Fixed in the module;
/// cmake/build_moment.cmake writes the function anew whenever a source of the module has changed.
const wchar_t* buildMoment();
