# What the properties of every shipped binary show: the macros of the generated tessel_version.h, which resource
# scripts include.
set(TESSEL_PRODUCT "Tessel")
set(TESSEL_COPYRIGHT "Copyright (c) 2026 the Tessel authors. MIT licence.")
configure_file(${PROJECT_SOURCE_DIR}/cmake/tessel_version.h.in ${PROJECT_BINARY_DIR}/generated/tessel_version.h @ONLY)
