# `cpack` in the build folder makes Debian packages, one of each component of cmake/Install.cmake.
# Configure with -DCMAKE_INSTALL_PREFIX=/usr, so that libraries go where Debian has them; or let
# scripts/package do all of it.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vorquell)
set(CPACK_PACKAGE_CONTACT "Vorquell maintainers <maintainers@vorquell.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")  # each package has its own
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL library development programs python documentation)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)

# The same sources make the same bytes, whenever and wherever, under the same umask.
set(CPACK_PROJECT_CONFIG_FILE ${PROJECT_SOURCE_DIR}/cmake/PackageTime.cmake)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/PackageFiles.cmake)
set(CPACK_VORQUELL_DEBIAN ${PROJECT_SOURCE_DIR}/debian)

# package(COMPONENT NAME SECTION DESCRIPTION): the description's first line is the summary.
function(package component name section description)
  string(TOUPPER ${component} upper)
  set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${name} PARENT_SCOPE)
  set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION ${section} PARENT_SCOPE)
  set(CPACK_DEBIAN_${upper}_DESCRIPTION "${description}" PARENT_SCOPE)
endfunction()

package(library libvorquell1 libs "normalised Hamming distance of features - shared libraries
libORV_CompareFeatures compares two objects by the bits of their features,
libORV_Search one object with many. Features come from elsewhere: these
libraries make none.")
package(development libvorquell-dev libdevel "normalised Hamming distance of features - headers
Headers, static libraries, and what CMake and pkg-config need to find them:
the comparison and the search, in C, and the toolbox Brindle, in C++ (files,
strings, colour, matrices, geometry, masks and images).")
package(programs vorquell utils "compare objects by the bits of their features
Vorquell prints the smallest normalised Hamming distance between a target's
feature and those of a query; VorquellSearch finds the closest of many
queries. Features come from elsewhere: the programs make none.")
package(python python3-vorquell python "normalised Hamming distance of features - Python module
Distances of NumPy arrays of bits, and the closest of many, computed by
libORV_Search.")
package(documentation vorquell-doc doc "normalised Hamming distance of features - documentation
How the programs, the libraries and the toolbox Brindle are used, function by
function.")

set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/debian/triggers)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_COMPONENT_DEVELOPMENT_DEPENDS library)
set(CPACK_DEBIAN_PYTHON_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_PYTHON_PACKAGE_DEPENDS
  "python3:any (>= 3.10), python3-numpy, libvorquell1 (>= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_PYTHON_PACKAGE_CONTROL_EXTRA
  ${PROJECT_SOURCE_DIR}/debian/python/postinst ${PROJECT_SOURCE_DIR}/debian/python/prerm)
set(CPACK_DEBIAN_PYTHON_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_ARCHITECTURE all)
set(CPACK_VERBATIM_VARIABLES ON)
include(CPack)
