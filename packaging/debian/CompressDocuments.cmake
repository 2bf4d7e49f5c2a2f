# Debian keeps manual pages and changelogs compressed, without names or times within. CPack runs this on the files that it
# is about to pack; CPACK_TEMPORARY_DIRECTORY is their root.

file(GLOB documents
  "${CPACK_TEMPORARY_DIRECTORY}/usr/share/man/man*/*.[0-9]"
  "${CPACK_TEMPORARY_DIRECTORY}/usr/share/doc/corvale/changelog")
if(NOT documents)
  message(FATAL_ERROR "No manual page in ${CPACK_TEMPORARY_DIRECTORY}")
endif()
execute_process(COMMAND gzip -9nf ${documents} COMMAND_ERROR_IS_FATAL ANY)
