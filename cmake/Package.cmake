# Debian packages of the library, for its developers, and of the program with its catalogues.
set(CPACK_PACKAGE_CONTACT "dbSectionInterface <maintainers@dbsectioninterface.example>"
  CACHE STRING "Name and address of the packages' maintainer")
set(CPACK_GENERATOR DEB)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_NAME dbsectioninterface)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_OUTPUT_FILE_PREFIX ${PROJECT_BINARY_DIR}/packages)
set(CPACK_COMPONENTS_ALL library development program)
if(DBSECTION_PYTHON)
  list(APPEND CPACK_COMPONENTS_ALL python)
endif()
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/src)

# Compresses a file for a folder of the packages, and installs it there.
function(install_compressed file folder component)
  get_filename_component(name ${file} NAME)
  set(compressed ${PROJECT_BINARY_DIR}/compressed/${component}/${name}.gz)
  file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/compressed/${component})
  execute_process(COMMAND gzip --best --no-name --stdout ${file}
    OUTPUT_FILE ${compressed} COMMAND_ERROR_IS_FATAL ANY)
  install(FILES ${compressed} DESTINATION ${folder} COMPONENT ${component})
endfunction()

# The debian package of a component: its name, section of the archive, what it is, what else it needs.
string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)
configure_file(${CMAKE_CURRENT_LIST_DIR}/debian/changelog.in ${PROJECT_BINARY_DIR}/changelog @ONLY)
function(debian_package component name section summary)
  string(TOUPPER ${component} part)
  set(folder ${CMAKE_INSTALL_DATADIR}/doc/${name})
  install(FILES ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/debian/copyright
    DESTINATION ${folder} COMPONENT ${component})
  install_compressed(${PROJECT_BINARY_DIR}/changelog ${folder} ${component})
  set(CPACK_DEBIAN_${part}_PACKAGE_NAME ${name} PARENT_SCOPE)
  set(CPACK_DEBIAN_${part}_PACKAGE_SECTION ${section} PARENT_SCOPE)
  set(CPACK_DEBIAN_${part}_DESCRIPTION "${summary}
 Steel shapes by national standard, cold-formed sections, timber, aluminium and
 steel joists: their names, dimensions and properties, each with its unit." PARENT_SCOPE)
  set(CPACK_DEBIAN_${part}_PACKAGE_DEPENDS "${ARGN}" PARENT_SCOPE)
endfunction()
set(library_package libdbsectioninterface${PROJECT_VERSION_MAJOR})
set(this_library "${library_package} (= ${PROJECT_VERSION})")
debian_package(library ${library_package} libs "catalogues of structural cross-sections - library")
debian_package(development libdbsectioninterface-dev libdevel
  "catalogues of structural cross-sections - development" ${this_library})
debian_package(program sectiondb science
  "catalogues of structural cross-sections - program and figures" ${this_library})
if(DBSECTION_PYTHON)
  math(EXPR next_minor "${Python_VERSION_MINOR} + 1")
  set(python ${Python_VERSION_MAJOR}.${Python_VERSION_MINOR})
  debian_package(python python3-sectiondb python "catalogues of structural cross-sections - Python"
    "${this_library}, python3 (>= ${python}), python3 (<< ${Python_VERSION_MAJOR}.${next_minor})")
  set(CPACK_DEBIAN_PYTHON_PACKAGE_RECOMMENDS sectiondb)
  set(CPACK_DEBIAN_PYTHON_PACKAGE_SUGGESTS "python3-pandas, python3-pint")
  set(CPACK_DEBIAN_PYTHON_PACKAGE_CONTROL_EXTRA
    ${CMAKE_CURRENT_LIST_DIR}/debian/postinst ${CMAKE_CURRENT_LIST_DIR}/debian/prerm)
endif()
set(CPACK_DEBIAN_LIBRARY_PACKAGE_RECOMMENDS sectiondb)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA ${CMAKE_CURRENT_LIST_DIR}/debian/triggers)

include(CPack)
