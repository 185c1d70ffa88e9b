# `cpack` in the build folder makes orvalt_VERSION_ARCHITECTURE.deb.

# No person stands behind the name, and .invalid is the domain that never has a mailbox.
set(ORVALT_PACKAGE_MAINTAINER "Orvalt project <orvalt@packages.invalid>" CACHE STRING
    "Who answers for the package, as NAME <ADDRESS>")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME orvalt)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "editor for technical figures")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Draws technical figures and keeps them as text in the format FIG 3.2, so that
they live under version control beside the text that they illustrate.
Polylines, polygons, boxes, splines, ellipses, arcs, texts and pictures lie on
a page by depth and are grouped into compounds.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER ${ORVALT_PACKAGE_MAINTAINER})
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)

# Libraries are found by dpkg-shlibdeps; these are the programs and fonts that are called by name.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fig2dev, ghostscript")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-urw-base35, texlive-latex-base, evince")

include(CPack)
