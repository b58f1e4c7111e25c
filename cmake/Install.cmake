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
  FILE dbSectionInterfaceTargets.cmake DESTINATION ${config_folder})
install(FILES
  ${PROJECT_BINARY_DIR}/dbSectionInterfaceConfig.cmake
  ${PROJECT_BINARY_DIR}/dbSectionInterfaceConfigVersion.cmake
  DESTINATION ${config_folder})
