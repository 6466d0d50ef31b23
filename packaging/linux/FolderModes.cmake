# Run by cpack between installing and packing: the folders of the package are open to all, whatever
# the umask of whoever packs. CMake's own default for them gives way to a strict umask.
file(CHMOD_RECURSE ${CPACK_TEMPORARY_DIRECTORY}/usr DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
