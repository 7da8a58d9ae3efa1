# tessel_harden(TARGET): what ships is compiled with checks of the stack and of copies into arrays of known size. An
# overrun ends the process instead of going on in foreign hands. Tests and benchmarks do without.
if(MINGW)
  add_library(tessel_stack_guard STATIC ${PROJECT_SOURCE_DIR}/common/win32/stack_guard.cpp)
  target_compile_options(tessel_stack_guard PRIVATE -fno-stack-protector -Wall -Wextra)
  # The compiler's library for the checked copies; without its own handling of failures.
  target_link_libraries(tessel_stack_guard INTERFACE ssp)
endif()

function(tessel_harden target)
  if(MINGW)
    target_compile_options(${target} PRIVATE -fstack-protector-strong)
    target_compile_definitions(${target} PRIVATE _FORTIFY_SOURCE=2)
    target_link_libraries(${target} PUBLIC tessel_stack_guard)
  endif()
endfunction()
