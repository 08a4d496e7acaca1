# One folder with the program, its data files and a page on how to use it.

install(TARGETS lomar6 RUNTIME DESTINATION .)
install(FILES ${data_files} DESTINATION .)
install(FILES docs/windows.md DESTINATION . RENAME README.md)
