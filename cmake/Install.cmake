# Installation: the three shared libraries, the public headers, a CMake
# package (find_package(VyApi_IP) gives VyApi::VyApi_IP) and a pkg-config file.
include(CMakePackageConfigHelpers)
install(TARGETS VyGenApi VyApi_TL VyApi_IP EXPORT VyApi_IPTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
        INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(DIRECTORY ${CMAKE_SOURCE_DIR}/include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(EXPORT VyApi_IPTargets NAMESPACE VyApi:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/VyApi_IP)
configure_package_config_file(${CMAKE_SOURCE_DIR}/cmake/VyApi_IPConfig.cmake.in
  ${CMAKE_BINARY_DIR}/VyApi_IPConfig.cmake INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/VyApi_IP)
write_basic_package_version_file(${CMAKE_BINARY_DIR}/VyApi_IPConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_BINARY_DIR}/VyApi_IPConfig.cmake ${CMAKE_BINARY_DIR}/VyApi_IPConfigVersion.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/VyApi_IP)
configure_file(${CMAKE_SOURCE_DIR}/cmake/vyapi_ip.pc.in ${CMAKE_BINARY_DIR}/vyapi_ip.pc @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/vyapi_ip.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
