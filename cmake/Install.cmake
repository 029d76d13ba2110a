# cmake --install BUILD [--prefix PREFIX]: the programs and, below share/, everything a user reads.
include(GNUInstallDirs)
install(TARGETS Orvenza orvenza-lab RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES README.md LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs examples DESTINATION ${CMAKE_INSTALL_DOCDIR} PATTERN __pycache__ EXCLUDE)
# Where they exist: manual pages, and completions named like their program.
install(DIRECTORY man/ DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 OPTIONAL FILES_MATCHING PATTERN "*.1")
install(DIRECTORY completions/bash/ DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions OPTIONAL)
