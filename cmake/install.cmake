# cmake --install: the tools, the libraries, and the headers below include/zelvor/.
install(TARGETS zelvor zelvor_converter TaggerFormatConverter tei2crf
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(DIRECTORY tools training utils
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zelvor
    FILES_MATCHING PATTERN "*.h"
    PATTERN "tools/tei*" EXCLUDE) # of a program, not of a library
install(FILES README.md CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DOCDIR} FILES_MATCHING PATTERN "*.md")
