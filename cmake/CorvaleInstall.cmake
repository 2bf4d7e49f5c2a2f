# What `cmake --install` puts where: the programs with their manual pages and completions, what the desktop needs to know
# of the application, and the library with its headers and the package config that find_package(CorvaleKit) reads.
# Component Programs is what a package for users holds; Debian is what only a .deb has.

include(CMakePackageConfigHelpers)
set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/CorvaleKit")

install(TARGETS CorvaleKit EXPORT CorvaleKitTargets
  ARCHIVE COMPONENT Library
  LIBRARY COMPONENT Library
  FILE_SET HEADERS COMPONENT Library)
install(EXPORT CorvaleKitTargets NAMESPACE Corvale:: DESTINATION "${package_dir}" COMPONENT Library)
configure_package_config_file(cmake/CorvaleKitConfig.cmake.in CorvaleKitConfig.cmake INSTALL_DESTINATION "${package_dir}")
# Before 1.0 a minor version may break its callers.
write_basic_package_version_file(CorvaleKitConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES
    "${PROJECT_BINARY_DIR}/CorvaleKitConfig.cmake"
    "${PROJECT_BINARY_DIR}/CorvaleKitConfigVersion.cmake"
    cmake/CorvaleDependencies.cmake
  DESTINATION "${package_dir}" COMPONENT Library)
install(FILES LICENSE DESTINATION "${CMAKE_INSTALL_DOCDIR}" COMPONENT Library)

install(TARGETS corvale-cli COMPONENT Programs)
install(FILES cli/corvale-cli.1 DESTINATION "${CMAKE_INSTALL_MANDIR}/man1" COMPONENT Programs)
install(FILES cli/completions/corvale-cli.bash
  DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions" RENAME corvale-cli COMPONENT Programs)
set(CORVALE_ZSH_COMPLETIONS "${CMAKE_INSTALL_DATADIR}/zsh/site-functions" CACHE STRING
  "Where zsh looks for completions of installed programs")
install(FILES cli/completions/_corvale-cli DESTINATION "${CORVALE_ZSH_COMPLETIONS}" COMPONENT Programs)
if(TARGET corvale)
  install(TARGETS corvale COMPONENT Programs)
  add_subdirectory(packaging)
endif()

corvale_fill_in(packaging/debian/copyright)
corvale_fill_in(packaging/debian/changelog)
install(FILES
    "${PROJECT_BINARY_DIR}/generated/packaging/debian/copyright"
    "${PROJECT_BINARY_DIR}/generated/packaging/debian/changelog"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/corvale" COMPONENT Debian EXCLUDE_FROM_ALL)
