# What `cmake --install` puts where: the tool, the libraries, their headers, the manual pages,
# completion for bash, and what CMake and pkg-config need to find them.
include(CMakePackageConfigHelpers)
include(GNUInstallDirs)

# Components, of which cmake/Package.cmake makes packages: library, development, programs, and with
# `cmake --install --component` only: python, documentation.
install(TARGETS Vorquell VorquellSearch RUNTIME COMPONENT programs)
install(TARGETS ORV_CompareFeatures ORV_CompareFeatures_static ORV_Search ORV_Search_static Brindle
        EXPORT VorquellTargets
        LIBRARY COMPONENT library NAMELINK_COMPONENT development
        ARCHIVE COMPONENT development
        INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})

foreach(header ${BRINDLE_HEADERS} ${COMPARISON_HEADERS} ${SEARCH_HEADERS})
  cmake_path(GET header PARENT_PATH folder)
  install(FILES src/${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${folder}
          COMPONENT development)
endforeach()
install(FILES docs/Vorquell.1 docs/VorquellSearch.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1
        COMPONENT programs)
install(FILES completions/Vorquell completions/VorquellSearch
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT programs)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Vorquell)
configure_package_config_file(cmake/VorquellConfig.cmake.in VorquellConfig.cmake
  INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(VorquellConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(EXPORT VorquellTargets NAMESPACE Vorquell:: DESTINATION ${package_dir}
        COMPONENT development)
install(FILES ${PROJECT_BINARY_DIR}/VorquellConfig.cmake
              ${PROJECT_BINARY_DIR}/VorquellConfigVersion.cmake
        DESTINATION ${package_dir} COMPONENT development)

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
          DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
endforeach()

# The Python module goes where Debian's interpreter looks for it under /usr. Others use pip.
install(DIRECTORY python/vorquell DESTINATION lib/python3/dist-packages
        COMPONENT python EXCLUDE_FROM_ALL
        FILES_MATCHING PATTERN "*.py" PATTERN "py.typed")

# The reference where it is built (target docs), else the pages that it is made of.
if(VORQUELL_DOCUMENTATION)
  set(documentation ${PROJECT_BINARY_DIR}/docs/html)
else()
  set(documentation docs/ FILES_MATCHING PATTERN "*.md" PATTERN "*.png")
endif()
list(POP_FRONT documentation folder)
install(DIRECTORY ${folder} DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/vorquell-doc
        COMPONENT documentation EXCLUDE_FROM_ALL ${documentation})
