# The .deb that `./dev package` makes: both programs, without the library.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME corvale)
set(CPACK_PACKAGE_VENDOR "${CORVALE_VENDOR}")
set(CPACK_PACKAGE_HOMEPAGE_URL "${CORVALE_HOMEPAGE}")
set(CPACK_PACKAGE_DIRECTORY "${PROJECT_BINARY_DIR}/package")
set(CPACK_INSTALL_CMAKE_PROJECTS
  "${PROJECT_BINARY_DIR};Corvale;Programs;/" "${PROJECT_BINARY_DIR};Corvale;Debian;/")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_STRIP_FILES ON)
set(CPACK_PRE_BUILD_SCRIPTS "${PROJECT_SOURCE_DIR}/packaging/debian/CompressDocuments.cmake")

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "${CORVALE_VENDOR} <${CORVALE_SUPPORT_ADDRESS}>")
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Qt's own few texts in the user's language, and the part of Qt for desktops without X11.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-translations-l10n, qt6-wayland")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "compare two versions of a spreadsheet, cell by cell")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Corvale takes the older and the newer version of a table, as Excel workbooks
(.xlsx), CSV or TSV files, and shows which rows were added, removed or
changed, and which cells of them. Rows are matched by an identifier column
that it finds by itself, whatever order the rows and columns are in.

Besides the window there is corvale-cli for the terminal, for scripts and as
a difftool. Both write reports as an Excel workbook or a web page. Files are
compared on this computer; nothing is sent anywhere.")

include(CPack)
