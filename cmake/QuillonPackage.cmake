# The Debian package: `cpack` in the build folder writes quillon_<version>_<arch>.deb with what
# `cmake --install` puts under /usr. Depends names the packages of every library the two programs
# link (the package test checks that against the binaries) and the SQL Server driver, which is
# loaded by name at run time and so linked by nothing.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quillon)
set(CPACK_PACKAGE_VENDOR "Quillon")
set(QUILLON_PACKAGE_CONTACT "Quillon maintainers <quillon@localhost>"
    CACHE STRING "Maintainer of the Debian package: whoever deploys it answers for it")
set(CPACK_PACKAGE_CONTACT "${QUILLON_PACKAGE_CONTACT}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Quillon收费报表: invoice and charge reports from the billing database")
set(CPACK_PACKAGE_DESCRIPTION
    "Six reports over a property-management billing database (SQL Server through unixODBC and
FreeTDS, or an SQLite file): monthly reconciliation of invoices, pre-invoice, invoice and
parking-fee detail, pre-invoice summary and department summary by tax rate, on screen, as
.xlsx workbooks and as printed pages. quillon is the desktop program; quillon-cli runs the
same reports without a display, for scheduled runs.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_DEPENDS
    "libqt6widgets6, libqt6printsupport6, libqt6gui6, libqt6core6, libxlsxwriter4, libodbc2, tdsodbc, libsqlite3-0, libstdc++6, libgcc-s1, libc6")
# Chinese glyphs for the windows and Qt's own buttons in Chinese; the program runs without them.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-noto-cjk, qt6-translations-l10n")
include(CPack)
