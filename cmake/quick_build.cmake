# Compiling in a third of the time: most of what a compiler reads here are the standard library's
# headers, so the files of a room are read as one, behind headers that were compiled before.
option(VELMO_QUICK_BUILD
  "Compile room by room, with precompiled headers; off shows that each file includes what it needs" ON)
if(NOT VELMO_QUICK_BUILD)
  set(CMAKE_DISABLE_PRECOMPILE_HEADERS ON)
endif()

# Of the target's sources, which have full paths, compiles those of a folder together.
function(compile_by_room target)
  set_target_properties(${target} PROPERTIES
    UNITY_BUILD ${VELMO_QUICK_BUILD} UNITY_BUILD_MODE GROUP)
  foreach(source IN LISTS ARGN)
    cmake_path(GET source PARENT_PATH room)
    cmake_path(RELATIVE_PATH room BASE_DIRECTORY ${CMAKE_SOURCE_DIR})
    string(REPLACE / _ room ${room})
    set_source_files_properties(${source} TARGET_DIRECTORY ${target} PROPERTIES UNITY_GROUP ${room})
  endforeach()
endfunction()
