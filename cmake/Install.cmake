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

# Found from its own place, so that the installed tree may be moved. An absolute library folder, as
# some distributions set, has no place relative to the prefix.
set(pc_prefix ${CMAKE_INSTALL_PREFIX})
set(pc_libdir ${CMAKE_INSTALL_FULL_LIBDIR})
set(pc_includedir ${CMAKE_INSTALL_FULL_INCLUDEDIR})
if(NOT IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}")
  file(RELATIVE_PATH pc_up "/prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/prefix")
  string(REGEX REPLACE "/$" "" pc_up "${pc_up}")
  set(pc_prefix "\${pcfiledir}/${pc_up}")
  set(pc_libdir "\${prefix}/${CMAKE_INSTALL_LIBDIR}")
  if(NOT IS_ABSOLUTE "${CMAKE_INSTALL_INCLUDEDIR}")
    set(pc_includedir "\${prefix}/${CMAKE_INSTALL_INCLUDEDIR}")
  endif()
endif()
configure_file(${CMAKE_CURRENT_LIST_DIR}/qvxml.pc.in ${PROJECT_BINARY_DIR}/qvxml.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/qvxml.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
