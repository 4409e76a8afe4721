# The module: its rooms, each seeing only the platform and the rooms left of it.
#
#   support <- module (document data, mode switch) and storage <- commands <- tracking <- module/entry
set(module_root ${CMAKE_SOURCE_DIR})

# A room of the sources in `folder`, which sees the rooms behind SEES.
function(module_room name folder)
  cmake_parse_arguments(ROOM "" "" "SEES" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${module_root}/${folder}/*.cpp)
  list(TRANSFORM ROOM_SEES PREPEND ${module_root}/)
  add_library(${name} OBJECT ${sources})
  target_link_libraries(${name} PUBLIC platform_interface)
  target_include_directories(${name} PRIVATE ${ROOM_SEES})
endfunction()

module_room(module_support support)
module_room(module_state module SEES support)
module_room(module_storage storage SEES support)
module_room(module_commands commands SEES support module storage)
module_room(module_tracking tracking SEES support module storage commands)
module_room(module_entry module/entry SEES support module commands tracking)
# What every file of them includes. The files of a room use the same names, so each is compiled alone.
target_precompile_headers(module_support PRIVATE ${module_root}/support/platform.h)
foreach(room state storage commands tracking entry)
  target_precompile_headers(module_${room} REUSE_FROM module_support)
endforeach()

# The moment of the build: a source that any change of the module writes anew.
file(GLOB module_sources CONFIGURE_DEPENDS ${module_root}/module/*.h ${module_root}/module/*.cpp
  ${module_root}/module/entry/* ${module_root}/storage/* ${module_root}/commands/*
  ${module_root}/tracking/* ${module_root}/support/*)
include(cmake/build_moment.cmake)
velmo_build_moment(${CMAKE_BINARY_DIR}/build_moment.cpp "${module_sources}")
add_library(module_moment OBJECT ${CMAKE_BINARY_DIR}/build_moment.cpp)
target_include_directories(module_moment PRIVATE ${module_root}/module/entry)

set(module_objects
  $<TARGET_OBJECTS:module_support> $<TARGET_OBJECTS:module_state>
  $<TARGET_OBJECTS:module_storage> $<TARGET_OBJECTS:module_commands>
  $<TARGET_OBJECTS:module_tracking> $<TARGET_OBJECTS:module_entry>
  $<TARGET_OBJECTS:module_moment> $<TARGET_OBJECTS:arx_glue>)

# Windows' own libraries behind the calls of the support room: statistics and version resources.
set(module_libraries netapi32 version)

add_library(VelmoGroup MODULE ${module_objects})
set_target_properties(VelmoGroup PROPERTIES PREFIX "" SUFFIX ".arx")
target_link_libraries(VelmoGroup PRIVATE velmohost)
# Only the two entry functions leave the library.
if(WIN32)
  target_sources(VelmoGroup PRIVATE
    ${module_root}/module/VelmoGroup.def ${module_root}/module/VelmoGroup.rc)
  target_link_libraries(VelmoGroup PRIVATE ${module_libraries})
else()
  target_link_options(VelmoGroup PRIVATE
    -Wl,--version-script=${module_root}/cmake/VelmoGroup.map -Wl,--no-undefined)
  if(VELMO_SANITIZE)
    target_link_options(VelmoGroup PRIVATE -Wl,--undefined-version -Wl,-z,undefs)
  endif()
  set_target_properties(VelmoGroup PROPERTIES
    LINK_DEPENDS ${module_root}/cmake/VelmoGroup.map)
endif()
