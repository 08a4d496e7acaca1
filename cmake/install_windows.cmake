# One folder with the programs, its data files and a page on how to use it.

install(TARGETS lomar6 RUNTIME DESTINATION .)
if(TARGET lomar)
    install(TARGETS lomar RUNTIME DESTINATION .)
    install(FILES docs/lomar.md DESTINATION .)
    install(DIRECTORY docs/pictures DESTINATION .)
endif()
install(FILES ${data_files} DESTINATION .)
install(FILES docs/windows.md DESTINATION . RENAME README.md)
