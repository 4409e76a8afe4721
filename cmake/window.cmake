# window: a drawing in the user's browser. Built where cpp-httplib is there (Debian's
# libcpp-httplib-dev); the program says what is missing elsewhere.
if(NOT WIN32)
  find_package(PkgConfig)
  if(PkgConfig_FOUND)
    pkg_check_modules(CPP_HTTPLIB IMPORTED_TARGET cpp-httplib)
  endif()
endif()
if(NOT CPP_HTTPLIB_FOUND)
  return()
endif()

# The page's files are part of the program.
set(page_folder ${CMAKE_SOURCE_DIR}/window/page)
foreach(file index.html window.css window.js icon.svg)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${page_folder}/${file})
  string(MAKE_C_IDENTIFIER ${file} name)
  file(READ ${page_folder}/${file} ${name})
endforeach()
file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/window_page.cpp @ONLY CONTENT [[
#include "window/page.h"
namespace window {
const std::vector<PageFile>& pageFiles() {
    static const std::vector<PageFile> files = {
        {"", "text/html; charset=utf-8", R"_page_(@index_html@)_page_"},
        {"window.css", "text/css; charset=utf-8", R"_page_(@window_css@)_page_"},
        {"window.js", "text/javascript; charset=utf-8", R"_page_(@window_js@)_page_"},
        {"icon.svg", "image/svg+xml", R"_page_(@icon_svg@)_page_"},
    };
    return files;
}
}  // namespace window
]])

file(GLOB window_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/window/*.cpp)
set(server_source ${CMAKE_SOURCE_DIR}/window/server.cpp)
list(REMOVE_ITEM window_sources ${server_source})
add_library(window STATIC ${window_sources})
compile_by_room(window ${window_sources})
target_precompile_headers(window REUSE_FROM velmohost)
target_link_libraries(window PUBLIC picture json)
# The library comes with settings of its own, which no other source needs.
add_library(window_server OBJECT ${server_source} ${CMAKE_BINARY_DIR}/window_page.cpp)
find_package(Threads REQUIRED)
target_link_libraries(window_server PRIVATE velmohost json PUBLIC PkgConfig::CPP_HTTPLIB Threads::Threads)
target_link_libraries(window PRIVATE window_server $<TARGET_OBJECTS:window_server>)
