# Every packaged file carries the time of the commit, not that of the checkout or the build.
if(DEFINED ENV{SOURCE_DATE_EPOCH})
    execute_process(
        COMMAND find ${CPACK_TEMPORARY_INSTALL_DIRECTORY}
            -exec touch --no-dereference --date=@$ENV{SOURCE_DATE_EPOCH} {} +
        COMMAND_ERROR_IS_FATAL ANY)
endif()
