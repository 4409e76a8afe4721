# inspection: reads and judges the groups of a drawing. Of the module it sees names, and the decision
# which of them a drawing has; lint.sh refuses includes of the host but the interface and host/text.
file(GLOB inspection_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/inspection/*.cpp)
add_library(inspection STATIC ${inspection_sources} ${CMAKE_SOURCE_DIR}/storage/group_naming.cpp)
target_link_libraries(inspection PUBLIC velmohost PRIVATE platform_interface)
target_include_directories(inspection PRIVATE
  ${CMAKE_SOURCE_DIR}/storage ${CMAKE_SOURCE_DIR}/support)
# JSON: a library of headers alone, which Debian keeps beside those of its own C library. The cross
# compiler must not see the latter.
find_path(NLOHMANN_JSON nlohmann/json.hpp PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH REQUIRED)
if(WIN32)
  set(json_headers ${CMAKE_BINARY_DIR}/json_headers)
  file(MAKE_DIRECTORY ${json_headers})
  file(CREATE_LINK ${NLOHMANN_JSON}/nlohmann ${json_headers}/nlohmann SYMBOLIC)
  target_include_directories(inspection SYSTEM PUBLIC ${json_headers})
endif()

# picture: draws a drawing and its groups. It sees the host down to picking.
file(GLOB picture_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/picture/*.cpp)
add_library(picture STATIC ${picture_sources})
target_link_libraries(picture PUBLIC inspection)
