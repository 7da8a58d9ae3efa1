# The static library `scintilla`, the editing component under the SQL editor. Its source is Debian's, fetched into the
# build folder when it is not there yet; nothing of it is kept in the repository.
set(TESSEL_SCINTILLA_DIR ${PROJECT_SOURCE_DIR}/build/deps/scintilla CACHE PATH "Source of the Scintilla component")

if(NOT EXISTS ${TESSEL_SCINTILLA_DIR}/License.txt)
  get_filename_component(scintilla_parent ${TESSEL_SCINTILLA_DIR} DIRECTORY)
  execute_process(COMMAND ${PROJECT_SOURCE_DIR}/scripts/fetch_scintilla ${scintilla_parent}
    COMMAND_ERROR_IS_FATAL ANY)
endif()

# mend_scintilla(FILE BEFORE AFTER): a copy of a file of src under generated/scintilla with one place put right.
function(mend_scintilla file before after)
  file(READ ${TESSEL_SCINTILLA_DIR}/src/${file} text)
  string(FIND "${text}" "${before}" place)
  if(place EQUAL -1)
    message(FATAL_ERROR "${file} is not the file that is known")
  endif()
  string(REPLACE "${before}" "${after}" text "${text}")
  file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/generated/scintilla/${file} CONTENT "${text}" @ONLY)
endfunction()

# After memory ran out once, the component writes beyond the end of a buffer, whose room it counted before it had it,
# and reads widths that it could not keep; while it runs out, the end of an undo action, which stands in a destructor,
# throws. scintilla_prefix.h reads the mended header before the original.
set(counting "gapLength += newSize - body.size();")
mend_scintilla(SplitVector.h "${counting}" "body.reserve(newSize);\n\t\t\t${counting}")
mend_scintilla(PositionCache.cxx "if ((styleNumber == styleNumber_)" "if (positions && (styleNumber == styleNumber_)")
mend_scintilla(CellBuffer.cxx "EnsureUndoRoom();\n\tundoSequenceDepth--;"
  "undoSequenceDepth--;\n\ttry { EnsureUndoRoom(); } catch (const std::bad_alloc &) { return; }")

file(GLOB scintilla_sources ${TESSEL_SCINTILLA_DIR}/src/*.cxx)
list(TRANSFORM scintilla_sources REPLACE "^.*/(CellBuffer|PositionCache).cxx$"
  "${PROJECT_BINARY_DIR}/generated/scintilla/\\1.cxx")
add_library(scintilla STATIC ${scintilla_sources} ${TESSEL_SCINTILLA_DIR}/win32/PlatWin.cxx
  ${TESSEL_SCINTILLA_DIR}/win32/ScintillaWin.cxx ${TESSEL_SCINTILLA_DIR}/win32/HanjaDic.cxx)
target_include_directories(scintilla SYSTEM PUBLIC ${TESSEL_SCINTILLA_DIR}/include)
target_include_directories(scintilla PRIVATE ${PROJECT_BINARY_DIR}/generated/scintilla ${TESSEL_SCINTILLA_DIR}/src
  ${TESSEL_SCINTILLA_DIR}/win32)
# One translation unit a core: apart, the files read the same headers forty times, which is most of the work. The
# library's own regular expressions are left out, since nothing here searches by them.
set_target_properties(scintilla PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 24)
target_compile_definitions(scintilla PRIVATE UNICODE _UNICODE NOMINMAX _WIN32_WINNT=0x0A00 NO_CXX11_REGEX)
# Somebody else's code: its warnings are not ours to mend.
target_compile_options(scintilla PRIVATE -Os -w -ffunction-sections -fdata-sections
  -include ${PROJECT_SOURCE_DIR}/controls/editor/win32/scintilla_prefix.h)
tessel_harden(scintilla)
target_link_libraries(scintilla PUBLIC gdi32 imm32 ole32 oleaut32 uuid user32 advapi32 msimg32)

# The product carries the component's licence; packaging takes it from here.
configure_file(${TESSEL_SCINTILLA_DIR}/License.txt ${PROJECT_BINARY_DIR}/licences/scintilla.txt COPYONLY)
