################################################################################
#
# av-console
#
################################################################################

# The checkout that this tree is part of.
AV_CONSOLE_SITE = $(BR2_EXTERNAL_AV_CONSOLE_PATH)/../..
AV_CONSOLE_SITE_METHOD = local
AV_CONSOLE_OVERRIDE_SRCDIR_RSYNC_EXCLUSIONS = --exclude /build --exclude /.device --exclude /.rack
AV_CONSOLE_LICENSE = proprietary
AV_CONSOLE_REDISTRIBUTE = NO
AV_CONSOLE_DEPENDENCIES = json-c
AV_CONSOLE_CONF_OPTS = \
	-DPLATFORM=none \
	-DPLATFORM_LIBRARIES="$(call qstrip,$(BR2_PACKAGE_AV_CONSOLE_LIBRARIES))" \
	-DCMAKE_BUILD_TYPE=MinSizeRel

$(eval $(cmake-package))
