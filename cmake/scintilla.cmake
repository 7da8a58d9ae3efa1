# The static library `scintilla`, the editing component under the SQL editor. Its source is Debian's, fetched into the
# build folder when it is not there yet; nothing of it is kept in the repository.
set(TESSEL_SCINTILLA_DIR ${PROJECT_SOURCE_DIR}/build/deps/scintilla CACHE PATH "Source of the Scintilla component")

if(NOT EXISTS ${TESSEL_SCINTILLA_DIR}/License.txt)
  get_filename_component(scintilla_parent ${TESSEL_SCINTILLA_DIR} DIRECTORY)
  execute_process(COMMAND ${PROJECT_SOURCE_DIR}/scripts/fetch_scintilla ${scintilla_parent}
    COMMAND_ERROR_IS_FATAL ANY)
endif()

# The component's buffers count the room for new text before they have got it, and write beyond their end after memory
# ran out once. This copy of their header asks for the room first; scintilla_prefix.h reads it before the original.
set(uncertain "gapLength += newSize - body.size();")
file(READ ${TESSEL_SCINTILLA_DIR}/src/SplitVector.h split_vector)
string(FIND "${split_vector}" "${uncertain}" place)
if(place EQUAL -1)
  message(FATAL_ERROR "SplitVector.h is not the file that is known")
endif()
string(REPLACE "${uncertain}" "body.reserve(newSize);\n\t\t\t${uncertain}" split_vector "${split_vector}")
file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/generated/scintilla/SplitVector.h CONTENT "${split_vector}" @ONLY)

file(GLOB scintilla_sources ${TESSEL_SCINTILLA_DIR}/src/*.cxx)
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
