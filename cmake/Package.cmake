# `cpack` builds a Debian package of everything that `cmake --install` installs.

set(CPACK_GENERATOR DEB)
set(CPACK_SOURCE_GENERATOR OFF)
set(CPACK_PACKAGE_NAME trrule)
set(CPACK_PACKAGE_CONTACT "The TrRule authors <trrule@users.noreply.invalid>")
set(CPACK_PACKAGE_DIRECTORY "${PROJECT_BINARY_DIR}")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_PRE_BUILD_SCRIPTS "${PROJECT_SOURCE_DIR}/cmake/debian/Places.cmake")
set(CPACK_TRRULE_COPYRIGHT "${PROJECT_SOURCE_DIR}/cmake/debian/copyright")
# Everyone may enter the folders, whatever the umask of the build.
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ
    OWNER_WRITE
    OWNER_EXECUTE
    GROUP_READ
    GROUP_EXECUTE
    WORLD_READ
    WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "The library and its headers, the command trrule over files of rules with its man page and
completions, the demonstration driver trrule-demo, and the documentation.")
# The dependencies of the package are read from its programs, if the tools for that are installed.
find_program(TRRULE_DPKG_SHLIBDEPS dpkg-shlibdeps)
find_program(TRRULE_FILE file)
mark_as_advanced(TRRULE_DPKG_SHLIBDEPS TRRULE_FILE)
if(TRRULE_DPKG_SHLIBDEPS AND TRRULE_FILE)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
  # The library of the driver is in the same package.
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}")
else()
  set(CPACK_DEBIAN_PACKAGE_DEPENDS "libc6, libgcc-s1, libstdc++6")
endif()

include(CPack)
