# Helpers used by every folder's CMakeLists.txt.

# tessel_library(NAME sources... [LINK libs...]): a static library of one folder, with the project's warnings.
function(tessel_library name)
  cmake_parse_arguments(ARG "" "" "LINK" ${ARGN})
  add_library(${name} STATIC ${ARG_UNPARSED_ARGUMENTS})
  target_link_libraries(${name} PUBLIC tessel_options ${ARG_LINK})
endfunction()

# tessel_test(NAME sources... [LINK libs...] [ENV VAR=value...]): one GoogleTest program and one CTest entry.
# One entry a program keeps the number of Wine starts low.
function(tessel_test name)
  cmake_parse_arguments(ARG "" "" "LINK;ENV;LABELS" ${ARGN})
  add_executable(${name} ${ARG_UNPARSED_ARGUMENTS})
  target_link_libraries(${name} PRIVATE tessel_options ${ARG_LINK} GTest::gmock GTest::gtest_main)
  # Tests are long tables that run once: what counts is how fast they compile.
  if(NOT MSVC)
    target_compile_options(${name} PRIVATE -O0)
  endif()
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES TIMEOUT 600 ENVIRONMENT
    "TESSEL_SOURCE_DIR=${PROJECT_SOURCE_DIR};TESSEL_BINARY_DIR=${PROJECT_BINARY_DIR};${TESSEL_WINE_ENV};${ARG_ENV}")
  if(ARG_LABELS)
    set_tests_properties(${name} PROPERTIES LABELS "${ARG_LABELS}")
  endif()
endfunction()

# Windows programs of a cross build run under Wine in a prefix of the build's own (scripts/make_prefix). WINEPREFIX in
# the environment when CMake configures names another one.
set(TESSEL_WINE_ENV "")
if(WIN32 AND CMAKE_CROSSCOMPILING)
  if(DEFINED ENV{WINEPREFIX})
    set(TESSEL_WINE_ENV "WINEPREFIX=$ENV{WINEPREFIX};WINEDEBUG=-all")
  else()
    set(TESSEL_WINE_ENV "WINEPREFIX=${PROJECT_SOURCE_DIR}/build/wineprefix;WINEDEBUG=-all")
  endif()
endif()
