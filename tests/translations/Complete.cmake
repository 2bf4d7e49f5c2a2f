# Fails when a text of the window has no translation, or a translation no text any more. Variables: LUPDATE, ROOT, SCRATCH,
# and FURTHER, a folder to read texts from besides the application's.

file(GLOB files "${ROOT}/Corvale/resources/translations/*.ts")
if(NOT files)
  message(FATAL_ERROR "There are no translations")
endif()
file(REMOVE_RECURSE "${SCRATCH}")
foreach(file IN LISTS files)
  cmake_path(GET file FILENAME name)
  set(copy "${SCRATCH}/${name}")
  file(COPY "${file}" DESTINATION "${SCRATCH}")
  execute_process(
    COMMAND "${LUPDATE}" -silent -locations none -no-obsolete -I . Corvale MacMenuBaseline ${FURTHER} -ts "${copy}"
    WORKING_DIRECTORY "${ROOT}" COMMAND_ERROR_IS_FATAL ANY)
  file(READ "${copy}" renewed)
  file(READ "${file}" committed)
  string(REGEX MATCHALL "<source>[^<]*</source>[^<]*(<comment>[^<]*</comment>[^<]*)?<translation type=[^\n]*" open "${renewed}")
  if(open)
    list(JOIN open "\n" open)
    message(FATAL_ERROR "${name}: not translated, or the text has changed:\n${open}")
  endif()
  if(NOT renewed STREQUAL committed)
    message(FATAL_ERROR "${name} has texts that are no longer used, or is not as lupdate writes it: see ${copy}")
  endif()
endforeach()
