# The Debian package, made by: cpack --config <build>/CPackConfig.cmake

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ocuva)
set(CPACK_PACKAGE_VENDOR "The Ocuva authors")
set(CPACK_PACKAGE_CONTACT "The Ocuva authors <ocuva@users.noreply.ocuva.org>")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "optical video microscope of an electron microprobe")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Ocuva shows the live image of the optical microscope on the stage of an
electron microprobe or scanning electron microscope. A click on the image
brings that point to the centre; autofocus, a cross, a grid, a micro marker
and standard positions help to find and to measure.
.
The hardware belongs to a host application. A simulated host is built in, so
that one can practise without an instrument.")
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS OFF)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)

set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/StripComments.cmake)
install(FILES ${CMAKE_CURRENT_LIST_DIR}/lintian-overrides DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides RENAME ocuva)
# Whatever umask the builder has.
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

include(CPack)
