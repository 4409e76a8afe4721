# json: the library of headers alone behind a narrow one; they take longer to compile than a room.
find_path(NLOHMANN_JSON nlohmann/json.hpp PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH REQUIRED)
add_library(json STATIC ${CMAKE_SOURCE_DIR}/json/json.cpp)
target_include_directories(json PUBLIC ${CMAKE_SOURCE_DIR})
if(WIN32)
  # Debian keeps them beside those of its own C library, which the cross compiler must not see.
  set(json_headers ${CMAKE_BINARY_DIR}/json_headers)
  file(MAKE_DIRECTORY ${json_headers})
  file(CREATE_LINK ${NLOHMANN_JSON}/nlohmann ${json_headers}/nlohmann SYMBOLIC)
  target_include_directories(json SYSTEM PRIVATE ${json_headers})
endif()
