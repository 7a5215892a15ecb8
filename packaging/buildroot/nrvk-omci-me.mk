################################################################################
#
# nrvk-omci-me
#
################################################################################

NRVK_OMCI_ME_VERSION = 0.1.0
# A local tree; set NRVK_OMCI_ME_OVERRIDE_SRCDIR in local.mk.
NRVK_OMCI_ME_SITE = $(TOPDIR)/../nrvk-omci-me
NRVK_OMCI_ME_SITE_METHOD = local
NRVK_OMCI_ME_INSTALL_STAGING = YES
NRVK_OMCI_ME_DEPENDENCIES = host-python3 host-python-jinja2 openssl spdlog
NRVK_OMCI_ME_CONF_OPTS = -DNRVK_PROGRAMS=OFF -DNRVK_BENCH=OFF -DBUILD_TESTING=OFF

$(eval $(cmake-package))
