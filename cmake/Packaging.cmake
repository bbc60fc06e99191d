# `make deb`: a Debian package of everything `cmake --install` places.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME murvane)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_VENDOR "The Murvane developers")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "to-do lists for phones and desktops")
set(CPACK_PACKAGE_DESCRIPTION
    "Murvane keeps several named to-do lists on the device: items to do or done, pinned, sorted, shared as text, with undo, six colour themes and a built-in tutorial. No account, no server, no network.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PACKAGE_CONTACT "The Murvane developers <murvane@murvane.io>")
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "${MURVANE_HOMEPAGE}")
# murvane_<version>_<arch>.deb
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
# Libraries from the binary; what it opens at run time is listed by hand:
# the QML modules its views import, the window-system and SQLite plugins and the
# fonts it loads at start (src/platform/FontLoader.cpp).
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS
    "qml6-module-qtquick, qml6-module-qtquick-window, qml6-module-qtquick-controls, qml6-module-qtquick-templates, qml6-module-qtquick-layouts, qml6-module-qtqml-workerscript, qml6-module-qtqml-models, qt6-qpa-plugins, libqt6sql6-sqlite, fonts-inter, fonts-texgyre, fonts-noto-color-emoji")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-wayland, libgl1-mesa-dri")
set(CPACK_STRIP_FILES ON)
include(CPack)
