# The settings that every target of this build shares.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
include(GNUInstallDirs)

find_program(CORVALE_CCACHE ccache)
if(CORVALE_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # Without this leave ccache passes by every file that uses a precompiled header.
  set(CMAKE_CXX_COMPILER_LAUNCHER
    "${CMAKE_COMMAND}" -E env CCACHE_SLOPPINESS=pch_defines,time_macros "${CORVALE_CCACHE}")
endif()

if(CORVALE_SANITIZE)
  add_compile_options(-fsanitize=${CORVALE_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${CORVALE_SANITIZE})
endif()

# What is generated into the build folder is not ours to lint; but one check there must be, so one that finds nothing.
file(WRITE "${PROJECT_BINARY_DIR}/.clang-tidy" "Checks: '-*,bugprone-dangling-handle'\nHeaderFilterRegex: 'nothing'\n")

# Our own code compiles without a warning; a build as somebody's subproject only warns.
function(corvale_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
    -Wredundant-decls -Wzero-as-null-pointer-constant)
  if(PROJECT_IS_TOP_LEVEL)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # GCC 12 reports false overlaps and overflows for "literal" + string at -O3, and designated initialisers as missing ones.
    target_compile_options(${target} PRIVATE -Wno-restrict -Wno-stringop-overflow -Wno-missing-field-initializers)
  endif()
endfunction()
