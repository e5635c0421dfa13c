# The Debian package. Its dependencies on libraries are found from the program itself.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tessaview)
set(CPACK_PACKAGE_VENDOR "The TessaView developers")
set(CPACK_PACKAGE_CONTACT "The TessaView developers <support@tessaview.example>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION web)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE https://tessaview.example/)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "web browser that opens whole groups of pages")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "TessaView shows many web pages at once, each in a tab of one window, and
opens a whole named group of web addresses, a TessaGroup, in one action:
every address becomes a tab of its own. TessaGroups are small text files.
.
Pages are shown by Qt WebEngine. Menus and toolbars can be arranged at will,
and the pages of the last session come back, after a crash too.")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The pictures of the commands, and the plugin that draws them. Debian 13 has it in a package of its own.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "breeze-icon-theme, hicolor-icon-theme, libqt6sql6-sqlite, qt6-svg-plugins | libqt6svg6 (<< 6.7)")
# For checking what is written into pages, and for printing PDF documents.
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "cups-client, hunspell-dictionary, qt6-webengine-dev-tools")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "ca-certificates, fonts-dejavu-core, qt6-wayland, xdg-utils")
set(CPACK_DEBIAN_PACKAGE_PROVIDES "www-browser")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA "${CMAKE_CURRENT_SOURCE_DIR}/debian/postinst;${CMAKE_CURRENT_SOURCE_DIR}/debian/prerm")
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
include(CPack)
