# What a program needs to find and use the installed library.
include(CMakePackageConfigHelpers)
get_target_property(library_type dbSectionInterface TYPE)
set(config_folder ${CMAKE_INSTALL_LIBDIR}/cmake/dbSectionInterface)
configure_package_config_file(
  ${CMAKE_CURRENT_LIST_DIR}/dbSectionInterfaceConfig.cmake.in
  ${PROJECT_BINARY_DIR}/dbSectionInterfaceConfig.cmake
  INSTALL_DESTINATION ${config_folder})
write_basic_package_version_file(
  ${PROJECT_BINARY_DIR}/dbSectionInterfaceConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(EXPORT dbSectionInterface NAMESPACE dbSectionInterface::
  FILE dbSectionInterfaceTargets.cmake DESTINATION ${config_folder} COMPONENT development)
install(FILES
  ${PROJECT_BINARY_DIR}/dbSectionInterfaceConfig.cmake
  ${PROJECT_BINARY_DIR}/dbSectionInterfaceConfigVersion.cmake
  DESTINATION ${config_folder} COMPONENT development)

file(RELATIVE_PATH prefix_from_pkgconfig
  ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
if(library_type STREQUAL STATIC_LIBRARY)
  set(static_libraries " -lstdc++ -lm")
  set(static_requirements "Requires: libcrypto")
  if(NOT DBSECTION_ENGINE_WITHIN)
    string(APPEND static_requirements " sqlcipher")
  endif()
  if(DBSECTION_XLSX)
    string(APPEND static_requirements " xlsxwriter")
  endif()
endif()
configure_file(${CMAKE_CURRENT_LIST_DIR}/dbSectionInterface.pc.in
  ${PROJECT_BINARY_DIR}/dbSectionInterface.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/dbSectionInterface.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)

if(PROJECT_IS_TOP_LEVEL)
  add_custom_target(uninstall
    COMMAND ${CMAKE_COMMAND} -D BUILD=${PROJECT_BINARY_DIR} -P ${CMAKE_CURRENT_LIST_DIR}/Uninstall.cmake
    VERBATIM)
endif()
