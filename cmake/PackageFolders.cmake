# SPDX-License-Identifier: MIT
# Runs on the files to be packed: opens the folders to all users, for the packer's umask applies to
# them whatever permissions they are asked to get.
file(GLOB_RECURSE entries LIST_DIRECTORIES true ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*)
foreach(entry IN LISTS entries)
    if(IS_DIRECTORY ${entry} AND NOT IS_SYMLINK ${entry})
        file(CHMOD ${entry} PERMISSIONS
            OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
    endif()
endforeach()
