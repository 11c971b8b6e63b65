# `cmake --build --preset docs` builds the HTML pages; a warning of Doxygen is an error.

find_package(Doxygen QUIET)
if(NOT DOXYGEN_FOUND)
  add_custom_target(
    docs
    COMMAND ${CMAKE_COMMAND} -E echo "The documentation is made by Doxygen: please install doxygen"
    COMMAND ${CMAKE_COMMAND} -E false
    VERBATIM)
  return()
endif()

configure_file(docs/Doxyfile.in Doxyfile @ONLY)
add_custom_target(
  docs
  COMMAND ${CMAKE_COMMAND} -E rm -rf "${PROJECT_BINARY_DIR}/html"
  COMMAND Doxygen::doxygen "${PROJECT_BINARY_DIR}/Doxyfile"
  COMMENT "Building the documentation in ${PROJECT_BINARY_DIR}/html"
  WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}"
  VERBATIM)
