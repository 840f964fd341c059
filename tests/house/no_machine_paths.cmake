# Fails when a file of the tree names a folder of somebody's machine. With OUT, plants such files there instead and
# fails when they are not found.
# Run with: cmake -DROOT=... [-DOUT=...] -P no_machine_paths.cmake
cmake_minimum_required(VERSION 3.25)

# The letters in brackets keep this file from finding itself.
set(pattern [==[(^|[^A-Za-z0-9_.~-])(/wor[k]/|/roo[t]/|/hom[e]/[a-z]|/User[s]/|/build[s]/|/mn[t]/|[A-Z]:\\+User[s])]==])

# search(FOLDER OPTION...): sets found to the lines that name such a folder. Vectors and sample texts are data, in which
# a path is a text like any other.
macro(search folder)
  execute_process(COMMAND git grep --no-index ${ARGN} -nE "${pattern}" -- . ":!tests/vectors" ":!examples/texts"
    WORKING_DIRECTORY ${folder} RESULT_VARIABLE result OUTPUT_VARIABLE found ERROR_VARIABLE trouble)
  if(NOT result MATCHES "^[01]$")
    message(FATAL_ERROR "git grep: ${result} ${trouble}")
  endif()
endmacro()

function(expect_found text)
  file(REMOVE_RECURSE ${OUT})
  file(WRITE ${OUT}/docs/planted.md "A page.\n${text}\n")
  search(${OUT})
  if(NOT found MATCHES "docs/planted.md:2:")
    message(SEND_ERROR "not found: ${text}")
  endif()
endfunction()

function(expect_passed text)
  file(REMOVE_RECURSE ${OUT})
  file(WRITE ${OUT}/docs/planted.md "A page.\n${text}\n")
  search(${OUT})
  if(found)
    message(SEND_ERROR "names no machine: ${found}")
  endif()
endfunction()

if(DEFINED OUT)
  set(slash /)
  expect_found("see ${slash}work/orv/rtl")
  expect_found("${slash}root/orv")
  expect_found("\"${slash}home/dana/orv\"")
  expect_found("file:${slash}${slash}${slash}Users/dana")
  set(backslash "\\")
  expect_found("C:${backslash}Users${backslash}dana")
  expect_passed("https://example.org${slash}work${slash}home/users")
  expect_passed("framework${slash}work${slash}root.txt and ~/home")
  expect_passed("the root / of the tree, at work")
else()
  search(${ROOT} --exclude-standard)
  if(found)
    message(FATAL_ERROR "these name a machine path:\n${found}")
  endif()
endif()
