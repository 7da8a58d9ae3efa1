# Helpers used by every folder's CMakeLists.txt.

# tessel_library(NAME sources... [LINK libs...]): a static library of one folder, with the project's warnings.
function(tessel_library name)
  cmake_parse_arguments(ARG "" "" "LINK" ${ARGN})
  add_library(${name} STATIC ${ARG_UNPARSED_ARGUMENTS})
  target_link_libraries(${name} PUBLIC tessel_options ${ARG_LINK})
  tessel_harden(${name})
endfunction()

# tessel_test(NAME sources... [LINK libs...] [ENV VAR=value...]): one GoogleTest program and one CTest entry.
# One entry a program keeps the number of Wine starts low. Tests of portable code and of the COM classes carry the label
# "core": what is run for an architecture that has no display of its own. The target core_tests builds them.
add_custom_target(core_tests)
function(tessel_test name)
  cmake_parse_arguments(ARG "" "" "LINK;ENV;LABELS" ${ARGN})
  add_executable(${name} ${ARG_UNPARSED_ARGUMENTS})
  target_link_libraries(${name} PRIVATE tessel_options ${ARG_LINK} GTest::gmock GTest::gtest_main)
  # Tests are long tables that run once: what counts is how fast they compile.
  if(NOT MSVC)
    target_compile_options(${name} PRIVATE -O0)
  endif()
  add_test(NAME ${name} COMMAND ${name})
  # Every program leaves a report, from which scripts/count_tests tells how many tests ran.
  set(reports "GTEST_OUTPUT=xml:reports/${name}.xml")
  set_tests_properties(${name} PROPERTIES TIMEOUT 600 ENVIRONMENT
    "TESSEL_SOURCE_DIR=${PROJECT_SOURCE_DIR};TESSEL_BINARY_DIR=${PROJECT_BINARY_DIR};${reports};${TESSEL_WINE_ENV};${ARG_ENV}")
  get_filename_component(folder ${CMAKE_CURRENT_SOURCE_DIR} NAME)
  if(NOT folder MATCHES "^win_" OR folder STREQUAL "win_component")
    list(APPEND ARG_LABELS core)
    add_dependencies(core_tests ${name})
  endif()
  if(ARG_LABELS)
    set_tests_properties(${name} PROPERTIES LABELS "${ARG_LABELS}")
  endif()
endfunction()

# Windows programs of a cross build run under Wine in a prefix of the build's own (scripts/make_prefix). WINEPREFIX in
# the environment when CMake configures names another one for x64. Programs for x86 need a prefix that was made with the
# 32-bit libraries of scripts/fetch_wine32.
set(TESSEL_WINE_ENV "")
if(WIN32 AND CMAKE_CROSSCOMPILING)
  if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    set(TESSEL_WINE_ENV "WINEPREFIX=${PROJECT_SOURCE_DIR}/build/wineprefix_x86;WINEDEBUG=-all")
    list(APPEND TESSEL_WINE_ENV "WINEDLLPATH=${PROJECT_SOURCE_DIR}/build/deps/wine32")
  elseif(DEFINED ENV{WINEPREFIX})
    set(TESSEL_WINE_ENV "WINEPREFIX=$ENV{WINEPREFIX};WINEDEBUG=-all")
  else()
    set(TESSEL_WINE_ENV "WINEPREFIX=${PROJECT_SOURCE_DIR}/build/wineprefix;WINEDEBUG=-all")
  endif()
endif()
