# Who ships this build: the one place for what its files, packages and windows say of it. Options of the build.

set(CORVALE_VENDOR "Corvale developers" CACHE STRING "Who ships this build, as people know them")
set(CORVALE_HOMEPAGE "https://corvale.example/" CACHE STRING "Their page about Corvale")
set(CORVALE_SUPPORT_ADDRESS "support@corvale.example" CACHE STRING "Where users write for help")
set(CORVALE_UPDATE_ENDPOINT "" CACHE STRING "Asked with HEAD whether there may be a new version; empty: no update checks")
set(CORVALE_UPDATE_FEED "" CACHE STRING "The RSS feed of versions; empty: no update checks")

# Writes a copy of <path>.in with these filled in, below the build's folder.
function(corvale_fill_in path)
  configure_file("${PROJECT_SOURCE_DIR}/${path}.in" "${PROJECT_BINARY_DIR}/generated/${path}" @ONLY)
endfunction()
