# Lays the compiler's runtime libraries beside the programs. Host, module and tests share one copy of
# each, since C++ objects and exceptions go between host and tests.
foreach(library libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
  execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${library}
                  OUTPUT_VARIABLE path OUTPUT_STRIP_TRAILING_WHITESPACE)
  if(NOT IS_ABSOLUTE "${path}")
    find_file(runtime_${library} ${library} PATHS /usr/x86_64-w64-mingw32/lib
              NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH REQUIRED)
    set(path ${runtime_${library}})
  endif()
  list(APPEND WINDOWS_RUNTIME_FILES ${path})
  file(COPY ${path} DESTINATION ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
endforeach()
