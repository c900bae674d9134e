include $(sort $(wildcard $(BR2_EXTERNAL_AV_CONSOLE_PATH)/package/*/*.mk))
