# Installs a build into a scratch prefix, builds the consumer against nothing but that prefix, and runs it.
# Variables: BUILD (the build to install), CONSUMER (its source), SCRATCH, CXX, FLAGS.

set(prefix "${SCRATCH}/prefix")
file(REMOVE_RECURSE "${SCRATCH}")

function(run)
  execute_process(COMMAND ${ARGN} OUTPUT_VARIABLE output ERROR_VARIABLE output RESULT_VARIABLE status)
  if(status)
    message(FATAL_ERROR "${ARGN}\n${output}")
  endif()
endfunction()

run("${CMAKE_COMMAND}" --install "${BUILD}" --prefix "${prefix}")
run("${CMAKE_COMMAND}" -S "${CONSUMER}" -B "${SCRATCH}/build" -G Ninja
  "-DCMAKE_PREFIX_PATH=${prefix}" "-DCMAKE_CXX_COMPILER=${CXX}" "-DCMAKE_CXX_FLAGS=${FLAGS}")
run("${CMAKE_COMMAND}" --build "${SCRATCH}/build")

execute_process(COMMAND "${SCRATCH}/build/consumer" OUTPUT_VARIABLE output COMMAND_ERROR_IS_FATAL ANY)
set(expected "added 2, removed 1, changed 1, same 1\n")
if(NOT output STREQUAL expected)
  message(FATAL_ERROR "The consumer printed\n${output}instead of\n${expected}")
endif()

foreach(file bin/corvale-cli share/man/man1/corvale-cli.1 share/bash-completion/completions/corvale-cli
    share/zsh/site-functions/_corvale-cli)
  if(NOT EXISTS "${prefix}/${file}")
    message(FATAL_ERROR "${file} was not installed")
  endif()
endforeach()
