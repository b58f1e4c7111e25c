# Warnings about the project's own code; errors in its own presets alone, by
# CMAKE_COMPILE_WARNING_AS_ERROR.
add_library(dbsection_warnings INTERFACE)
target_compile_options(dbsection_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
  -Wnon-virtual-dtor -Woverloaded-virtual -Wformat=2)
if(DBSECTION_SANITIZE AND CMAKE_CXX_COMPILER_ID STREQUAL GNU)
  # The instrumented standard library's <regex> trips it falsely.
  target_compile_options(dbsection_warnings INTERFACE -Wno-maybe-uninitialized)
endif()

if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # At -O3 it is told falsely of std::string's operator+ (GCC bug 105651).
  target_compile_options(dbsection_warnings INTERFACE $<$<COMPILE_LANGUAGE:CXX>:-Wno-restrict>)
endif()

add_library(dbsection_fortran_warnings INTERFACE)
target_compile_options(dbsection_fortran_warnings INTERFACE
  $<$<COMPILE_LANG_AND_ID:Fortran,GNU>:-std=f2008 -Wall -Wextra -Wconversion -pedantic>)
