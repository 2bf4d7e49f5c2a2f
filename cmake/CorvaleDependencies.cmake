# Finds the libraries that CorvaleKit stands on; the installed package config runs the same file.

include(CMakeFindDependencyMacro)
find_dependency(Threads)
find_dependency(EXPAT)
find_dependency(Iconv)
find_dependency(nlohmann_json)
find_dependency(absl)
find_dependency(PkgConfig)
pkg_check_modules(CorvaleUtf8proc REQUIRED IMPORTED_TARGET GLOBAL libutf8proc)
pkg_check_modules(CorvaleDeflate REQUIRED IMPORTED_TARGET GLOBAL libdeflate)
