# SPDX-License-Identifier: MIT
# What the program is on Windows: one file with its icon, version and the toolkit's German words.
find_package(Qt6 REQUIRED COMPONENTS Gui)
set_target_properties(kestrelwood PROPERTIES WIN32_EXECUTABLE ON)
target_link_libraries(kestrelwood PRIVATE Qt6::QWindowsIntegrationPlugin)

set(icon ${PROJECT_SOURCE_DIR}/data/windows/kestrelwood.ico)
set(data ${PROJECT_SOURCE_DIR}/data)
configure_file(${data}/windows/kestrelwood.rc.in ${PROJECT_BINARY_DIR}/kestrelwood.rc @ONLY)
target_sources(kestrelwood PRIVATE ${PROJECT_BINARY_DIR}/kestrelwood.rc)
set_source_files_properties(${PROJECT_BINARY_DIR}/kestrelwood.rc TARGET_DIRECTORY kestrelwood
    PROPERTIES OBJECT_DEPENDS "${icon};${data}/windows/kestrelwood.manifest")

set(translations ${QT_HOST_PATH}/share/qt6/translations)
qt_add_resources(kestrelwood translations
    PREFIX /translations
    BASE ${translations}
    FILES ${translations}/qtbase_de.qm)
