# tessel_help: the help file tesseldsn.chm, beside the programs. Its compiler is a Debian package of its own, and
# nothing else of the build needs it: where it is missing the target fails with a word on what to install, and the rest
# builds as ever.
find_program(TESSEL_CHMCMD chmcmd)
find_program(TESSEL_PYTHON python3)
set(help_file ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/tesseldsn.chm)
set(help_folder ${PROJECT_SOURCE_DIR}/packaging/help)

if(TESSEL_CHMCMD AND TESSEL_PYTHON)
  file(GLOB help_topics CONFIGURE_DEPENDS ${help_folder}/topics/*.html)
  add_custom_command(
    OUTPUT ${help_file}
    COMMAND ${TESSEL_PYTHON} -B ${help_folder}/build_help ${help_file}
    DEPENDS ${help_topics} ${help_folder}/build_help ${help_folder}/chm_directory.py ${help_folder}/tesseldsn.hhp
      ${help_folder}/contents.txt ${help_folder}/ayuda.css
    COMMENT "Compiling the help file" VERBATIM)
  add_custom_target(tessel_help ALL DEPENDS ${help_file})
else()
  set(help_wanted "The help file needs chmcmd (Debian package fp-utils) and python3; install them and configure again.")
  message(STATUS "tesseldsn.chm is not built. ${help_wanted}")
  add_custom_target(tessel_help
    COMMAND ${CMAKE_COMMAND} -E echo "${help_wanted}"
    COMMAND ${CMAKE_COMMAND} -E false VERBATIM)
endif()
