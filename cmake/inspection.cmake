# inspection: reads and judges the groups of a drawing. Of the module it sees names, and the decision
# which of them a drawing has; lint.sh refuses includes of the host but the interface and host/text.
file(GLOB inspection_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/inspection/*.cpp)
add_library(inspection STATIC ${inspection_sources} ${CMAKE_SOURCE_DIR}/storage/group_naming.cpp)
compile_by_room(inspection ${inspection_sources})
target_precompile_headers(inspection REUSE_FROM velmohost)
target_link_libraries(inspection PUBLIC velmohost PRIVATE platform_interface)
target_include_directories(inspection PRIVATE
  ${CMAKE_SOURCE_DIR}/storage ${CMAKE_SOURCE_DIR}/support)

# picture: what a drawing looks like, and its groups as SVG. It sees the host down to picking.
file(GLOB_RECURSE picture_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/picture/*.cpp)
add_library(picture STATIC ${picture_sources})
compile_by_room(picture ${picture_sources})
target_precompile_headers(picture REUSE_FROM velmohost)
target_link_libraries(picture PUBLIC inspection)
