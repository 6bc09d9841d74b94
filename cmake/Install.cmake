# SPDX-License-Identifier: MIT
# What `cmake --install` puts where, below any prefix and DESTDIR.

# Of the release whose number project() gives.
set(KESTRELWOOD_DATE 2026-11-22)

# A lax umask of whoever installs mustn't let others write.
set(CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(data ${PROJECT_SOURCE_DIR}/data)
set(made ${PROJECT_BINARY_DIR}/install)

# The program looks for its melody beside itself, and a folder of commands is no place for one. So
# both have a folder of their own, and the command is a link, which the program sees through.
set(home ${CMAKE_INSTALL_LIBEXECDIR}/${PROJECT_NAME})
cmake_path(RELATIVE_PATH CMAKE_INSTALL_FULL_LIBEXECDIR
    BASE_DIRECTORY ${CMAKE_INSTALL_FULL_BINDIR} OUTPUT_VARIABLE way)
file(MAKE_DIRECTORY ${made})
file(CREATE_LINK ${way}/${PROJECT_NAME}/${PROJECT_NAME} ${made}/${PROJECT_NAME} SYMBOLIC)
install(TARGETS kestrelwood RUNTIME DESTINATION ${home})
install(FILES ${data}/melody/info.mid DESTINATION ${home})
install(FILES ${made}/${PROJECT_NAME} DESTINATION ${CMAKE_INSTALL_BINDIR})

# All of the desktop's files bear the one id.
configure_file(${data}/${KESTRELWOOD_ID}.desktop.in ${made}/${KESTRELWOOD_ID}.desktop @ONLY)
configure_file(
    ${data}/${KESTRELWOOD_ID}.metainfo.xml.in ${made}/${KESTRELWOOD_ID}.metainfo.xml @ONLY)
install(FILES ${made}/${KESTRELWOOD_ID}.desktop
    DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${made}/${KESTRELWOOD_ID}.metainfo.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(DIRECTORY ${data}/icons/hicolor DESTINATION ${CMAKE_INSTALL_DATADIR}/icons)

# The handbook lies beside its pictures.
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs/ DESTINATION ${CMAKE_INSTALL_DOCDIR}
    FILES_MATCHING PATTERN handbuch.md PATTERN *.png)

foreach(language "" de)
    configure_file(${data}/man/${language}/kestrelwood.1.in ${made}/${language}/kestrelwood.1 @ONLY)
    install(FILES ${made}/${language}/kestrelwood.1
        DESTINATION ${CMAKE_INSTALL_MANDIR}/${language}/man1)
endforeach()

install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR})
