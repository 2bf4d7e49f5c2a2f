# Finds the libraries that CorvaleKit stands on; the installed package config runs the same file.

include(CMakeFindDependencyMacro)
if(NOT CMAKE_FIND_PACKAGE_NAME)
  # Not within find_package, so a build of Corvale itself, which can do without none of them.
  set(CMAKE_FIND_PACKAGE_NAME CorvaleKit)
  set(CorvaleKit_FIND_REQUIRED TRUE)
endif()

find_dependency(Threads)
find_dependency(EXPAT)
find_dependency(Iconv)
find_dependency(nlohmann_json)
find_dependency(absl)

# These two come with pkg-config files; not every distribution adds a CMake package.
find_dependency(PkgConfig)
set(corvale_required "")
if(CorvaleKit_FIND_REQUIRED)
  set(corvale_required REQUIRED)
endif()
pkg_check_modules(CorvaleUtf8proc ${corvale_required} IMPORTED_TARGET GLOBAL libutf8proc)
pkg_check_modules(CorvaleDeflate ${corvale_required} IMPORTED_TARGET GLOBAL libdeflate)
if(NOT (CorvaleUtf8proc_FOUND AND CorvaleDeflate_FOUND))
  set(CorvaleKit_FOUND FALSE)
  set(CorvaleKit_NOT_FOUND_MESSAGE "CorvaleKit could not be found because libutf8proc or libdeflate could not be found.")
endif()
