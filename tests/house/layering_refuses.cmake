# Plants one file at a time into a tree of its own and asks the layering check what it says.
# Run with: cmake -DROOT=... -DOUT=... -P layering_refuses.cmake
cmake_minimum_required(VERSION 3.25)

# check(PATH TEXT): runs the check over a tree that holds TEXT at PATH alone; sets result and output.
macro(check path text)
  file(REMOVE_RECURSE ${OUT})
  file(COPY ${ROOT}/cmake/Layering.cmake DESTINATION ${OUT}/cmake)
  file(WRITE ${OUT}/${path} "// Planted.\n${text}\n")
  execute_process(COMMAND ${CMAKE_COMMAND} -P ${OUT}/cmake/Layering.cmake
    RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
  string(REGEX REPLACE "[ \n]+" " " output "${output}")  # messages are wrapped
endmacro()

function(expect_refused path text reason)
  check(${path} "${text}")
  string(FIND "${output}" "${path}: ${reason}" place)
  if(result EQUAL 0 OR place EQUAL -1)
    message(SEND_ERROR "${text} in ${path} should be refused (${reason}), but: ${result} ${output}")
  endif()
endfunction()

function(expect_accepted path text)
  check(${path} "${text}")
  if(NOT result EQUAL 0 OR NOT output MATCHES "includes go down only")
    message(SEND_ERROR "${text} in ${path} should be accepted, but: ${result} ${output}")
  endif()
endfunction()

# Upward, sideways and round the back.
expect_refused(rtl/Planted.h "#include \"unicode/Unicode.Engine.Types.h\"" "rtl/ may not include unicode/")
expect_refused(rtl/deeper/Planted.inc "#include \"unicode/Unicode.Engine.Types.h\"" "rtl/ may not include unicode/")
expect_refused(unicode/Planted.cpp "  #  include   \"editing/Orv.Text.h\"" "unicode/ may not include editing/")
expect_refused(unicode/Planted.cpp "#include \"calendar/Orv.Date.h\"" "unicode/ may not include calendar/")
expect_refused(editing/Planted.cpp "#include \"platform/Window.h\"" "editing/ may not include platform/")
expect_refused(textlayout/Planted.cpp "#include \"tools/orv/eval/Eval.h\"" "textlayout/ may not include tools/")
expect_refused(rtl/Planted.cpp "#include \"../unicode/Unicode.Engine.Types.h\"" "headers of the house are included by")
expect_refused(unicode/Planted.cpp "#include \"Unicode.Text.UCS4.h\"" "headers of the house are included by")
expect_refused(rtl/Planted.cpp "#include <unicode/Unicode.Engine.Types.h>" "rtl/ may not name a third-party header")

# Only the class records of the installation stand below the framework, and they know the ground floor alone.
expect_refused(fmx/Planted.cpp "#include \"runtime/Marzel.h\"" "fmx/ may know the class records of runtime/ alone")
expect_refused(runtime/VirtualClass.cpp "#include \"fmx/Canvas.h\"" "class records may include rtl/ alone")
expect_refused(runtime/RewritableClass.h "#include \"runtime/Marzel.h\"" "class records may include rtl/ alone")

# The markup readers stand below the rest of their room.
expect_refused(formatted/Orv.StdCtrls.HTML.cpp "#include \"fmx/Canvas.h\"" "the markup readers may include rtl/ alone")
expect_refused(formatted/Orv.StdCtrls.RTF.Body.cpp "#include \"formatted/Orv.StdCtrls.h\"" "the markup readers may include")
expect_accepted(formatted/Orv.StdCtrls.RTF.cpp "#include \"formatted/Orv.StdCtrls.Markup.h\"\n#include \"rtl/Sets.h\"")
expect_accepted(formatted/Orv.StdCtrls.cpp "#include \"formatted/Orv.StdCtrls.HTML.h\"\n#include \"fmx/Canvas.h\"")

# Third parties.
expect_refused(unicode/Planted.cpp "#include <gtest/gtest.h>" "unicode/ may not name a third-party header")
expect_refused(rtl/Planted.cpp "#include <unicode/uchar.h>" "rtl/ may not name a third-party header")
expect_refused(rtl/Planted.cpp "#include <windows.h>" "rtl/ may not name a third-party header")
expect_refused(textlayout/Planted.h "#include <ft2build.h>" "textlayout/ may not name a third-party header")
expect_refused(editing/Planted.h "#include \"gtest/gtest.h\"" "editing/ may not include gtest/")

# What is right stays right.
expect_accepted(rtl/Planted.h "#include <cstdint>\n#include <string_view>\n#include \"rtl/Unicode.h\"")
expect_accepted(editing/Planted.cpp "#include \"unicode/Unicode.Engine.Types.h\"  // for runs\n#include <vector>")
expect_accepted(unicode/Planted.cpp "#include <immintrin.h>\n#include <arm_neon.h>")
expect_accepted(unicode/Planted.cpp "// #include \"editing/Orv.Text.h\"")
expect_accepted(platform/Planted.cpp "#include <SDL.h>\n#include \"rtl/Strings.h\"")
expect_accepted(fmx/Planted.cpp "#include \"runtime/VirtualClass.h\"\n#include \"runtime/RewritableClass.h\"")
expect_accepted(runtime/VirtualClass.cpp "#include \"runtime/VirtualClass.h\"\n#include \"rtl/Assertions.h\"")
expect_accepted(tests/Planted.cpp "#include <gtest/gtest.h>")
