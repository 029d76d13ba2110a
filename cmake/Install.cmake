# cmake --install BUILD [--prefix PREFIX]: the programs and, below share/, everything a user reads.
include(GNUInstallDirs)
install(TARGETS Orvenza orvenza-lab RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES README.md LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs examples DESTINATION ${CMAKE_INSTALL_DOCDIR} PATTERN __pycache__ EXCLUDE)
install(CODE "execute_process(
  COMMAND ${PROJECT_SOURCE_DIR}/tools/write_help.sh $<TARGET_FILE:orvenza-lab>
          \$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_MANDIR}/man1
          \$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_DATADIR}/bash-completion/completions
  COMMAND_ERROR_IS_FATAL ANY)")
