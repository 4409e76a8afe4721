# The host: one shared library of its rooms, with the interface headers and the native platform.
file(GLOB_RECURSE host_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/host/*.cpp)
list(FILTER host_sources EXCLUDE REGEX "/host/(objectarx|windows/startup)/")
if(WIN32)
  list(FILTER host_sources EXCLUDE REGEX "_posix\\.cpp$|/host/(windows|mfc)/")
else()
  list(FILTER host_sources EXCLUDE REGEX "_windows\\.cpp$")
endif()

# The drawing that NEW gives is a file; the library carries its text.
set(new_drawing ${CMAKE_SOURCE_DIR}/host/dxf/load/new_drawing.dxf)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${new_drawing})
file(READ ${new_drawing} new_drawing_text)
file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/new_drawing.cpp @ONLY CONTENT [[
#include <string_view>
namespace host {
extern const std::string_view kNewDrawing;
const std::string_view kNewDrawing = R"(@new_drawing_text@)";
}  // namespace host
]])

add_library(velmohost SHARED ${host_sources} ${CMAKE_BINARY_DIR}/new_drawing.cpp)
compile_by_room(velmohost ${host_sources})
set_target_properties(velmohost PROPERTIES DEFINE_SYMBOL "")  # headers for others are compiled with it
target_precompile_headers(velmohost PRIVATE <algorithm> <filesystem> <functional> <map> <memory>
  <optional> <set> <string> <unordered_map> <unordered_set> <vector>)
if(WIN32)
  include(cmake/windows_runtime.cmake)
else()
  # Its own functions call each other without a look whether somebody replaces them.
  target_link_options(velmohost PRIVATE -Wl,-Bsymbolic-functions)
endif()
target_include_directories(velmohost PUBLIC ${CMAKE_SOURCE_DIR})
target_link_libraries(velmohost PRIVATE ${CMAKE_DL_LIBS})

# What the module may see of the host: the interface folders and nothing else.
add_library(platform_interface INTERFACE)
target_include_directories(platform_interface INTERFACE
  ${CMAKE_SOURCE_DIR}/host/objectarx ${CMAKE_SOURCE_DIR}/host/mfc)
if(WIN32)
  # Wide versions of the platform's calls, and no macros called min and max.
  target_compile_definitions(platform_interface INTERFACE UNICODE _UNICODE NOMINMAX)
else()
  target_include_directories(platform_interface INTERFACE ${CMAKE_SOURCE_DIR}/host/windows)
endif()

# The interface's glue, linked into every application.
add_library(arx_glue OBJECT ${CMAKE_SOURCE_DIR}/host/objectarx/api_version.cpp)
if(NOT WIN32)
  # What the C runtime does around DllMain; last, so that it runs behind the static construction.
  target_sources(arx_glue PRIVATE ${CMAKE_SOURCE_DIR}/host/windows/startup/process_attach.cpp)
endif()
