# The module: five rooms, each seeing only the platform and the rooms left of it.
#
#   support <- module (document data, mode switch) <- storage <- commands <- tracking <- entry point
set(module_root ${CMAKE_SOURCE_DIR})

function(module_room name)
  cmake_parse_arguments(ROOM "" "" "SOURCES;SEES" ${ARGN})
  add_library(${name} OBJECT ${ROOM_SOURCES})
  target_link_libraries(${name} PUBLIC platform_interface)
  target_include_directories(${name} PRIVATE ${ROOM_SEES})
endfunction()

file(GLOB support_sources CONFIGURE_DEPENDS ${module_root}/support/*.cpp)
file(GLOB storage_sources CONFIGURE_DEPENDS ${module_root}/storage/*.cpp)
file(GLOB command_sources CONFIGURE_DEPENDS ${module_root}/commands/*.cpp)
file(GLOB tracking_sources CONFIGURE_DEPENDS ${module_root}/tracking/*.cpp)
file(GLOB entry_sources CONFIGURE_DEPENDS ${module_root}/module/*.cpp)
set(state_sources ${module_root}/module/document_data.cpp ${module_root}/module/grouping_mode.cpp)
list(REMOVE_ITEM entry_sources ${state_sources})

module_room(module_support SOURCES ${support_sources} SEES ${module_root}/support)
module_room(module_state SOURCES ${state_sources} SEES ${module_root}/support ${module_root}/module)
module_room(module_storage SOURCES ${storage_sources}
            SEES ${module_root}/support ${module_root}/module ${module_root}/storage)
module_room(module_commands SOURCES ${command_sources}
            SEES ${module_root}/support ${module_root}/module ${module_root}/storage
                 ${module_root}/commands)
module_room(module_tracking SOURCES ${tracking_sources}
            SEES ${module_root}/support ${module_root}/module ${module_root}/storage
                 ${module_root}/commands ${module_root}/tracking)
module_room(module_entry SOURCES ${entry_sources}
            SEES ${module_root}/support ${module_root}/module ${module_root}/storage
                 ${module_root}/commands ${module_root}/tracking)

set(module_objects
  $<TARGET_OBJECTS:module_support> $<TARGET_OBJECTS:module_state>
  $<TARGET_OBJECTS:module_storage> $<TARGET_OBJECTS:module_commands>
  $<TARGET_OBJECTS:module_tracking> $<TARGET_OBJECTS:module_entry>
  $<TARGET_OBJECTS:arx_glue>)

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
