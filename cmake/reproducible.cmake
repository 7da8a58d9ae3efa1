# The same sources give the same bytes, whenever and wherever they are built. Compilers write no folder names into a
# release (nothing shipped uses __FILE__; scripts/check_reproducible would show it), linkers are told not to write the
# time, and so is the type library's compiler (see component/).
if(MINGW)
  add_link_options(-Wl,--no-insert-timestamp)
endif()
