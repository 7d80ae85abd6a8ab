# cmake --install: the programs with their manual pages and completions, the libraries, the headers below
# include/zelvor/, and what CMake and pkg-config need to find them. Every path is relative to the prefix.
include(CMakePackageConfigHelpers)

# runtime
install(TARGETS TaggerFormatConverter tei2crf RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime)
install(DIRECTORY man/ DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT runtime FILES_MATCHING PATTERN "*.1")
install(DIRECTORY completions/ DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT runtime)
install(FILES README.md CHANGELOG.md CONTRIBUTING.md DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT runtime)
install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT runtime
    FILES_MATCHING PATTERN "*.md" PATTERN "*.svg" PATTERN "api" EXCLUDE)
install(DIRECTORY examples DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT runtime
    USE_SOURCE_PERMISSIONS PATTERN "CMakeLists.txt" EXCLUDE)

# library and development
install(TARGETS zelvor_shared EXPORT zelvor-shared
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library NAMELINK_COMPONENT development)
install(TARGETS zelvor EXPORT zelvor-static ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
install(TARGETS zelvor_converter EXPORT zelvor-converter
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
# The public headers: what they include is public as well.
foreach(header
    tools/TaggerFormatConverter.h
    training/Conversion.h
    training/ConversionOptions.h
    training/ConversionReport.h
    training/CrfTrainingTeiSaxParser.h
    training/TagLexicon.h
    training/TokenAttributes.h
    training/ValueSource.h
    training/XmlReader.h
    training/tags.h
    training/universal_features.h
    utils/ArpaLM.h
    utils/BaseLexicalEntry.h
    utils/EnglishLexicalEntry.h
    utils/LMScoreFunctor.h
    utils/LetterTrieNode.h
    utils/LexicalEntry.h
    utils/Lexicon.h
    utils/NgramModel.h
    utils/OriginatingLexicalEntryRepresentation.h
    utils/Rule.h
    utils/WordFormContainer.h
    utils/common_utils.h
    utils/lexicon_utils.h
    utils/logging_utils.h
    utils/options.h
    utils/common_utils/case.h
    utils/common_utils/code_points.h
    utils/common_utils/crash_handler.h
    utils/common_utils/distance.h
    utils/common_utils/encoding.h
    utils/common_utils/entity_guard.h
    utils/common_utils/numbers.h
    utils/common_utils/process.h
    utils/common_utils/text.h
    utils/common_utils/utf8.h
    utils/common_utils/xml.h
    utils/lexicon_utils/candidates.h
    utils/lexicon_utils/lemmatizer_calls.h
    utils/lexicon_utils/lemmatizer_maps.h
    utils/lexicon_utils/lexicon_readers.h
    utils/lexicon_utils/names.h
    utils/lexicon_utils/option_names.h
    utils/lexicon_utils/rules.h
    utils/lexicon_utils/suffixes.h
    utils/lexicon_utils/verbs.h
    utils/lexicon_utils/word_classes.h
    utils/lexicon_utils/wordnet.h
)
    get_filename_component(folder ${header} DIRECTORY)
    install(FILES ${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zelvor/${folder} COMPONENT development)
endforeach()

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/zelvor)
foreach(export zelvor-shared zelvor-static zelvor-converter)
    install(EXPORT ${export} NAMESPACE zelvor:: DESTINATION ${package_dir} COMPONENT development)
endforeach()
write_basic_package_version_file(${PROJECT_BINARY_DIR}/zelvor-config-version.cmake COMPATIBILITY SameMinorVersion)
install(FILES cmake/zelvor-config.cmake cmake/FindZelvorDependencies.cmake
    ${PROJECT_BINARY_DIR}/zelvor-config-version.cmake
    DESTINATION ${package_dir} COMPONENT development)

file(RELATIVE_PATH PREFIX_FROM_PC /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(JOIN " " PC_REQUIRES ${ZELVOR_MODULES})
foreach(module zelvor zelvor-converter)
    configure_file(cmake/${module}.pc.in ${module}.pc @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/${module}.pc
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
endforeach()
