# The Debian package: ./package, or cpack in the folder of the preset package. Elsewhere it has no changelog of
# Debian's and, because the library of the prints is directly below lib, scripts that it does not need.

# The owner's choice; the address goes into the package and its changelog.
set(CU_MAINTAINER "cuwizard maintainers <maintainers@cuwizard.invalid>" CACHE STRING "Maintainer of the package")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME cuwizard)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "${CU_MAINTAINER}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Italian Certificazione Unica: telematic file, forms, certificates")
set(CPACK_PACKAGE_DESCRIPTION
    "Year-end wizard for a company that pays self-employed people and withholds tax
on what it pays them. For one company and one year it makes the telematic file
of the Certificazione Unica for the Agenzia delle Entrate with the ministerial
forms, and prints the payees' accounts and certificates.

It reads, checks and compares telematic files, follows what was sent, and
imports companies, payees and payments from tables and electronic invoices. The
data are in an embedded database or on Microsoft SQL Server.

The window (cuwizard) is in Italian; cuctl does the same without a screen.")
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS ${CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS})

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
# The libraries by what the programs link; the font of the prints, which are rejected without it; a loader that knows
# packed relocations.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-dejavu-core, libc6 (>= 2.36)")
# The toolkit's own texts in Italian, its windows under Wayland, a driver for the server.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-translations-l10n, qt6-wayland, tdsodbc")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "bash-completion")

if(CU_PACKAGE)
  configure_file(packaging/changelog.Debian.in documents/changelog.Debian @ONLY)
  cu_compressed(${CMAKE_BINARY_DIR}/documents/changelog.Debian OUTPUT changelog.Debian.gz
                DESTINATION ${CMAKE_INSTALL_DOCDIR})
  install(FILES packaging/lintian-overrides DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides RENAME cuwizard)
endif()
add_custom_target(documents ALL DEPENDS ${documents})

include(CPack)
