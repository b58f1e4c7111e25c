# Warnings are errors in this project's own code.
add_library(dbsection_warnings INTERFACE)
target_compile_options(dbsection_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
  -Wnon-virtual-dtor -Woverloaded-virtual -Wformat=2 -Werror)
if(DBSECTION_SANITIZE AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # The instrumented standard library's <regex> trips it falsely.
  target_compile_options(dbsection_warnings INTERFACE -Wno-maybe-uninitialized)
endif()

add_library(dbsection_fortran_warnings INTERFACE)
target_compile_options(dbsection_fortran_warnings INTERFACE
  $<$<COMPILE_LANG_AND_ID:Fortran,GNU>:-std=f2008 -Wall -Wextra -Wconversion -pedantic -Werror>)
