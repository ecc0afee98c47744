# `cpack -G DEB` in the build folder makes the Debian package of what `cmake --install` puts.
set(CPACK_PACKAGE_NAME silberbuch)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_VENDOR "Silberbuch")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Katalog für CDs, DVDs und andere Datenträger")
# Debian shows the description as written: lines of at most 80 characters.
set(CPACK_PACKAGE_DESCRIPTION "Silberbuch hält zu jeder CD Nummer, Titel, Kommentare, ein Cover und
ein Laufwerksabbild: die ganze Ordner- und Dateistruktur samt den Einträgen von
ZIP- und RAR-Dateien. Man gibt ein Wort ein und erfährt, auf welcher CD eine
Datei liegt, ohne die CD einzulegen. Dazu gehören das Desktop-Programm
silberbuch und die Kommandozeile silberbuch-cli.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "Silberbuch-Team <${SILBERBUCH_MAIL}>")
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "${SILBERBUCH_HOMEPAGE}")
# The libraries the programs link, as dpkg-shlibdeps finds them; beside them what is loaded at
# run time: Qt's window system plugins, the icon themes, the German Qt texts, the print font.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-qpa-plugins, libqt6svg6, adwaita-icon-theme, hicolor-icon-theme, \
qt6-translations-l10n, fonts-liberation2")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
# The build keeps its debug information; the package does not need it.
set(CPACK_STRIP_FILES TRUE)
set(CPACK_GENERATOR DEB)
include(CPack)
