# Debian keeps manual pages and changelogs compressed, without a time stamp.
file(GLOB_RECURSE files LIST_DIRECTORIES FALSE
    "${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*/usr/share/man/man1/*.1"
    "${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*/usr/share/doc/*/changelog")
execute_process(COMMAND gzip -9nf ${files} COMMAND_ERROR_IS_FATAL ANY)
