# `cmake --build --preset docs` makes the pages for browsers; a warning of Doxygen's is an error.

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
  COMMENT "Making the documentation in ${PROJECT_BINARY_DIR}/html"
  WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}"
  VERBATIM)
