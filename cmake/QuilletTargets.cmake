# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT

# How the project's targets are made: one library per folder of src/, whose link list is all that
# it may include, and one test program per library.

# Six precompiled headers serve all targets: the ground, the ground with Qt, that with widgets, and
# all again with GoogleTest for tests, which are compiled without optimization: what they test is not.
function(quillet_precompiled_header name)
  file(WRITE "${PROJECT_BINARY_DIR}/pch/${name}.cpp.in" "")
  configure_file("${PROJECT_BINARY_DIR}/pch/${name}.cpp.in" "${PROJECT_BINARY_DIR}/pch/${name}.cpp"
                 COPYONLY)
  add_library(${name} STATIC "${PROJECT_BINARY_DIR}/pch/${name}.cpp")
  target_link_libraries(${name} PRIVATE quillet_warnings quillet_sanitizers ${ARGN})
  if(name MATCHES "test$")
    target_compile_options(${name} PRIVATE -O0)
  endif()
  # Named by us and not by CMake, whose option holds the path of this checkout.
  target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}/cmake")
  target_compile_options(${name} PRIVATE "SHELL:-Xclang -include -Xclang ${name}.h")
  target_precompile_headers(${name} PRIVATE <${name}.h>)
endfunction()

function(quillet_compile target pch)
  target_include_directories(${target} PUBLIC "${PROJECT_SOURCE_DIR}/src")
  if(pch MATCHES "test$")
    target_compile_options(${target} PRIVATE -O0)
  endif()
  target_link_libraries(${target} PRIVATE quillet_warnings quillet_sanitizers)
  if(pch MATCHES "qt|widgets")
    target_link_libraries(${target} PRIVATE quillet_qt_strict)
  endif()
  target_precompile_headers(${target} REUSE_FROM ${pch})
endfunction()

# quillet_library(name [QT|WIDGETS] SOURCES file... [LINK target...])
function(quillet_library name)
  cmake_parse_arguments(arg "QT;WIDGETS" "" "SOURCES;LINK" ${ARGN})
  add_library(${name} STATIC ${arg_SOURCES})
  target_link_libraries(${name} PUBLIC ${arg_LINK})
  if(arg_WIDGETS)
    quillet_compile(${name} quillet_pch_widgets)
  elseif(arg_QT)
    quillet_compile(${name} quillet_pch_qt)
  else()
    quillet_compile(${name} quillet_pch)
  endif()
endfunction()

# quillet_test(name [QT|WIDGETS] SOURCES file... [LINK target...]): a test program and its ctest
# entry. With QT its main makes the application object, with WIDGETS one that shows windows nowhere.
function(quillet_test name)
  cmake_parse_arguments(arg "QT;WIDGETS" "" "SOURCES;LINK" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}/tests")
  target_link_libraries(${name} PRIVATE ${arg_LINK})
  if(arg_WIDGETS)
    target_link_libraries(${name} PRIVATE quillet_widgets_test_main Qt6::Test)
    quillet_compile(${name} quillet_pch_widgets_test)
  elseif(arg_QT)
    target_link_libraries(${name} PRIVATE quillet_qt_test_main)
    quillet_compile(${name} quillet_pch_qt_test)
  else()
    target_link_libraries(${name} PRIVATE GTest::gtest_main)
    quillet_compile(${name} quillet_pch_test)
  endif()
  add_test(NAME ${name} COMMAND ${name})
  # What compares pictures is among those with windows: ./dev pictures runs them to renew these.
  set_tests_properties(${name} PROPERTIES TIMEOUT 300 LABELS "$<$<BOOL:${arg_WIDGETS}>:pictures>")
endfunction()

# quillet_test_place(target name path): defines the name as the path from the test program, for
# placeOf(). An absolute one would keep ccache from finding the objects again in another checkout.
function(quillet_test_place target name path)
  target_compile_definitions(${target} PRIVATE
    "${name}=\"$<PATH:RELATIVE_PATH,${path},${CMAKE_RUNTIME_OUTPUT_DIRECTORY}>\"")
endfunction()
