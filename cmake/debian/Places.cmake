# Run by CPack between installing and packing: puts in place what Debian has places of its own for.
# `cmake --install` does without, since the prefix may be anywhere and the system another one.

set(Share "${CPACK_TEMPORARY_INSTALL_DIRECTORY}${CPACK_PACKAGING_INSTALL_PREFIX}/share")

# COPY, not INSTALL: that would put $DESTDIR, which is set here, in front once more.
file(
  COPY "${CPACK_TRRULE_COPYRIGHT}"
  DESTINATION "${Share}/doc/trrule"
  FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)

# Debian's zsh looks for packages' completions in a folder that no other zsh has.
if(EXISTS "${Share}/zsh/site-functions")
  file(RENAME "${Share}/zsh/site-functions" "${Share}/zsh/vendor-completions")
endif()
