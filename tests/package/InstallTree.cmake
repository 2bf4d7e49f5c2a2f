# Installs the programs of a build into a scratch prefix and looks at what is there.
# Variables: BUILD (the build to install), SCRATCH, VERSION, VENDOR (name and address).

set(prefix "${SCRATCH}/prefix")
file(REMOVE_RECURSE "${SCRATCH}")
execute_process(COMMAND "${CMAKE_COMMAND}" --install "${BUILD}" --prefix "${prefix}" --component Programs
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)

set(sizes 16 22 24 32 48 64 128 256)
list(TRANSFORM sizes REPLACE "(.+)" "share/icons/hicolor/\\1x\\1/apps/corvale.png" OUTPUT_VARIABLE icons)
set(expected
  bin/corvale
  bin/corvale-cli
  share/applications/corvale.desktop
  share/bash-completion/completions/corvale-cli
  share/icons/hicolor/scalable/apps/corvale.svg
  share/man/man1/corvale-cli.1
  share/man/man1/corvale.1
  share/metainfo/example.corvale.corvale.metainfo.xml
  share/zsh/site-functions/_corvale-cli
  ${icons})
list(SORT expected)
file(GLOB_RECURSE installed RELATIVE "${prefix}" "${prefix}/*")
list(SORT installed)
if(NOT installed STREQUAL expected)
  list(JOIN installed "\n" installed)
  list(JOIN expected "\n" expected)
  message(FATAL_ERROR "Installed:\n${installed}\ninstead of\n${expected}")
endif()

# A PNG has its width and height, big-endian, from its 17th byte.
foreach(size IN LISTS sizes)
  file(READ "${prefix}/share/icons/hicolor/${size}x${size}/apps/corvale.png" dimensions OFFSET 16 LIMIT 8 HEX)
  string(REGEX MATCH "^(........)(........)$" both "${dimensions}")
  math(EXPR width "0x${CMAKE_MATCH_1}")
  math(EXPR height "0x${CMAKE_MATCH_2}")
  if(NOT (width EQUAL size AND height EQUAL size))
    message(FATAL_ERROR "The icon of ${size} pixels is ${width} by ${height}")
  endif()
endforeach()

execute_process(COMMAND "${prefix}/bin/corvale-cli" --version OUTPUT_VARIABLE said COMMAND_ERROR_IS_FATAL ANY)
if(NOT said MATCHES "${VERSION}")
  message(FATAL_ERROR "The installed program is not ${VERSION}: ${said}")
endif()

# The first of each list is the newest.
file(READ "${prefix}/share/metainfo/example.corvale.corvale.metainfo.xml" metainfo)
file(READ "${BUILD}/generated/packaging/debian/changelog" changelog)
string(REGEX MATCH "<release version=\"([^\"]+)\"" found "${metainfo}")
if(NOT CMAKE_MATCH_1 STREQUAL VERSION)
  message(FATAL_ERROR "The newest release that the metainfo names is not ${VERSION}: ${found}")
endif()
if(NOT changelog MATCHES "^corvale \\(${VERSION}\\)")
  message(FATAL_ERROR "The newest entry of the changelog is not for ${VERSION}")
endif()

file(READ "${BUILD}/generated/packaging/debian/copyright" copyright)
string(FIND "${changelog}" " -- ${VENDOR}  " in_changelog)
string(FIND "${copyright}" "Upstream-Contact: ${VENDOR}\n" in_copyright)
if(in_changelog EQUAL -1 OR in_copyright EQUAL -1 OR "${metainfo}${changelog}${copyright}" MATCHES "@[A-Z_]+@")
  message(FATAL_ERROR "Who ships this build is not what the package says:\n${metainfo}${changelog}${copyright}")
endif()
