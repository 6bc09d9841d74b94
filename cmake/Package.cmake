# SPDX-License-Identifier: MIT
# The Debian package: `cpack` in a build folder.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ${PROJECT_NAME})
set(CPACK_PACKAGE_VENDOR "Kestrelwood developers")
set(CPACK_PACKAGE_CONTACT "Kestrelwood developers <kestrelwood@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "record and study a roulette permanence")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/PackageFolders.cmake)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER ${CPACK_PACKAGE_CONTACT})
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Keeps the results of a single-zero roulette wheel, files each number under
every chance that it belongs to, counts them and shows them around the table.")
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
# The libraries are found in the program itself. What it can do without, though less well: the font
# its texts are measured for, the toolkit's German words, a small set of instruments.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS
    "fonts-liberation2 | fonts-liberation, qt6-translations-l10n, timgm6mb-soundfont")
include(CPack)
