# The files that `cmake --install` installs, and how other programs find them.

include(CMakePackageConfigHelpers)

set(PackageDir "${CMAKE_INSTALL_LIBDIR}/cmake/TrRule")
set(DocDir "${CMAKE_INSTALL_DATAROOTDIR}/doc/trrule")

install(TARGETS trrule EXPORT TrRuleTargets)
install(FILES ${TRRULE_HEADERS} DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/trrule")

if(TRRULE_BUILD_DRIVER)
  file(RELATIVE_PATH FromBinToLib "${CMAKE_INSTALL_FULL_BINDIR}" "${CMAKE_INSTALL_FULL_LIBDIR}")
  if(BUILD_SHARED_LIBS)
    set_target_properties(trrule-demo PROPERTIES INSTALL_RPATH "$ORIGIN/${FromBinToLib}")
  endif()
  install(TARGETS trrule-demo)
endif()

# --- find_package(TrRule) ----------------------------------------------------------------------

install(EXPORT TrRuleTargets NAMESPACE TrRule:: DESTINATION "${PackageDir}")
configure_package_config_file(
  "${PROJECT_SOURCE_DIR}/cmake/TrRuleConfig.cmake.in" "${PROJECT_BINARY_DIR}/TrRuleConfig.cmake"
  INSTALL_DESTINATION "${PackageDir}" NO_SET_AND_CHECK_MACRO)
# Before 1.0, another minor version is another interface, also in the name of the shared object.
write_basic_package_version_file("${PROJECT_BINARY_DIR}/TrRuleConfigVersion.cmake"
                                 COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/TrRuleConfig.cmake"
              "${PROJECT_BINARY_DIR}/TrRuleConfigVersion.cmake" DESTINATION "${PackageDir}")

# --- pkg-config --------------------------------------------------------------------------------

# Paths are relative to the file itself, so that an installed tree can be moved. Absolute paths stay
# absolute.
set(PcDir "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig")
file(RELATIVE_PATH FromPcToPrefix "${PcDir}" "${CMAKE_INSTALL_PREFIX}")
cmake_path(SET PcPrefix NORMALIZE "${FromPcToPrefix}")
string(REGEX REPLACE "/$" "" PcPrefix "${PcPrefix}")
set(TRRULE_PC_PREFIX "\${pcfiledir}/${PcPrefix}")
foreach(Dir IN ITEMS LIBDIR INCLUDEDIR)
  set(TRRULE_PC_${Dir} "${CMAKE_INSTALL_${Dir}}")
  if(NOT IS_ABSOLUTE "${CMAKE_INSTALL_${Dir}}")
    set(TRRULE_PC_${Dir} "\${prefix}/${CMAKE_INSTALL_${Dir}}")
  elseif(Dir STREQUAL "LIBDIR")
    set(TRRULE_PC_PREFIX "${CMAKE_INSTALL_PREFIX}")
  endif()
endforeach()
configure_file(cmake/trrule.pc.in trrule.pc @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/trrule.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")

# --- Documentation -----------------------------------------------------------------------------

# The pages link to each other and to the examples, so they keep their relative paths.
install(FILES README.md CHANGELOG.md CONTRIBUTING.md SECURITY.md LICENSE DESTINATION "${DocDir}")
install(DIRECTORY docs DESTINATION "${DocDir}" FILES_MATCHING PATTERN "*.md" PATTERN "*.svg"
                                                              PATTERN "*.json")
install(DIRECTORY examples DESTINATION "${DocDir}" FILES_MATCHING PATTERN "*.cpp" PATTERN "*.txt"
                                                                  PATTERN "*.trr"
                                                                  PATTERN "CMakeLists.txt" EXCLUDE)
# The HTML pages are installed if they have been built.
install(DIRECTORY "${PROJECT_BINARY_DIR}/html" DESTINATION "${DocDir}" OPTIONAL)
