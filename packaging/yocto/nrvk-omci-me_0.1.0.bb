SUMMARY = "Managed-entity library of an optical network unit (OMCI, ITU-T G.988)"
LICENSE = "CLOSED"

# Where the tree is; a layer of the product sets it.
NRVK_OMCI_ME_URI ?= "git://localhost/nrvk-omci-me.git;protocol=file;branch=main"
SRC_URI = "${NRVK_OMCI_ME_URI}"
SRCREV ?= "${AUTOREV}"
S = "${WORKDIR}/git"

inherit cmake pkgconfig

DEPENDS = "openssl spdlog python3-native python3-jinja2-native simpleini"

# The library and the thin host; the programs for the desk are not for the board.
EXTRA_OECMAKE = "-DNRVK_PROGRAMS=OFF -DNRVK_BENCH=OFF -DBUILD_TESTING=OFF"

FILES:${PN}-dev += "${libdir}/cmake ${libdir}/pkgconfig"
