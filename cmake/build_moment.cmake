# The moment of the module's build, as a source of its own.
#
# Included, it gives velmo_build_moment(FILE SOURCES): a rule that writes FILE whenever one of the
# sources has changed, so that the module tells when it was linked and not when one of its files was
# last compiled. The rule runs this same file as a script.
if(NOT CMAKE_SCRIPT_MODE_FILE)
  set(velmo_build_moment_script ${CMAKE_CURRENT_LIST_FILE})
  function(velmo_build_moment file sources)
    add_custom_command(OUTPUT ${file}
      COMMAND ${CMAKE_COMMAND} -DFILE=${file} -P ${velmo_build_moment_script}
      DEPENDS ${sources} ${velmo_build_moment_script}
      COMMENT "Noting the moment of the module's build" VERBATIM)
  endfunction()
  return()
endif()

string(TIMESTAMP moment "%b %d %Y %H:%M:%S")
string(REGEX REPLACE "^(...) 0" "\\1  " moment "${moment}")  # the day in two places, without a zero
file(WRITE ${FILE} "// The moment of the module's build, written by cmake/build_moment.cmake.
#include \"build_moment.h\"

const wchar_t* buildMoment() { return L\"${moment}\"; }
")
