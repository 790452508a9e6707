# Read by cpack before all else: the packages' files are as old as the newest entry of
# debian/changelog, if SOURCE_DATE_EPOCH does not say otherwise.
if("$ENV{SOURCE_DATE_EPOCH}" STREQUAL "")
  execute_process(COMMAND dpkg-parsechangelog -l ${CPACK_VORQUELL_DEBIAN}/changelog -S Timestamp
    OUTPUT_VARIABLE time OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  set(ENV{SOURCE_DATE_EPOCH} ${time})
endif()
