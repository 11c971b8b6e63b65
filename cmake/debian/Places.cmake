# Run by CPack between installing and packing: moves files to the folders that Debian prescribes.
# `cmake --install` does not do so, since the prefix and the system may be others.

set(Share "${CPACK_TEMPORARY_INSTALL_DIRECTORY}${CPACK_PACKAGING_INSTALL_PREFIX}/share")

# COPY, not INSTALL, which would prepend $DESTDIR again.
file(
  COPY "${CPACK_TRRULE_COPYRIGHT}"
  DESTINATION "${Share}/doc/trrule"
  FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)

# Debian's zsh looks for completions of packages in its own folder.
if(EXISTS "${Share}/zsh/site-functions")
  file(RENAME "${Share}/zsh/site-functions" "${Share}/zsh/vendor-completions")
endif()
