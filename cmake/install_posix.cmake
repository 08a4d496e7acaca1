# The programs, the library with its headers and its CMake package, the data files and the documents.

include(CMakePackageConfigHelpers)
set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/lomar6")
set(data_dir "${CMAKE_INSTALL_DATADIR}/lomar6")
set(doc_dir "${CMAKE_INSTALL_DATADIR}/doc/lomar6")
file(GLOB doc_files CONFIGURE_DEPENDS
    "${PROJECT_SOURCE_DIR}/README.md" "${PROJECT_SOURCE_DIR}/docs/*.md")

install(TARGETS lomar6 RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
if(TARGET lomar)
    install(TARGETS lomar RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
    install(FILES docs/lomar.1 DESTINATION "${CMAKE_INSTALL_MANDIR}/man1")
    install(FILES completion/lomar.bash RENAME lomar
        DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions")
endif()
install(TARGETS lomar6_core EXPORT lomar6_targets ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}")
install(DIRECTORY src/ DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/lomar6"
    FILES_MATCHING PATTERN "*.h")
install(FILES ${data_files} DESTINATION "${data_dir}")
install(FILES ${doc_files} DESTINATION "${doc_dir}")
install(DIRECTORY docs/pictures DESTINATION "${doc_dir}")
install(FILES docs/lomar6.1 DESTINATION "${CMAKE_INSTALL_MANDIR}/man1")

install(EXPORT lomar6_targets NAMESPACE lomar6:: DESTINATION "${package_dir}")
configure_package_config_file(cmake/lomar6-config.cmake.in lomar6-config.cmake
    INSTALL_DESTINATION "${package_dir}" PATH_VARS data_dir)
write_basic_package_version_file(lomar6-config-version.cmake COMPATIBILITY SameMinorVersion)
install(FILES
    "${PROJECT_BINARY_DIR}/lomar6-config.cmake"
    "${PROJECT_BINARY_DIR}/lomar6-config-version.cmake"
    DESTINATION "${package_dir}")
