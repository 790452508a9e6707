# Run by cpack on what is to be packed: adds the files that Debian has in every package, compresses
# manual pages, and gives folders the modes that the umask did not.
set(file_mode OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
foreach(component IN LISTS CPACK_COMPONENTS_ALL)
  string(TOUPPER ${component} upper)
  set(name ${CPACK_DEBIAN_${upper}_PACKAGE_NAME})
  set(usr ${CPACK_TEMPORARY_DIRECTORY}/${component}/usr)
  file(COPY ${CPACK_VORQUELL_DEBIAN}/copyright ${CPACK_VORQUELL_DEBIAN}/changelog
    DESTINATION ${usr}/share/doc/${name} FILE_PERMISSIONS ${file_mode})
  file(COPY ${CPACK_VORQUELL_DEBIAN}/overrides/${name}
    DESTINATION ${usr}/share/lintian/overrides FILE_PERMISSIONS ${file_mode})
  file(GLOB manual_pages ${usr}/share/man/man1/*.1)
  execute_process(COMMAND gzip -9n ${usr}/share/doc/${name}/changelog ${manual_pages}
    COMMAND_ERROR_IS_FATAL ANY)
  execute_process(COMMAND find ${usr} -type d -exec chmod 755 {} +  # file(CHMOD) trips over links
    COMMAND_ERROR_IS_FATAL ANY)
endforeach()
