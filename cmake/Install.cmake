# What `cmake --install` puts where: the tool, the libraries, their headers, the manual pages,
# completion for bash, and what CMake and pkg-config need to find them.
include(CMakePackageConfigHelpers)
include(GNUInstallDirs)

install(TARGETS Vorquell VorquellSearch RUNTIME)
install(TARGETS ORV_CompareFeatures ORV_CompareFeatures_static ORV_Search ORV_Search_static Brindle
        EXPORT VorquellTargets
        LIBRARY ARCHIVE
        INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})

foreach(header ${BRINDLE_HEADERS} ${COMPARISON_HEADERS} ${SEARCH_HEADERS})
  cmake_path(GET header PARENT_PATH folder)
  install(FILES src/${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${folder})
endforeach()
install(FILES docs/Vorquell.1 docs/VorquellSearch.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES completions/Vorquell completions/VorquellSearch
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Vorquell)
configure_package_config_file(cmake/VorquellConfig.cmake.in VorquellConfig.cmake
  INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(VorquellConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(EXPORT VorquellTargets NAMESPACE Vorquell:: DESTINATION ${package_dir})
install(FILES ${PROJECT_BINARY_DIR}/VorquellConfig.cmake
              ${PROJECT_BINARY_DIR}/VorquellConfigVersion.cmake
        DESTINATION ${package_dir})

# pkg-config files find their prefix from where they stand, so an installed tree can be moved.
file(RELATIVE_PATH PC_PREFIX /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" PC_PREFIX ${PC_PREFIX})
foreach(folder LIBDIR INCLUDEDIR)
  if(IS_ABSOLUTE "${CMAKE_INSTALL_${folder}}")
    set(PC_${folder} ${CMAKE_INSTALL_${folder}})
  else()
    set(PC_${folder} "\${prefix}/${CMAKE_INSTALL_${folder}}")
  endif()
endforeach()
foreach(library ORV_CompareFeatures ORV_Search Brindle)
  configure_file(cmake/${library}.pc.in ${library}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${library}.pc
          DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endforeach()

# The Python module goes where Debian's interpreter looks for it under /usr: only with
# `cmake --install --component python`, as in the package. Others use pip.
install(DIRECTORY python/vorquell DESTINATION lib/python3/dist-packages
        COMPONENT python EXCLUDE_FROM_ALL
        FILES_MATCHING PATTERN "*.py" PATTERN "py.typed")
