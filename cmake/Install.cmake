# Installs the shared library, the headers as they lie, the CMake package and the pkg-config file.

include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/qvxml)

install(
  TARGETS qvxml
  EXPORT qvxml-targets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(EXPORT qvxml-targets NAMESPACE qvxml:: DESTINATION ${package_dir})

get_property(headers GLOBAL PROPERTY QVXML_PUBLIC_HEADERS)
foreach(header IN LISTS headers)
  cmake_path(RELATIVE_PATH header BASE_DIRECTORY ${PROJECT_SOURCE_DIR}/src OUTPUT_VARIABLE relative)
  cmake_path(GET relative PARENT_PATH folder)
  install(FILES ${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${folder})
endforeach()

configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/qvxml-config.cmake.in
                              ${PROJECT_BINARY_DIR}/qvxml-config.cmake
                              INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/qvxml-config-version.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/qvxml-config.cmake
              ${PROJECT_BINARY_DIR}/qvxml-config-version.cmake DESTINATION ${package_dir})

configure_file(${CMAKE_CURRENT_LIST_DIR}/qvxml.pc.in ${PROJECT_BINARY_DIR}/qvxml.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/qvxml.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
