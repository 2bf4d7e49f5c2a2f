# What `cmake --install` puts where: the program with its manual page and completions, and the library with its headers
# and the package config that find_package(CorvaleKit) reads.

include(CMakePackageConfigHelpers)
set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/CorvaleKit")

install(TARGETS CorvaleKit EXPORT CorvaleKitTargets FILE_SET HEADERS)
install(EXPORT CorvaleKitTargets NAMESPACE Corvale:: DESTINATION "${package_dir}")
configure_package_config_file(cmake/CorvaleKitConfig.cmake.in CorvaleKitConfig.cmake INSTALL_DESTINATION "${package_dir}")
# Before 1.0 a minor version may break its callers.
write_basic_package_version_file(CorvaleKitConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES
    "${PROJECT_BINARY_DIR}/CorvaleKitConfig.cmake"
    "${PROJECT_BINARY_DIR}/CorvaleKitConfigVersion.cmake"
    cmake/CorvaleDependencies.cmake
  DESTINATION "${package_dir}")

if(TARGET corvale-cli)
  install(TARGETS corvale-cli)
endif()
install(FILES cli/corvale-cli.1 DESTINATION "${CMAKE_INSTALL_MANDIR}/man1")
install(FILES cli/completions/corvale-cli.bash
  DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions" RENAME corvale-cli)
install(FILES cli/completions/_corvale-cli DESTINATION "${CMAKE_INSTALL_DATADIR}/zsh/site-functions")
install(FILES LICENSE DESTINATION "${CMAKE_INSTALL_DOCDIR}")
