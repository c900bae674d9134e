# The header of what a new device's stores hold.
read_text(settings ${CMAKE_CURRENT_LIST_DIR}/defaults/settings.json)
read_text(status ${CMAKE_CURRENT_LIST_DIR}/defaults/status.json)
configure_file(${CMAKE_CURRENT_LIST_DIR}/defaults.h.in ${CMAKE_BINARY_DIR}/host/store/defaults.h @ONLY)
